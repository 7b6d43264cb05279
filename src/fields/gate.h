// SPDX-License-Identifier: GPL-3.0-or-later
// A record of the main board by which the machine opens and closes a group of controls.
#pragma once

#include "fields/machine_records.h"

namespace dosmara {

struct Gate {
  // What an arrival does while the form is loading. Afterwards a change is stored and followed by all.
  enum class WhileLoading {
    kStored,              // it is stored and counts
    kIgnored,             // it counts, and is not even looked at
    kCountsChanges,       // it is stored, and counts when it differs
    kFollowed,            // a change is followed at once, and nothing counts
    kFollowedAndCounted,  // a change is followed at once and counts
  };

  int record = 0;
  int mask = 255;      // the part of the value that is stored and compared
  int presence = 255;  // last value stored
  WhileLoading while_loading = WhileLoading::kStored;

  bool Open() const { return (presence & kInUse) != 0; }
};

}  // namespace dosmara
