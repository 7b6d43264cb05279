// SPDX-License-Identifier: GPL-3.0-or-later
// Which boards are there. A board that is absent says nothing on the wire, and its record on node 0 (312 for
// node 1, 313 for node 2, 357 for node 3) has bit value 4 clear. The same bit also closes a board that is
// there: it still answers, keeps its temperatures and takes settings and tests of its outputs, but hands
// nothing out.
#pragma once

#include <array>

#include "machine/board.h"

namespace machine {

class Presence {
 public:
  // All boards are there, and open.
  explicit Presence(Boards& boards);

  // Takes a board of nodes 1 to 3 away, or puts it back.
  void SetPresent(int node, bool present);
  // False for a board whose bit on node 0 has been cleared by hand. Node 0 is always open.
  bool IsOpen(int node) const;
  // Node 0 is always there.
  bool IsPresent(int node) const { return present_[static_cast<std::size_t>(node)]; }

 private:
  Boards& boards_;
  std::array<bool, kNodeCount> present_;
};

}  // namespace machine
