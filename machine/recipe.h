// SPDX-License-Identifier: GPL-3.0-or-later
// What a drink is made of: records of node 1, each the first of 22, one for each selection. Water is a count
// of the flow meter, times and delays are tenths of a second.
#pragma once

#include "machine/board.h"
#include "machine/clock.h"
#include "machine/serving.h"

namespace machine {

inline constexpr int kSelections = 22;
inline constexpr int kCoffeeWater = 148;

// How long a drink takes. The parts follow each other, since there is one pump; the powders of a part run
// along with its water. A part whose water is off is left out with its powders.
Time DrinkTime(const Board& board, const Serving& drink);
// How long a single part takes, by its code in record 316; zero for a code that names none.
Time PartTime(const Board& board, const Serving& part);
// All water of a drink, in counts.
std::uint32_t WaterOf(const Board& board, int selection);

}  // namespace machine
