// SPDX-License-Identifier: GPL-3.0-or-later
// Which records a form wants to hear of.
#pragma once

#include <cstdint>
#include <vector>

#include "store/parameter_table.h"

namespace dosmara {

// From node and record index to a slot number of the form. Every arrival is offered to every form, and most
// are foreign to it: one look into a table turns them away.
class ArrivalMap {
 public:
  static constexpr int kForeign = 0;

  // Gives `index` of `node` the slot number `slot`, 1 to 65535, in place of the one it may have.
  void Set(int node, int index, int slot);

  void Clear();

  // The slot of a record, or kForeign.
  int Find(int node, std::int32_t index) const {
    const std::vector<std::uint16_t>& table = slots_[node];
    return static_cast<std::size_t>(index) < table.size() ? table[static_cast<std::size_t>(index)] : kForeign;
  }

 private:
  std::vector<std::uint16_t> slots_[kNodeCount];
};

}  // namespace dosmara
