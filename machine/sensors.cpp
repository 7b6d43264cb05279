// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/sensors.h"

#include <utility>

#include "machine/drinks_outputs.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

constexpr int kInputs = 544;
constexpr std::uint32_t kDoserSwitch = 2;
constexpr std::uint32_t kFlowMeter = 128;

constexpr int kOutputCommand = 535;

// Seven water counts: slow enough to be seen, and no multiple of the 40 ms at which a tool asks.
constexpr Time kHalfPulse = 175ms;

}  // namespace

Sensors::Sensors(Boards& boards, Schedule& schedule, const Defects& defects)
    : boards_(boards), schedule_(schedule), defects_(defects) {
  OnRestart();
}

void Sensors::Follow() {
  const bool grinding = OutputOn(boards_[1], kGrinder);
  if (std::exchange(grinding_, grinding) != grinding) {
    SetBits(boards_[1], kInputs, kDoserSwitch, !grinding);
  }
  if (!pulsing_ && WaterFlows()) {
    pulsing_ = true;
    Pulse();
  }
}

void Sensors::OnWrite(int node, int record) {
  if (node == 1 && record == kOutputCommand) {
    Follow();
  }
}

void Sensors::OnRestart() {
  grinding_ = pulsing_ = high_ = false;
  SetBits(boards_[1], kInputs, kDoserSwitch | kFlowMeter, true);
}

bool Sensors::WaterFlows() const {
  return OutputOn(boards_[1], kPumpOutput) && !defects_.Broken("pump") && !defects_.Broken("flow-meter");
}

void Sensors::Pulse() {
  pulsing_ = WaterFlows();
  high_ = pulsing_ && !high_;
  SetBits(boards_[1], kInputs, kFlowMeter, !high_);
  if (pulsing_) {
    schedule_.In(kHalfPulse, [this] { Pulse(); });
  }
}

}  // namespace machine
