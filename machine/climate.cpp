// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/climate.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "machine/drinks_outputs.h"
#include "machine/output_test.h"
#include "machine/recipe.h"

namespace machine {
namespace {

constexpr double kRoom = 22;

// Degrees a second; losses are shares of the difference to the room.
constexpr double kHeating = 0.3;
constexpr double kBoilerLoss = 0.00015;

// By tank: the second one holds less, so that it cools and warms faster.
constexpr double kCooling[] = {0.006, 0.011};
constexpr double kTankLoss[] = {0.0001, 0.00017};

// Degrees that one count of water takes out of the boiler.
constexpr double kDrawn = 0.02;

constexpr double kBoilerHysteresis = 2;
constexpr double kColdBand = 20;
constexpr double kOverheated = 112;
constexpr double kBoiling = 120;

constexpr int kBoilerWanted = 24;
constexpr int kBoilerRecord = 542;
constexpr int kTankWanted = 51;
constexpr int kOffset = 52;
constexpr int kHysteresis = 53;
constexpr int kSafetyBand = 54;
constexpr int kSafetyMinutes = 55;
constexpr int kDefrostHours = 56;
constexpr int kDefrostMinutes = 57;
constexpr int kRawRecord = 287;
constexpr std::uint32_t kTankOff = 16;

bool CompressorOn(const Board& unit) { return (unit.Get(kRowRecord) & kCompressorOutput) != 0; }

}  // namespace

Climate::Climate(Boards& boards, const Defects& defects, Alarms& alarms)
    : boards_(boards), defects_(defects), alarms_(alarms) {
  for (const auto& [node, record] : {std::pair{1, kBoilerRecord}, {2, kRawRecord}, {3, kRawRecord}}) {
    OnSet(node, record);
  }
}

void Climate::OnSecond() {
  StepBoiler();
  for (const int node : {2, 3}) {
    StepTank(node);
  }
}

// The boiler or tank goes on from a temperature that was set by hand.
void Climate::OnSet(int node, int record) {
  if (node == 1 && record == kBoilerRecord) {
    boiler_ = boards_[1].Get(record);
  }
  if (node < 2 || record != kRawRecord) {
    return;
  }
  const auto raw = static_cast<std::int16_t>(boards_[static_cast<std::size_t>(node)].Get(record));
  TankOf(node).raw = raw / 256.0;
}

void Climate::OnServed(const Serving& serving) {
  if (serving.kind != Serving::Kind::kDrink) {
    return;
  }
  boiler_ = std::max(kRoom, boiler_ - kDrawn * WaterOf(boards_[1], serving.index));
}

void Climate::StepBoiler() {
  Board& board = boards_[1];
  const double wanted = board.Get(kBoilerWanted);
  const bool stuck = defects_.Broken("thermostat");
  if (!InTestMode(boards_, 1)) {
    const bool on = OutputOn(board, kHeaterOutput);
    SetOutput(board, kHeaterOutput,
              stuck || boiler_ <= wanted - kBoilerHysteresis || (on && boiler_ < wanted));
  }
  const bool heating = OutputOn(board, kHeaterOutput) && !defects_.Broken("heater");
  boiler_ += (kRoom - boiler_) * kBoilerLoss + (heating ? kHeating : 0);
  boiler_ = std::min(boiler_, kBoiling);
  board.Set(kBoilerRecord, static_cast<std::uint32_t>(std::max(0L, std::lround(boiler_))));

  if (boiler_ > kOverheated && !too_hot_) {
    alarms_.Raise(Alarm::kBoilerHot);
  }
  too_hot_ = boiler_ > kOverheated;
  if (boiler_ > wanted - kColdBand / 2) {
    was_hot_ = true;
  }
  if (boiler_ < wanted - kColdBand && was_hot_) {
    was_hot_ = false;
    alarms_.Raise(Alarm::kBoilerCold);
  }
}

void Climate::StepTank(int node) {
  Board& board = boards_[static_cast<std::size_t>(node)];
  Tank& tank = TankOf(node);
  const double temperature = tank.raw + static_cast<int>(board.Get(kOffset)) - 5;
  if (tank.defrosting > 0) {
    --tank.defrosting;
  } else if (++tank.running >= static_cast<int>(board.Get(kDefrostHours)) * 3600) {
    tank.running = 0;
    tank.defrosting = static_cast<int>(board.Get(kDefrostMinutes)) * 60;
  }
  if (!InTestMode(boards_, node)) {
    SetBits(board, kRowRecord, kCompressorOutput, CompressorWanted(node, temperature));
  }
  const bool cooling = CompressorOn(board) && !defects_.Broken("compressor-" + std::to_string(node));
  const int which = node - 2;
  tank.raw += (kRoom - tank.raw) * kTankLoss[which] - (cooling ? kCooling[which] : 0);
  WatchTank(node, temperature);
  board.Set(kRawRecord, static_cast<std::uint16_t>(std::lround(tank.raw * 256)));
}

bool Climate::CompressorWanted(int node, double temperature) const {
  const Board& board = boards_[static_cast<std::size_t>(node)];
  const std::uint32_t wanted = board.Get(kTankWanted);
  if (wanted >= kTankOff || tanks_[static_cast<std::size_t>(node) - 2].defrosting > 0) {
    return false;
  }
  const bool on = CompressorOn(board);
  return temperature >= wanted + board.Get(kHysteresis) / 10.0 || (on && temperature > wanted);
}

void Climate::WatchTank(int node, double temperature) {
  const Board& board = boards_[static_cast<std::size_t>(node)];
  Tank& tank = TankOf(node);
  const std::uint32_t wanted = board.Get(kTankWanted);
  if (wanted >= kTankOff || temperature <= wanted + board.Get(kSafetyBand)) {
    tank.warm = 0;
  } else if (++tank.warm == static_cast<int>(board.Get(kSafetyMinutes)) * 60) {
    alarms_.Raise(OfUnit(Alarm::kUnitWarm, node));
  }
}

}  // namespace machine
