// SPDX-License-Identifier: GPL-3.0-or-later
// How the machine numbers its selections.
#pragma once

namespace dosmara {

inline constexpr int kSelections = 22;

// The number that the operator knows a selection by: 1 to 16 and 21 to 26 for the indices 0 to 21.
constexpr int SelectionNumber(int index) { return index < 16 ? index + 1 : index + 5; }

}  // namespace dosmara
