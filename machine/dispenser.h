// SPDX-License-Identifier: GPL-3.0-or-later
// Test dispensing, commanded through node 0.
//
//   314 = 2, 3, 4   a whole drink: complete, without sugar, water only; 315 is the selection, 1 to 22
//   314 = 2         with 315 from 39 up: a product from column 315 - 38, row 316 / 16 of the unit whose
//                   letter is in 358
//   314 = 7         one part of a drink: 315 is the selection, 0 to 21, and 316 the part
//
// Bit value 2 of record 317 is set while it lasts. A command is refused, without a sign, while another is
// carried out, for a selection, part or unit that is not there, and when there is nothing to dispense.
#pragma once

#include <optional>

#include "machine/concern.h"
#include "machine/presence.h"
#include "machine/schedule.h"

namespace machine {

class Dispenser : public Concern {
 public:
  Dispenser(Boards& boards, const Presence& presence, Schedule& schedule)
      : boards_(boards), presence_(presence), schedule_(schedule) {}

  void OnWrite(int node, int record) override;
  void OnRestart() override;

  // True from the moment a command is taken until its end.
  bool busy() const { return busy_; }

 private:
  std::optional<Time> DurationOfCommand() const;
  Time DrinkTime(std::uint32_t selection, bool with_powders, bool with_sugar) const;
  std::optional<Time> PartTime(std::uint32_t selection) const;
  std::optional<Time> ProductTime() const;
  Time Tenths(int record) const;

  Boards& boards_;
  const Presence& presence_;
  Schedule& schedule_;
  bool busy_ = false;
};

}  // namespace machine
