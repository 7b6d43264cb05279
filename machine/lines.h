// SPDX-License-Identifier: GPL-3.0-or-later
// Text files of an operator: scripts and scenarios.
#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace machine {

// The lines of a file; nothing when it cannot be read.
inline std::optional<std::vector<std::string>> LinesOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file || std::filesystem::is_directory(path)) return std::nullopt;
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

}  // namespace machine
