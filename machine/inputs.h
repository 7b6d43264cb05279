// SPDX-License-Identifier: GPL-3.0-or-later
// The inputs of the boards, as they follow from what the machine is and does. Most are active low. An input
// is written when its cause changes, so that a value set by hand stays until then.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "machine/concern.h"
#include "machine/defects.h"
#include "machine/dispenser.h"
#include "machine/supplies.h"

namespace machine {

class Inputs : public Concern {
 public:
  Inputs(Boards& boards, const Supplies& supplies, const Defects& defects, const Dispenser& dispenser,
         Alarms& alarms);

  void OnSecond() override;

  // Opens or closes the door; opening it raises an alarm.
  void SetDoorOpen(bool open);
  // Puts an input on or off until its cause changes; some have none and stay. False for one that is not
  // there.
  bool SetByHand(std::string_view name, bool on);
  // The names of all inputs, parted by blanks.
  static std::string Names();
  bool door_open() const { return door_open_; }

 private:
  bool Cause(std::size_t input) const;

  Boards& boards_;
  const Supplies& supplies_;
  const Defects& defects_;
  const Dispenser& dispenser_;
  Alarms& alarms_;
  bool door_open_ = false;
  std::array<std::optional<bool>, 9> known_{};
};

}  // namespace machine
