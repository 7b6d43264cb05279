// SPDX-License-Identifier: GPL-3.0-or-later
// Words and numbers as an operator types them.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace machine {

// The words of a line, parted by blanks and tabs.
inline std::vector<std::string_view> Words(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r";
  std::vector<std::string_view> words;
  while (true) {
    const auto begin = line.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) {
      return words;
    }
    const auto end = line.find_first_of(kBlanks, begin);
    words.push_back(line.substr(begin, end - begin));
    if (end == std::string_view::npos) {
      return words;
    }
    line.remove_prefix(end);
  }
}

// A whole decimal number from `least` to `largest`, and nothing beside it.
inline std::optional<std::uint32_t> Number(std::string_view text, std::uint32_t least,
                                           std::uint32_t largest) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  if (value < least || value > largest) {
    return std::nullopt;
  }
  return value;
}

}  // namespace machine
