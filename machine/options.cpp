// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/options.h"

#include <algorithm>
#include <string_view>

#include "machine/text.h"

namespace machine {
namespace {

// One option with an argument: a text, a part of the identity, or a number with a use of its own.
struct Option {
  std::string_view name;
  std::string_view argument;
  std::string_view help;
  std::string Options::*text = nullptr;
  int Identity::*identity = nullptr;
  void (*number)(Options&, std::uint32_t) = nullptr;
  std::uint32_t least = 0;
  std::uint32_t largest = 0;
};

constexpr Option kOptions[] = {
    {.name = "--boards",
     .argument = "DIR",
     .help = "index files, W*.inx (default: .)",
     .text = &Options::boards},
    {.name = "--names",
     .argument = "DIR",
     .help = "names of the records, W*.tsv (default: as --boards)",
     .text = &Options::names},
    {.name = "--link", .argument = "PATH", .help = "link to the serial device", .text = &Options::link},
    {.name = "--log", .argument = "FILE", .help = "log frames from the start", .text = &Options::log},
    {.name = "--script", .argument = "FILE", .help = "commands to run first", .text = &Options::script},
    {.name = "--scenario",
     .argument = "FILE",
     .help = "a day to play by the machine's clock",
     .text = &Options::scenario},
    {.name = "--speed",
     .argument = "N",
     .help = "how many times faster the machine's day runs (default: 1)",
     .number = [](Options& options, std::uint32_t value) { options.speed = value; },
     .least = 1,
     .largest = 3600},
    {.name = "--seed",
     .argument = "N",
     .help = "what decides faults and customers (default: 1)",
     .number = [](Options& options, std::uint32_t value) { options.seed = value; },
     .largest = UINT32_MAX},
    {.name = "--model",
     .argument = "N",
     .help = "model code of node 0 (default: 25)",
     .identity = &Identity::model,
     .largest = 255},
    {.name = "--board-code",
     .argument = "N",
     .help = "board code of node 0 (default: 18)",
     .identity = &Identity::board_code,
     .largest = 255},
    {.name = "--type",
     .argument = "N",
     .help = "board type of node 0 (default: 256)",
     .identity = &Identity::type,
     .largest = 65535},
    {.name = "--revision",
     .argument = "N",
     .help = "software revision of node 0 (default: 14)",
     .identity = &Identity::revision,
     .largest = 255},
    {.name = "--file-number",
     .argument = "N",
     .help = "index file number of node 0 (default: 1)",
     .identity = &Identity::file_number,
     .largest = 255},
    {.name = "--absent",
     .argument = "NODE",
     .help = "a board, 1 to 3, that is not there; may be repeated",
     .number = [](Options& options, std::uint32_t value) { options.absent.insert(static_cast<int>(value)); },
     .least = 1,
     .largest = kNodeCount - 1},
};

void Apply(const Option& option, std::string_view value, Options& options) {
  if (option.text != nullptr) {
    options.*option.text = value;
    return;
  }
  const auto number = Number(value, option.least, option.largest);
  if (!number) {
    throw UsageError(std::string(option.name) + " takes " + std::to_string(option.least) + " to " +
                     std::to_string(option.largest) + ", not '" + std::string(value) + "'");
  }
  if (option.identity != nullptr) {
    options.identity.*option.identity = static_cast<int>(*number);
  } else {
    option.number(options, *number);
  }
}

}  // namespace

Options ParseOptions(std::span<const char* const> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view name = arguments[i];
    if (name == "--help") {
      options.help = true;
      continue;
    }
    const auto option = std::ranges::find(kOptions, name, &Option::name);
    if (option == std::end(kOptions)) {
      throw UsageError("no option '" + std::string(name) + "', try --help");
    }
    if (++i == arguments.size()) {
      throw UsageError(std::string(name) + " needs an argument");
    }
    Apply(*option, arguments[i], options);
  }
  return options;
}

std::string UsageText() {
  std::string text =
      "usage: dosmara-machine [options]\n\nA simulated drinks vending machine on a pseudo-terminal. "
      "Type help for its commands.\n\n";
  for (const Option& option : kOptions) {
    std::string left = "  " + std::string(option.name) + " " + std::string(option.argument);
    left.resize(22, ' ');
    text += left + std::string(option.help) + "\n";
  }
  return text + "  --help              this text\n\nCommands on standard input:\n\n";
}

}  // namespace machine
