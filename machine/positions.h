// SPDX-License-Identifier: GPL-3.0-or-later
// How selections and product positions are numbered: selections 1 to 16 and 21 to 26 are 0 to 21 on the
// boards, a position is 8 x (row - 1) + column - 1.
#pragma once

#include <optional>
#include <string>

namespace machine {

inline constexpr int kRows = 6;
inline constexpr int kColumns = 8;
inline constexpr int kPositions = kRows * kColumns;

// The number on the keypad of a selection.
inline int SelectionNumber(int index) { return index < 16 ? index + 1 : index + 5; }

// The selection of a number on the keypad.
inline std::optional<int> SelectionOfNumber(int number) {
  if (number >= 1 && number <= 16) {
    return number - 1;
  }
  if (number >= 21 && number <= 26) {
    return number - 5;
  }
  return std::nullopt;
}

inline std::optional<int> PositionAt(int row, int column) {
  if (row < 1 || row > kRows || column < 1 || column > kColumns) {
    return std::nullopt;
  }
  return (row - 1) * kColumns + column - 1;
}

// A position as "2:34": node 2, row 3, column 4.
inline std::string PositionName(int node, int position) {
  return std::to_string(node) + ":" + std::to_string(position / kColumns + 1) +
         std::to_string(position % kColumns + 1);
}

}  // namespace machine
