// SPDX-License-Identifier: GPL-3.0-or-later
// A record of the main board by which the machine opens and closes a group of controls.
#pragma once

#include "fields/machine_records.h"

namespace dosmara {

// Its last three members say what an arrival does while the form is loading. Afterwards every change is
// stored and followed.
struct Gate {
  // Which arrivals count among those after which the form opens.
  enum class Counted { kEach, kChange, kNone };

  int record = 0;
  int mask = 255;      // the part of the value that is stored and compared
  int presence = 255;  // last value stored
  bool stored = true;
  Counted counted = Counted::kEach;
  bool followed = false;  // a change runs the form's rule at once

  bool IsOpen() const { return (presence & kInUse) != 0; }
  // Whether an arrival counts that differs from the stored value, or does not.
  bool Counts(bool differs) const {
    return counted == Counted::kEach || (differs && counted == Counted::kChange);
  }
};

}  // namespace dosmara
