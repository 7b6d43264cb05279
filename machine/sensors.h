// SPDX-License-Identifier: GPL-3.0-or-later
// Inputs of the drinks unit that follow its outputs, whether a drink or the tool drives them: the flow meter,
// bit 7 of 544, pulses while the pump runs, and the doser's switch, bit 1, is closed while the grinder runs.
// Both are active low.
#pragma once

#include "machine/concern.h"
#include "machine/defects.h"
#include "machine/schedule.h"

namespace machine {

class Sensors : public Concern {
 public:
  Sensors(Boards& boards, Schedule& schedule, const Defects& defects);

  // The outputs have changed.
  void Follow();

  void OnWrite(int node, int record) override;
  // A pump or meter that has been mended meanwhile goes on.
  void OnSecond() override { Follow(); }
  void OnRestart() override;

 private:
  bool WaterFlows() const;
  void Pulse();

  Boards& boards_;
  Schedule& schedule_;
  const Defects& defects_;
  bool grinding_ = false;
  bool pulsing_ = false;
  bool high_ = false;
};

}  // namespace machine
