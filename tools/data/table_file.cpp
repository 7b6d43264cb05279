// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/table_file.h"

#include <charconv>
#include <fstream>
#include <optional>

namespace dosmara {
namespace {

std::vector<std::string> SplitCells(const std::string& text) {
  std::vector<std::string> cells;
  std::size_t begin = 0;
  while (true) {
    const std::size_t tab = text.find('\t', begin);
    cells.push_back(text.substr(begin, tab - begin));
    if (tab == std::string::npos) {
      return cells;
    }
    begin = tab + 1;
  }
}

std::optional<std::uint32_t> Digits(std::string_view text) {
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return number;
}

}  // namespace

std::vector<TableRow> ReadTable(const std::filesystem::path& file) {
  std::ifstream stream(file);
  if (!stream) {
    throw TableError(file, 1, "cannot be read");
  }
  std::vector<TableRow> rows;
  std::string text;
  for (int line = 1; std::getline(stream, text); ++line) {
    if (text.empty() || text.front() == '#') {
      continue;
    }
    rows.push_back({line, SplitCells(text)});
  }
  return rows;
}

std::uint32_t ParseNumber(const std::filesystem::path& file, int line, std::string_view what,
                          std::string_view text, std::uint32_t least, std::uint32_t most) {
  const auto number = Digits(text);
  if (!number || *number < least || *number > most) {
    throw TableError(file, line,
                     std::string(what) + " '" + std::string(text) + "' is no number from " +
                         std::to_string(least) + " to " + std::to_string(most));
  }
  return *number;
}

std::vector<int> ParseRange(const std::filesystem::path& file, int line, std::string_view what,
                            std::string_view text, int least, int most) {
  const auto number = [&](std::string_view digits) {
    return static_cast<int>(ParseNumber(file, line, what, digits, least, most));
  };
  const std::size_t dash = text.find('-');
  if (dash == std::string_view::npos) {
    return {number(text)};
  }

  const std::size_t slash = text.find('/', dash);
  const int first = number(text.substr(0, dash));
  const int last = number(text.substr(dash + 1, slash == std::string_view::npos ? slash : slash - dash - 1));
  const int step = slash == std::string_view::npos ? 1 : number(text.substr(slash + 1));
  if (last <= first || step == 0 || (last - first) % step != 0) {
    throw TableError(file, line,
                     std::string(what) + " range '" + std::string(text) + "' does not rise to its end");
  }
  std::vector<int> numbers;
  for (int n = first; n <= last; n += step) {
    numbers.push_back(n);
  }
  return numbers;
}

}  // namespace dosmara
