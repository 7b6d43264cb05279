// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of dosmara-machine.
#pragma once

#include <cstdint>
#include <set>
#include <span>
#include <stdexcept>
#include <string>

#include "machine/board_files.h"

namespace machine {

struct Options {
  std::string boards = ".";
  std::string names;
  std::string link;
  std::string log;
  std::string script;
  std::string scenario;
  std::uint32_t seed = 1;
  unsigned speed = 1;
  // What node 0 says of itself. The records that it has stay those of its own index file.
  Identity identity = kBoardKinds[0].identity;
  std::set<int> absent;
  bool help = false;
};

// A command line that cannot serve, with one line that says why.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads the arguments behind the program's name. Throws UsageError.
Options ParseOptions(std::span<const char* const> arguments);

// What --help prints ahead of the list of commands.
std::string UsageText();

}  // namespace machine
