// SPDX-License-Identifier: GPL-3.0-or-later
// The motors of the units at nodes 2 and 3 on their way to zero: a 3 in record 284 starts them, bit value 2
// of record 290 is set until they stand. They run in test mode too, where what the tool has switched on goes
// off. While a product comes they wait for its end; a command that comes while they run starts nothing more.
// A motor that is broken ends it with an alarm: after the unit's motor time-out, record 58, but not before
// the other motors stand.
#pragma once

#include <array>

#include "machine/alarms.h"
#include "machine/concern.h"
#include "machine/dispenser.h"
#include "machine/schedule.h"

namespace machine {

class UnitMotors : public Concern {
 public:
  UnitMotors(Boards& boards, Schedule& schedule, const Dispenser& dispenser, const Defects& defects,
             Alarms& alarms, Remarks& remarks)
      : boards_(boards),
        schedule_(schedule),
        dispenser_(dispenser),
        defects_(defects),
        alarms_(alarms),
        remarks_(remarks) {}

  void OnWrite(int node, int record) override;
  void OnServed(const Serving& serving) override { OnFailed(serving); }
  void OnFailed(const Serving& serving) override;
  void OnRestart() override;

 private:
  struct Unit {
    bool running = false;
    bool wanted = false;
  };

  Unit& UnitAt(int node) { return units_[static_cast<std::size_t>(node) - 2]; }
  void Start(int node);
  void Stop(int node, bool broken);

  Boards& boards_;
  Schedule& schedule_;
  const Dispenser& dispenser_;
  const Defects& defects_;
  Alarms& alarms_;
  Remarks& remarks_;
  std::array<Unit, 2> units_{};
};

}  // namespace machine
