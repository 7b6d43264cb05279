// SPDX-License-Identifier: GPL-3.0-or-later
// Parts of the machine that are broken, by the operator's hand. Some tell at once, by an alarm; some make the
// serving that needs them run into its time-out; some are noticed by the temperature that they cause.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "machine/alarms.h"
#include "machine/board.h"
#include "machine/clock.h"

namespace machine {

class Defects {
 public:
  Defects(Boards& boards, Alarms& alarms) : boards_(boards), alarms_(alarms) {}

  // Breaks a part, with its alarm if that comes at once. False for a part that the machine does not have.
  bool Break(std::string_view part);
  // Mends a part. False for a part that the machine does not have.
  bool Mend(std::string_view part);
  bool Broken(std::string_view part) const { return broken_.contains(part); }

  // How a serving ends that needs a broken part.
  struct Failure {
    Time timeout;
    Alarm alarm;
    int output;  // output of the drinks unit that runs until the time-out; -1 for none
  };
  std::optional<Failure> FailureOf(const Serving& serving) const;

  // The names of all parts that can break, parted by blanks.
  static std::string Names();

 private:
  Boards& boards_;
  Alarms& alarms_;
  std::set<std::string, std::less<>> broken_;
};

}  // namespace machine
