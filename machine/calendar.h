// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's clock chip. Records 320 to 324 of node 0 run: minute, hour, day, month, year less 2000. A
// write to 326 to 330 (hour, minute, day, month, year) sets the one field that it names, if it is in range.
// Bit value 4 of record 317 says that the chip is fitted; without it the records stand still.
//
// A day that its month does not have is held until midnight and then gives way to the first of the next
// month, so that a date can be set field by field in any order.
#pragma once

#include "machine/board.h"
#include "machine/concern.h"

namespace machine {

class Calendar : public Concern {
 public:
  explicit Calendar(Boards& boards) : boards_(boards) {}

  void OnWrite(int node, int record) override;
  void OnSet(int node, int record) override { OnWrite(node, record); }
  void OnSecond() override;

  bool fitted() const;
  void SetFitted(bool fitted);
  // Minutes since midnight.
  int minute_of_day() const;
  // Seconds since midnight.
  int second_of_day() const { return minute_of_day() * 60 + second_; }

 private:
  // Adds one to a field that runs from `first` to `last`. True when it begins anew.
  bool Step(int record, std::uint32_t first, std::uint32_t last);
  std::uint32_t DaysOfMonth() const;

  Boards& boards_;
  int second_ = 0;
};

}  // namespace machine
