// SPDX-License-Identifier: GPL-3.0-or-later
// dosmara-data: makes index files and language files from the tables under data/.
#include <exception>
#include <iostream>
#include <string_view>

#include "data/program_data.h"

namespace {

constexpr int kDataError = 1;
constexpr int kUsageError = 2;

int Run(std::string_view command, const char* from, const char* folder) {
  if (command == "boards") {
    dosmara::BuildBoards(from, folder);
  } else if (command == "captions") {
    dosmara::BuildCaptions(from, folder);
  } else {
    std::cerr << "dosmara-data: unknown command '" << command << "'\n";
    return kUsageError;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: dosmara-data boards <folder of tables> <folder>\n"
                 "       dosmara-data captions <table> <folder>\n";
    return kUsageError;
  }
  try {
    return Run(argv[1], argv[2], argv[3]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << "\n";
    return kDataError;
  }
}
