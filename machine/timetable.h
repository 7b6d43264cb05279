// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine does by the time of the day, records of node 0, each a minute and behind it the hour:
//
//   switched on   from 87 to 91 and from 89 to 93; outside of both nothing is sold
//   washes        at 95 and at 97 if bit value 32 of record 84 is set; record 585 of node 1 is their water
//   discounts     from 99 to 103 and from 101 to 105, see tariff.h
//
// A band that ends before it begins is none, and a machine with no band at all is always on. Without a clock
// chip it is always on too, and neither washes nor gives discounts. A wash waits for the end of what is
// handed out.
#pragma once

#include "machine/calendar.h"
#include "machine/concern.h"
#include "machine/dispenser.h"
#include "machine/remarks.h"

namespace machine {

// The records of the minutes at which a band begins and ends.
struct Band {
  int start;
  int end;
};

// True within a band of the day, for a machine that has a clock.
bool InBand(const Board& main, const Calendar& calendar, const Band& band);

class Timetable : public Concern {
 public:
  Timetable(Boards& boards, const Calendar& calendar, Dispenser& dispenser, Remarks& remarks)
      : boards_(boards), calendar_(calendar), dispenser_(dispenser), remarks_(remarks) {}

  // True while the machine sells.
  bool SwitchedOn() const;

  void OnSecond() override;
  void OnRestart() override { wash_wanted_ = false; }

 private:
  bool WashDue() const;

  Boards& boards_;
  const Calendar& calendar_;
  Dispenser& dispenser_;
  Remarks& remarks_;
  int minute_ = -1;
  bool wash_wanted_ = false;
};

}  // namespace machine
