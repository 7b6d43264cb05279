// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/defects.h"

#include <algorithm>
#include <array>

#include "machine/recipe.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

// When a broken part shows.
enum class Shows {
  kAtOnce,    // its alarm comes as it breaks
  kInDrink,   // any drink, and a wash, runs into its time-out
  kInCoffee,  // any drink with coffee does
  kInUnit,    // any product of its unit does
  kByHeat,    // an alarm comes once the temperature has gone wrong, see climate.h
};

struct Part {
  std::string_view name;
  Shows shows;
  Alarm alarm;
  int node = 0;     // the board that holds the time-out
  int timeout = 0;  // the record of the time-out
  Time unit{};      // what that record counts in
  int output = -1;  // output of the drinks unit that runs until the time-out; -1 for none
};
constexpr Part kParts[] = {
    {"pump", Shows::kInDrink, Alarm::kPumpTimeout, 1, 32, 1s, kPumpOutput},
    {"flow-meter", Shows::kInDrink, Alarm::kFlowMeter, 1, 32, 1s, kPumpOutput},
    {"grinder", Shows::kInCoffee, Alarm::kGrinderTimeout, 1, 30, 100ms, kGrinder},
    {"brewer", Shows::kInCoffee, Alarm::kBrewerTimeout, 1, 31, 100ms, kBrewer},
    {"motor-2", Shows::kInUnit, Alarm::kUnitMotor, 2, 58, 100ms},
    {"motor-3", Shows::kInUnit, OfUnit(Alarm::kUnitMotor, 3), 3, 58, 100ms},
    {"inlet", Shows::kAtOnce, Alarm::kFillTimeout},
    {"probe", Shows::kAtOnce, Alarm::kBoilerProbe},
    {"coin-mechanism", Shows::kAtOnce, Alarm::kCoinMechanism},
    {"bill-validator", Shows::kAtOnce, Alarm::kBillValidator},
    {"clock", Shows::kAtOnce, Alarm::kClock},
    {"memory", Shows::kAtOnce, Alarm::kMemory},
    {"heater", Shows::kByHeat, Alarm::kBoilerCold},
    {"thermostat", Shows::kByHeat, Alarm::kBoilerHot},
    {"compressor-2", Shows::kByHeat, Alarm::kUnitWarm},
    {"compressor-3", Shows::kByHeat, OfUnit(Alarm::kUnitWarm, 3)},
};

bool Hits(const Part& part, const Serving& serving, const Board& drinks_unit) {
  const bool drink = serving.kind == Serving::Kind::kDrink;
  switch (part.shows) {
    case Shows::kInDrink:
      return drink || serving.kind == Serving::Kind::kWash;
    case Shows::kInCoffee:
      return drink && serving.powders && drinks_unit.Get(kCoffeeWater + serving.index) > 0;
    case Shows::kInUnit:
      return serving.kind == Serving::Kind::kProduct && serving.node == part.node;
    default:
      return false;
  }
}

const Part* FindPart(std::string_view name) {
  const auto part = std::ranges::find(kParts, name, &Part::name);
  return part == std::end(kParts) ? nullptr : part;
}

}  // namespace

bool Defects::Break(std::string_view name) {
  const Part* part = FindPart(name);
  if (part == nullptr) {
    return false;
  }
  if (broken_.emplace(name).second && part->shows == Shows::kAtOnce) {
    alarms_.Raise(part->alarm);
  }
  return true;
}

bool Defects::Mend(std::string_view name) {
  if (FindPart(name) == nullptr) {
    return false;
  }
  if (const auto found = broken_.find(name); found != broken_.end()) {
    broken_.erase(found);
  }
  return true;
}

std::optional<Defects::Failure> Defects::FailureOf(const Serving& serving) const {
  for (const Part& part : kParts) {
    if (!Broken(part.name) || !Hits(part, serving, boards_[1])) {
      continue;
    }
    const std::uint32_t timeout = boards_[static_cast<std::size_t>(part.node)].Get(part.timeout);
    return Failure{timeout * part.unit, part.alarm, part.output};
  }
  return std::nullopt;
}

std::string Defects::Names() {
  std::string names;
  for (const Part& part : kParts) {
    names += (names.empty() ? "" : " ") + std::string(part.name);
  }
  return names;
}

}  // namespace machine
