// SPDX-License-Identifier: GPL-3.0-or-later
// Text files of an operator: scripts and scenarios.
#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace machine {

// What some editors put at the start of a text to say that it is UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The lines of a file, without a byte order mark; nothing when it cannot be read.
inline std::optional<std::vector<std::string>> LinesOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file || std::filesystem::is_directory(path)) {
    return std::nullopt;
  }
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    lines.push_back(line);
  }
  if (!lines.empty() && lines.front().starts_with(kByteOrderMark)) {
    lines.front().erase(0, kByteOrderMark.size());
  }
  return lines;
}

}  // namespace machine
