// SPDX-License-Identifier: GPL-3.0-or-later
// dosmara-machine: a simulated drinks vending machine on a pseudo-terminal.
#include <exception>
#include <iostream>
#include <span>

#include "machine/options.h"
#include "machine/program.h"

namespace {

constexpr int kFailure = 1;
constexpr int kUsageError = 2;

}  // namespace

int main(int argc, char** argv) {
  try {
    const machine::Options options =
        machine::ParseOptions(std::span<const char* const>(argv, static_cast<std::size_t>(argc)).subspan(1));
    if (options.help) {
      std::cout << machine::UsageText() << machine::CommandList();
      return 0;
    }
    machine::Program(options).Run();
    return 0;
  } catch (const machine::UsageError& error) {
    std::cerr << "dosmara-machine: " << error.what() << "\n";
    return kUsageError;
  } catch (const std::exception& error) {
    std::cerr << "dosmara-machine: " << error.what() << "\n";
    return kFailure;
  }
}
