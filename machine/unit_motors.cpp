// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/unit_motors.h"

#include <algorithm>
#include <string>
#include <utility>

#include "machine/main_board_records.h"
#include "machine/output_test.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

constexpr int kTimeout = 58;

// How long all drawers take, one behind the other.
constexpr Time kWayToZero = 8s;

}  // namespace

void UnitMotors::OnWrite(int node, int record) {
  if (node < 2 || record != kUnitCommandRecord) {
    return;
  }
  if (boards_[static_cast<std::size_t>(node)].Get(record) != kZeroCommand || UnitAt(node).running) {
    return;
  }
  if (dispenser_.TurnsSpiral(node)) {
    UnitAt(node).wanted = true;
    remarks_.Waits("motors of node " + std::to_string(node) + " to zero", "a product comes");
  } else {
    Start(node);
  }
}

void UnitMotors::OnFailed(const Serving& serving) {
  if (serving.kind != Serving::Kind::kProduct) {
    return;
  }
  if (std::exchange(UnitAt(serving.node).wanted, false)) {
    Start(serving.node);
  }
}

void UnitMotors::OnRestart() {
  units_ = {};
  for (const std::size_t node : {2, 3}) {
    SetBits(boards_[node], kUnitStatusRecord, kMotorsBit, false);
  }
}

void UnitMotors::Start(int node) {
  Board& unit = boards_[static_cast<std::size_t>(node)];
  UnitAt(node).running = true;
  SetBits(unit, kUnitStatusRecord, kMotorsBit, true);
  unit.Set(kRowRecord, unit.Get(kRowRecord) & kCompressorOutput);
  unit.Set(kColumnRecord, 0);
  const bool broken = defects_.Broken("motor-" + std::to_string(node));
  const Time tries = broken ? unit.Get(kTimeout) * Time(100ms) : Time(0);
  schedule_.In(std::max(tries, kWayToZero), [=, this] { Stop(node, broken); });
}

void UnitMotors::Stop(int node, bool broken) {
  UnitAt(node).running = false;
  SetBits(boards_[static_cast<std::size_t>(node)], kUnitStatusRecord, kMotorsBit, false);
  if (broken) {
    alarms_.Raise(OfUnit(Alarm::kUnitMotor, node));
  }
}

}  // namespace machine
