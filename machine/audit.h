// SPDX-License-Identifier: GPL-3.0-or-later
// Counts test vends, and clears the counters and money totals of the machine: a 1 in record 314 of node 0
// clears what may be cleared at every visit, an 8 clears the life totals as well. While something is handed
// out the command waits for its end and clears what that has counted as well. A board that is absent keeps
// its counters. The flows of the MDB system, 339 to 344, are cleared by writing zeroes to them and not here.
#pragma once

#include "machine/concern.h"
#include "machine/dispenser.h"
#include "machine/presence.h"

namespace machine {

class Audit : public Concern {
 public:
  Audit(Boards& boards, const Presence& presence, const Dispenser& dispenser, Remarks& remarks)
      : boards_(boards), presence_(presence), dispenser_(dispenser), remarks_(remarks) {}

  void OnWrite(int node, int record) override;
  void OnServed(const Serving& serving) override;
  void OnFailed(const Serving&) override { ClearIfWanted(); }
  void OnRestart() override { ClearIfWanted(); }

 private:
  void ClearIfWanted();

  Boards& boards_;
  const Presence& presence_;
  const Dispenser& dispenser_;
  Remarks& remarks_;
  bool clear_ = false;
  bool clear_all_ = false;
};

}  // namespace machine
