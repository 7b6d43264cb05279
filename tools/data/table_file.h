// SPDX-License-Identifier: GPL-3.0-or-later
// Reading of the tables under data/: text in UTF-8, cells parted by tabs. Blank lines and lines that begin
// with '#' are passed over.
#pragma once

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace dosmara {

// A mistake in a table, with the words "<file>:<line>: <message>".
class TableError : public std::runtime_error {
 public:
  TableError(const std::filesystem::path& file, int line, const std::string& message)
      : std::runtime_error(file.string() + ":" + std::to_string(line) + ": " + message) {}
};

struct TableRow {
  int line;  // in the file, from 1
  std::vector<std::string> cells;
};

// The rows of the table that carry data, in order. Throws TableError when the file cannot be read.
std::vector<TableRow> ReadTable(const std::filesystem::path& file);

// A whole number from `least` to `most`, digits only. `what` names it in the message of the TableError that
// anything else throws.
std::uint32_t ParseNumber(const std::filesystem::path& file, int line, std::string_view what,
                          std::string_view text, std::uint32_t least, std::uint32_t most);

// The numbers that "7", "4-11" or, with a step, "142-196/6" stand for. Throws TableError for anything else,
// and for a number outside `least` to `most`.
std::vector<int> ParseRange(const std::filesystem::path& file, int line, std::string_view what,
                            std::string_view text, int least, int most);

}  // namespace dosmara
