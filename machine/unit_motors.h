// SPDX-License-Identifier: GPL-3.0-or-later
// The motors of the units at nodes 2 and 3 on their way to zero: a 3 in record 284 starts them, bit value 2
// of record 290 is set until they stand. Refused in test mode and while they run.
#pragma once

#include "machine/board.h"
#include "machine/concern.h"
#include "machine/schedule.h"

namespace machine {

class UnitMotors : public Concern {
 public:
  UnitMotors(Boards& boards, Schedule& schedule) : boards_(boards), schedule_(schedule) {}

  void OnWrite(int node, int record) override;
  void OnRestart() override;

 private:
  Boards& boards_;
  Schedule& schedule_;
};

}  // namespace machine
