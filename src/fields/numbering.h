// SPDX-License-Identifier: GPL-3.0-or-later
// How the machine numbers what there are many of.
#pragma once

#include <QString>

#include "controls/selection_number.h"

namespace dosmara {

// The positions of a Zeth unit, counted row by row.
inline constexpr int kPositionRows = 6;
inline constexpr int kPositionColumns = 8;
inline constexpr int kPositions = kPositionRows * kPositionColumns;

// What follows the caption of the n-th of several behind a blank.
enum class Numbering {
  kNone,
  kFromOne,    // 1, 2, 3 ...
  kSelection,  // 1 to 16 and 21 to 26
  kPosition,   // the digits of row and column: 11 to 18, 21 to 28 ... 61 to 68
};

// The number of the n-th, counted from 0; 0 for kNone.
constexpr int NumberOf(Numbering numbering, int n) {
  switch (numbering) {
    case Numbering::kFromOne:
      return n + 1;
    case Numbering::kSelection:
      return SelectionNumber(n);
    case Numbering::kPosition:
      return (n / kPositionColumns + 1) * 10 + n % kPositionColumns + 1;
    case Numbering::kNone:
      break;
  }
  return 0;
}

// "Selezione 21": a caption and a number behind a blank; 0 is none.
inline QString Numbered(const QString& caption, int number) {
  return number != 0 ? caption + ' ' + QString::number(number) : caption;
}

}  // namespace dosmara
