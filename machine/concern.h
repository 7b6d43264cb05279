// SPDX-License-Identifier: GPL-3.0-or-later
// One thing that the machine does on its own, beside holding values: dispensing, clearing counters, and so
// on. Each has a file of its own and works on the records, as the software of the boards would.
#pragma once

#include "machine/serving.h"

namespace machine {

class Concern {
 public:
  virtual ~Concern() = default;

  // A frame has just written a record; its board holds the new value already.
  virtual void OnWrite(int node, int record);
  // The operator of the simulation has changed a record by hand.
  virtual void OnSet(int node, int record);
  // A second of the machine's day has passed.
  virtual void OnSecond();
  // Something has been handed out to its end.
  virtual void OnServed(const Serving& serving);
  // Something has not been handed out to its end: a part has failed.
  virtual void OnFailed(const Serving& serving);
  // The machine has been switched off and on: whatever ran has stopped, and nothing waits in the schedule.
  virtual void OnRestart();
};

// What most concerns have to do about most events.
inline void Concern::OnWrite(int, int) {}
inline void Concern::OnSet(int, int) {}
inline void Concern::OnSecond() {}
inline void Concern::OnServed(const Serving&) {}
inline void Concern::OnFailed(const Serving&) {}
inline void Concern::OnRestart() {}

}  // namespace machine
