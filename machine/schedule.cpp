// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/schedule.h"

#include <algorithm>
#include <utility>

namespace machine {

void Schedule::At(Time when, std::function<void()> action) {
  waiting_.emplace(std::max(when, now_), std::move(action));
}

void Schedule::AdvanceTo(Time when) {
  while (!waiting_.empty() && waiting_.begin()->first <= when) {
    auto node = waiting_.extract(waiting_.begin());
    now_ = node.key();
    node.mapped()();
  }
  now_ = std::max(now_, when);
}

std::optional<Time> Schedule::next() const {
  if (waiting_.empty()) {
    return std::nullopt;
  }
  return waiting_.begin()->first;
}

}  // namespace machine
