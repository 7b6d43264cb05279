// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/unit_motors.h"

#include "machine/main_board_records.h"
#include "machine/output_test.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t kZeroCommand = 3;

// All drawers, one behind the other.
constexpr Time kWayToZero = 3s;

}  // namespace

void UnitMotors::OnWrite(int node, int record) {
  if (node < 2 || record != kUnitCommandRecord) return;
  Board& board = boards_[static_cast<std::size_t>(node)];
  const bool busy = InTestMode(boards_, node) || MotorsRun(boards_, node);
  if (board.Get(record) != kZeroCommand || busy) return;
  SetBits(board, kUnitStatusRecord, kMotorsBit, true);
  schedule_.In(kWayToZero, [&board] { SetBits(board, kUnitStatusRecord, kMotorsBit, false); });
}

void UnitMotors::OnRestart() {
  for (const std::size_t node : {2, 3}) SetBits(boards_[node], kUnitStatusRecord, kMotorsBit, false);
}

}  // namespace machine
