// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/inputs.h"

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

struct Place {
  int node;
  int record;
  std::uint32_t mask;
  bool active_low;
};
constexpr Place kPlaces[] = {
    {0, 318, 2, true},   // door closed
    {0, 318, 16, true},  // coin mechanism ready
    {1, 544, 1, true},   // brewer at rest
    {1, 544, 4, true},   // cups in the column
    {1, 544, 8, true},   // cup in position
    {1, 544, 16, true},  // water level
    {1, 544, 32, true},  // grounds bin full
    {1, 544, 64, true},  // drip tray full
    {1, 546, 1, false},  // boiler hot
};

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
    if (known_[i] == on) continue;
    known_[i] = on;
    const Place& place = kPlaces[i];
    SetBits(boards_[static_cast<std::size_t>(place.node)], place.record, place.mask, on != place.active_low);
  }
}

void Inputs::SetDoorOpen(bool open) {
  if (open && !door_open_) alarms_.Raise(Alarm::kDoorOpen);
  door_open_ = open;
  OnSecond();
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
