// SPDX-License-Identifier: GPL-3.0-or-later
// Test vends and how the machine's counters and money totals are cleared: a 1 in record 314 of node 0 clears
// what may be cleared at every visit, an 8 clears the life totals as well. Nothing is cleared while the
// machine dispenses. The flows of the MDB system, 339 to 344, are cleared by writing zeroes to them and not
// here.
#pragma once

#include "machine/concern.h"
#include "machine/dispenser.h"
#include "machine/presence.h"

namespace machine {

class Audit : public Concern {
 public:
  Audit(Boards& boards, const Presence& presence, const Dispenser& dispenser)
      : boards_(boards), presence_(presence), dispenser_(dispenser) {}

  void OnWrite(int node, int record) override;
  void OnServed(const Serving& serving) override;

 private:
  Boards& boards_;
  const Presence& presence_;
  const Dispenser& dispenser_;
};

}  // namespace machine
