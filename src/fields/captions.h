// SPDX-License-Identifier: GPL-3.0-or-later
// Lines of the language file that several forms use.
#pragma once

namespace dosmara {

// The words beside a switch or a lamp.
struct OffOnLines {
  int off = 0;
  int on = 0;
};
inline constexpr OffOnLines kOffOn = {.off = 109, .on = 110};

// Titles of the frames of a board.
inline constexpr int kMainBoardLine = 274;
inline constexpr int kHotDrinksLine = 244;
inline constexpr int kZeth2Line = 254;

// A payment system, as a frame and as a choice.
inline constexpr int kExecutiveLine = 94;

}  // namespace dosmara
