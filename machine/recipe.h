// SPDX-License-Identifier: GPL-3.0-or-later
// What a drink is made of: records of node 1, each the first of 22, one for each selection. Water is a count
// of the flow meter, times and delays are tenths of a second.
#pragma once

#include <vector>

#include "machine/board.h"
#include "machine/clock.h"
#include "machine/drinks_outputs.h"
#include "machine/serving.h"

namespace machine {

inline constexpr int kSelections = 22;
inline constexpr int kCoffeeWater = 148;

// The bit of a selection in a field of three records of node 1 that begins at `first`.
bool SelectionBit(const Boards& boards, int first, int selection);

// An output that is on for a while, counted from the start of the serving.
struct Run {
  Time from;
  Time to;
  int output;
};

// How long a serving takes, and which outputs run meanwhile.
struct Plan {
  Time length{0};
  std::vector<Run> runs;
};

// A drink: the cup falls, sugar runs, then the waters follow each other, since there is one pump, each with
// its powders; the stirrer falls at the end. A part whose water is off is left out with its powders. Of no
// length if there is neither sugar nor water.
Plan DrinkPlan(const Boards& boards, const Serving& drink);
// A single part, by its code in record 316; of no length for a code that names none.
Plan PartPlan(const Boards& boards, const Serving& part);
// A wash: the rinse valve and the mixers for as long as the rinse water takes.
Plan WashPlan(const Boards& boards);
// True when a stirrer belongs to a drink: with sugar, with a powder if record 46 says so, or always.
bool GetsStirrer(const Boards& boards, const Serving& drink);
// All water of a drink, in counts.
std::uint32_t WaterOf(const Board& board, int selection);

}  // namespace machine
