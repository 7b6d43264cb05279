// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/audit.h"

#include <string>
#include <utility>

#include "machine/main_board_records.h"

namespace machine {
namespace {

// Test vends of all kinds, on node 0; the first of each selection, on node 1; of each position, on 2 and 3.
constexpr int kTestVends = 126;
constexpr int kSelectionTests = 126;
constexpr int kPositionTests = 167;

struct Counters {
  int node;
  int first;
  int last;
  bool for_life;
};
constexpr Counters kCounters[] = {
    {0, 107, 122, false},  // coins by channel
    {0, 123, 123, true},   // vends
    {0, 124, 126, false},  // vends, free vends, tests
    {0, 127, 127, true},   // takings
    {0, 128, 131, false},  // takings, discounts, overpay, jugs
    {0, 332, 332, true},   // overpay
    {0, 336, 338, false},  // preselections
    {1, 60, 147, false},   // paid, free, jug and test vends by selection
    {2, 71, 214, false},   // paid, free and test vends by position
    {3, 71, 214, false},
};

}  // namespace

void Audit::OnWrite(int node, int record) {
  if (node != 0 || record != kCommandRecord) {
    return;
  }
  const std::uint32_t command = boards_[0].Get(kCommandRecord);
  if (command != kClear && command != kClearAll) {
    return;
  }
  clear_ = true;
  clear_all_ |= command == kClearAll;
  if (dispenser_.busy()) {
    remarks_.Waits("clear command " + std::to_string(command), "the machine is dispensing");
  } else {
    ClearIfWanted();
  }
}

void Audit::ClearIfWanted() {
  const bool all = std::exchange(clear_all_, false);
  if (!std::exchange(clear_, false)) {
    return;
  }
  for (const Counters& counters : kCounters) {
    if ((counters.for_life && !all) || !presence_.IsPresent(counters.node)) {
      continue;
    }
    for (int n = counters.first; n <= counters.last; ++n) {
      boards_[static_cast<std::size_t>(counters.node)].Set(n, 0);
    }
  }
}

// A part on its own is no vend, nor is a wash.
void Audit::OnServed(const Serving& serving) {
  const bool vend = serving.kind == Serving::Kind::kDrink || serving.kind == Serving::Kind::kProduct;
  if (vend && !serving.sale) {
    boards_[0].Add(kTestVends, 1);
    const int first = serving.node == 1 ? kSelectionTests : kPositionTests;
    boards_[static_cast<std::size_t>(serving.node)].Add(first + serving.index, 1);
  }
  ClearIfWanted();
}

}  // namespace machine
