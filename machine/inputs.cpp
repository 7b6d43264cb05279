// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/inputs.h"

#include <algorithm>

#include "machine/main_board_records.h"

namespace machine {
namespace {

enum Input : std::size_t {
  kDoorClosed,
  kCoinMechanism,
  kBrewerAtRest,
  kCupsPresent,
  kCupInPosition,
  kWaterLevel,
  kGroundsFull,
  kTrayFull,
  kBoilerHot,
};

// First the inputs whose cause is known here, in the order of Input; behind them those that other concerns or
// the operator alone move.
struct Place {
  std::string_view name;
  int node;
  int record;
  std::uint32_t mask;
  bool active_low;
};
constexpr Place kPlaces[] = {
    {"door-closed", 0, 318, 2, true},     {"coin-mechanism", 0, 318, 16, true},
    {"brewer-at-rest", 1, 544, 1, true},  {"cups", 1, 544, 4, true},
    {"cup-in-position", 1, 544, 8, true}, {"water", 1, 544, 16, true},
    {"grounds-full", 1, 544, 32, true},   {"tray-full", 1, 544, 64, true},
    {"boiler-hot", 1, 546, 1, false},     {"program-key", 0, 318, 8, true},
    {"return-lever", 0, 318, 32, true},   {"token", 0, 318, 64, true},
    {"doser", 1, 544, 2, true},           {"flow-meter", 1, 544, 128, true},
    {"water-fill", 1, 545, 2, true},      {"spare", 1, 545, 4, true},
};

void Show(Boards& boards, const Place& place, bool on) {
  SetBits(boards[static_cast<std::size_t>(place.node)], place.record, place.mask, on != place.active_low);
}

constexpr int kWantedTemperature = 24;
constexpr int kTemperature = 542;
constexpr std::uint32_t kHotBand = 5;

}  // namespace

Inputs::Inputs(Boards& boards, const Supplies& supplies, const Defects& defects, const Dispenser& dispenser,
               Alarms& alarms)
    : boards_(boards), supplies_(supplies), defects_(defects), dispenser_(dispenser), alarms_(alarms) {
  OnSecond();
}

void Inputs::OnSecond() {
  for (std::size_t i = 0; i < known_.size(); ++i) {
    const bool on = Cause(i);
    if (known_[i] == on) {
      continue;
    }
    known_[i] = on;
    Show(boards_, kPlaces[i], on);
  }
}

void Inputs::SetDoorOpen(bool open) {
  if (open && !door_open_) {
    alarms_.Raise(Alarm::kDoorOpen);
  }
  door_open_ = open;
  OnSecond();
}

bool Inputs::SetByHand(std::string_view name, bool on) {
  const auto place = std::ranges::find(kPlaces, name, &Place::name);
  if (place == std::end(kPlaces)) {
    return false;
  }
  Show(boards_, *place, on);
  return true;
}

std::string Inputs::Names() {
  std::string names;
  for (const Place& place : kPlaces) {
    names += (names.empty() ? "" : " ") + std::string(place.name);
  }
  return names;
}

bool Inputs::Cause(std::size_t input) const {
  const Board& unit = boards_[1];
  switch (input) {
    case kDoorClosed:
      return !door_open_;
    case kCoinMechanism:
      return !defects_.Broken("coin-mechanism");
    case kBrewerAtRest:
      return !dispenser_.brewing();
    case kCupsPresent:
      return supplies_.Has(Supply::kCups);
    case kCupInPosition:
      return dispenser_.brewing();
    case kWaterLevel:
      return supplies_.Has(Supply::kWater);
    case kGroundsFull:
      return !supplies_.Has(Supply::kGrounds);
    case kTrayFull:
      return !supplies_.Has(Supply::kTray);
    default:
      return unit.Get(kTemperature) + kHotBand >= unit.Get(kWantedTemperature);
  }
}

}  // namespace machine
