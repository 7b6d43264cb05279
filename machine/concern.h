// SPDX-License-Identifier: GPL-3.0-or-later
// One thing that the machine does on its own, beside holding values: dispensing, clearing counters, and so
// on. Each has a file of its own and works on the records, as the software of the boards would.
#pragma once

namespace machine {

class Concern {
 public:
  virtual ~Concern() = default;

  // A frame has just written a record; its board holds the new value already.
  virtual void OnWrite(int node, int record) = 0;
  // The machine has been switched off and on: whatever ran has stopped, and nothing waits in the schedule.
  virtual void OnRestart() = 0;
};

}  // namespace machine
