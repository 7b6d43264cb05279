// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine is going to do, in order of time.
#pragma once

#include <functional>
#include <map>
#include <optional>

#include "machine/clock.h"

namespace machine {

// A clock and the actions that wait for it. Actions of one moment run in the order in which they were added.
class Schedule {
 public:
  Time now() const { return now_; }

  // Runs `action` at `when`; a moment that has passed counts as now.
  void At(Time when, std::function<void()> action);
  // Runs `action` when `delay` has passed.
  void In(Time delay, std::function<void()> action) { At(now_ + delay, std::move(action)); }

  // Moves the clock to `when`, stopping at each action on the way. The clock never runs backward.
  void AdvanceTo(Time when);

  // The moment of the next action.
  std::optional<Time> next() const;

  // Forgets all actions that wait.
  void Clear() { waiting_.clear(); }

 private:
  Time now_{0};
  std::multimap<Time, std::function<void()>> waiting_;
};

}  // namespace machine
