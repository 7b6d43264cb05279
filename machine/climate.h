// SPDX-License-Identifier: GPL-3.0-or-later
// The boiler of the hot drinks unit and the cooled tanks of the units at nodes 2 and 3.
//
// Boiler, node 1: record 24 is the temperature wanted, 542 the one measured, in degrees. The heater is an
// output in 547. Drinks take warmth out of it.
//
// Tank, nodes 2 and 3: 51 is the temperature wanted (16 is off), 53 the hysteresis in tenths, 54 and 55 the
// band and the minutes until an alarm, 56 and 57 the hours between defrosts and the minutes that one
// takes, 52 the offset of the probe plus 5. 287 is the raw temperature in 1/256 of a degree, a negative one
// as its complement; what the unit goes by, and the tool shows, is raw plus offset. The compressor is bit 7
// of 288.
//
// In test mode the tool alone switches heater and compressors; they warm and cool all the same.
#pragma once

#include <array>

#include "machine/alarms.h"
#include "machine/concern.h"
#include "machine/defects.h"

namespace machine {

class Climate : public Concern {
 public:
  Climate(Boards& boards, const Defects& defects, Alarms& alarms);

  void OnSecond() override;
  void OnSet(int node, int record) override;
  void OnServed(const Serving& serving) override;

 private:
  struct Tank {
    double raw = 0;      // degrees at the probe
    int running = 0;     // seconds since the last defrost
    int defrosting = 0;  // seconds left of the present defrost
    int warm = 0;        // seconds above the band
  };

  void StepBoiler();
  void StepTank(int node);
  bool CompressorWanted(int node, double temperature) const;
  void WatchTank(int node, double temperature);
  Tank& TankOf(int node) { return tanks_[static_cast<std::size_t>(node) - 2]; }

  Boards& boards_;
  const Defects& defects_;
  Alarms& alarms_;
  double boiler_ = 0;
  bool was_hot_ = false;
  bool too_hot_ = false;
  std::array<Tank, 2> tanks_{};
};

}  // namespace machine
