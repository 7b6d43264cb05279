// SPDX-License-Identifier: GPL-3.0-or-later
// One direction of the serial line: characters follow each other, none begins before the last has ended.
#pragma once

#include <algorithm>

#include "machine/clock.h"

namespace machine {

class Wire {
 public:
  // Puts one more character on the wire, not before `earliest`. Returns the moment at which it ends.
  Time Carry(Time earliest) {
    free_at_ = std::max(earliest, free_at_) + kCharTime;
    return free_at_;
  }

  // The moment from which nothing is on the wire.
  Time free_at() const { return free_at_; }

 private:
  Time free_at_{0};
};

}  // namespace machine
