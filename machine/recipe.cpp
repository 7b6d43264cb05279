// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/recipe.h"

#include <algorithm>
#include <array>
#include <utility>

namespace machine {
namespace {

using namespace std::chrono_literals;

// One water count is one pulse of the flow meter behind the pump.
constexpr Time kWaterPulse = 25ms;

// How long a cup or a stirrer takes to fall. A drink without a cup begins as late as one with a cup.
constexpr Time kFall = 800ms;

constexpr int kRinseWater = 585;
constexpr int kSugarTime = 434;
constexpr int kMilkTime = 280;
constexpr int kExtraSugarTime = 25;
constexpr int kExtraMilkTime = 26;
constexpr int kMilkFirst = 42;
constexpr int kCupOptions = 46;
constexpr std::uint32_t kGrindFirst = 1;
constexpr std::uint32_t kStirrersForPowders = 16;
constexpr std::uint32_t kStirrersAlways = 32;
constexpr int kMilkOptions = 47;
constexpr std::uint32_t kDoubleMilk = 1;

// A powder: the records of its delay and of its time, and its outputs. One whose record is 0 is not there,
// and one whose mixer is -1 has none.
struct Powder {
  int delay = 0;
  int time = 0;
  int motor = 0;
  int mixer = -1;
};
// A part of a drink: the record of its water, the valve, and what is mixed into it.
struct Part {
  int water = 0;
  int valve = 0;
  std::array<Powder, 2> powders{};
};
constexpr Part kParts[] = {
    {kCoffeeWater, kCoffeeValve},
    // Milk and chocolate share their water.
    {170,
     kMilkValve,
     {{{368, kMilkTime, kMilkMotor, kMilkMixer}, {390, 302, kChocolateMotor, kChocolateMixer}}}},
    {192, kTeaValve, {{{412, 324, kTeaMotor}}}},
    {214, kDecafValve, {{{563, 346, kDecafMotor}}}},
    {236, kHotWaterValve},
};

// What record 316 asks for in a test of one part, the record of that part's time, and what runs.
struct SinglePart {
  std::uint32_t code;
  int time;
  int motor;
  int mixer = -1;
};
constexpr SinglePart kSingleParts[] = {{66, kMilkTime, kMilkMotor, kMilkMixer},
                                       {68, 302, kChocolateMotor, kChocolateMixer},
                                       {72, 324, kTeaMotor},
                                       {80, 346, kDecafMotor},
                                       {192, kSugarTime, kSugarMotor}};

bool Option(const Board& unit, int record, std::uint32_t mask) { return (unit.Get(record) & mask) != 0; }

Time Tenths(const Board& unit, int record) { return unit.Get(record) * Time(100ms); }

Time SugarTime(const Board& unit, const Serving& drink) {
  if (!drink.sugar) {
    return Time(0);
  }
  return Tenths(unit, kSugarTime + drink.index) +
         (drink.extra_sugar ? Tenths(unit, kExtraSugarTime) : Time(0));
}

Time PowderTime(const Board& unit, const Powder& powder, const Serving& drink) {
  const Time time = Tenths(unit, powder.time + drink.index);
  if (powder.time != kMilkTime || time == Time(0)) {
    return time;
  }
  return time * (Option(unit, kMilkOptions, kDoubleMilk) ? 2 : 1) +
         (drink.extra_milk ? Tenths(unit, kExtraMilkTime) : Time(0));
}

// Adds a part of a drink behind what the plan holds already.
void AddPart(const Board& unit, const Part& part, const Serving& drink, Plan& plan) {
  const Time start = plan.length;
  const Time water = unit.Get(part.water + drink.index) * kWaterPulse;
  if (water == Time(0)) {
    return;
  }
  Time longest = water;
  plan.runs.push_back({start, start + water, part.valve});
  plan.runs.push_back({start, start + water, kPumpOutput});
  for (const Powder& powder : part.powders) {
    if (!drink.powders || powder.time == 0) {
      continue;
    }
    const Time delay = Tenths(unit, powder.delay + drink.index);
    const Time time = PowderTime(unit, powder, drink);
    longest = std::max(longest, delay + time);
    if (time == Time(0)) {
      continue;
    }
    plan.runs.push_back({start + delay, start + delay + time, powder.motor});
    if (powder.mixer >= 0) {
      plan.runs.push_back({start, start + std::max(water, delay + time), powder.mixer});
    }
  }
  plan.length += longest;
}

// The doser fills the brewer ahead of the coffee's water, while the cup falls and the sugar runs, which takes
// `before`. The grinder fills the doser in the first half of that, or else while the water runs, for the next
// drink.
void AddCoffee(const Board& unit, const Serving& drink, Time before, Plan& plan) {
  const Time start = plan.length;
  AddPart(unit, kParts[0], drink, plan);
  if (plan.length == start) {
    return;
  }
  plan.runs.push_back({start, plan.length, kBrewer});
  if (!drink.powders) {
    return;
  }
  const bool grind_first = Option(unit, kCupOptions, kGrindFirst);
  plan.runs.push_back(grind_first ? Run{Time(0), before / 2, kGrinder} : Run{start, plan.length, kGrinder});
  plan.runs.push_back({before / 2, before, kDoser});
}

}  // namespace

bool SelectionBit(const Boards& boards, int first, int selection) {
  return (boards[1].Get(first + selection / 8) >> (selection % 8) & 1) != 0;
}

Plan DrinkPlan(const Boards& boards, const Serving& drink) {
  const Board& unit = boards[1];
  const Time sugar = SugarTime(unit, drink);
  const Time before = kFall + sugar;
  Plan plan{.length = before, .runs = {}};
  if (sugar > Time(0)) {
    plan.runs.push_back({kFall, before, kSugarMotor});
  }
  const bool milk_first = SelectionBit(boards, kMilkFirst, drink.index);
  if (milk_first) {
    AddPart(unit, kParts[1], drink, plan);
  }
  AddCoffee(unit, drink, before, plan);
  if (!milk_first) {
    AddPart(unit, kParts[1], drink, plan);
  }
  for (const Part& part : {kParts[2], kParts[3], kParts[4]}) {
    AddPart(unit, part, drink, plan);
  }
  if (plan.length == kFall) {
    return {};
  }
  if (drink.cup) {
    plan.runs.push_back({Time(0), kFall, kCupRelease});
    plan.runs.push_back({kFall / 2, kFall, kCupColumn});
  }
  if (GetsStirrer(boards, drink)) {
    plan.runs.push_back({plan.length - kFall, plan.length, kStirrerRelease});
  }
  for (const int output : {kBayLight, kPanelLight, kFlapLock}) {
    plan.runs.push_back({Time(0), plan.length, output});
  }
  return plan;
}

Plan PartPlan(const Boards& boards, const Serving& part) {
  const auto single = std::ranges::find(kSingleParts, part.part, &SinglePart::code);
  if (single == std::end(kSingleParts)) {
    return {};
  }
  const Time length = Tenths(boards[1], single->time + part.index);
  Plan plan{.length = length, .runs = {}};
  for (const int output : {single->motor, single->mixer, int{kBayLight}, int{kPanelLight}, int{kFlapLock}}) {
    if (output >= 0) {
      plan.runs.push_back({Time(0), length, output});
    }
  }
  return plan;
}

Plan WashPlan(const Boards& boards) {
  const Time length = boards[1].Get(kRinseWater) * kWaterPulse;
  Plan plan{.length = length, .runs = {}};
  for (const int output : {kRinseValve, kPumpOutput, kMilkMixer, kChocolateMixer}) {
    plan.runs.push_back({Time(0), length, output});
  }
  return plan;
}

bool GetsStirrer(const Boards& boards, const Serving& drink) {
  if (!drink.cup) {
    return false;
  }
  const Board& unit = boards[1];
  const bool powder = std::ranges::any_of(kParts, [&](const Part& part) {
    return drink.powders && unit.Get(part.water + drink.index) > 0 &&
           std::ranges::any_of(part.powders, [&](const Powder& one) {
             return one.time != 0 && unit.Get(one.time + drink.index) > 0;
           });
  });
  return drink.sugar || Option(unit, kCupOptions, kStirrersAlways) ||
         (powder && Option(unit, kCupOptions, kStirrersForPowders));
}

std::uint32_t WaterOf(const Board& board, int selection) {
  std::uint32_t water = 0;
  for (const Part& part : kParts) {
    water += board.Get(part.water + selection);
  }
  return water;
}

}  // namespace machine
