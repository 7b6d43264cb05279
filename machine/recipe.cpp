// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/recipe.h"

#include <algorithm>
#include <array>

namespace machine {
namespace {

using namespace std::chrono_literals;

// One water count is one pulse of the flow meter behind the pump.
constexpr Time kWaterPulse = 25ms;

// A powder with record 0 is not there.
struct Powder {
  int delay = 0;
  int time = 0;
};
struct Part {
  int water = 0;
  std::array<Powder, 2> powders{};
};
constexpr Part kParts[] = {
    {kCoffeeWater},
    {170, {{{368, 280}, {390, 302}}}},  // milk and chocolate share their water
    {192, {{{412, 324}}}},              // tea
    {214, {{{563, 346}}}},              // decaffeinated
    {236},                              // hot water
};
constexpr int kSugarTime = 434;

// What record 316 asks for in a test of one part, and the record of that part's time.
struct SinglePart {
  std::uint32_t code;
  int time;
};
constexpr SinglePart kSingleParts[] = {{66, 280}, {68, 302}, {72, 324}, {80, 346}, {192, kSugarTime}};

Time Tenths(const Board& board, int record) { return board.Get(record) * Time(100ms); }

}  // namespace

Time DrinkTime(const Board& board, const Serving& drink) {
  Time total = drink.sugar ? Tenths(board, kSugarTime + drink.index) : Time(0);
  for (const Part& part : kParts) {
    const Time water = board.Get(part.water + drink.index) * kWaterPulse;
    Time longest = water;
    for (const Powder& powder : part.powders) {
      if (!drink.powders || powder.time == 0 || water == Time(0)) continue;
      longest = std::max(
          longest, Tenths(board, powder.delay + drink.index) + Tenths(board, powder.time + drink.index));
    }
    total += longest;
  }
  return total;
}

Time PartTime(const Board& board, const Serving& part) {
  const auto single = std::ranges::find(kSingleParts, part.part, &SinglePart::code);
  return single == std::end(kSingleParts) ? Time(0) : Tenths(board, single->time + part.index);
}

std::uint32_t WaterOf(const Board& board, int selection) {
  std::uint32_t water = 0;
  for (const Part& part : kParts) water += board.Get(part.water + selection);
  return water;
}

}  // namespace machine
