// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/arrival_map.h"

#include <algorithm>

namespace dosmara {

void ArrivalMap::Set(int node, int index, int slot) {
  std::vector<std::uint16_t>& table = slots_[node];
  const auto position = static_cast<std::size_t>(index);
  table.resize(std::max(table.size(), position + 1), kForeign);
  table[position] = static_cast<std::uint16_t>(slot);
}

void ArrivalMap::Clear() {
  for (std::vector<std::uint16_t>& table : slots_) {
    table.clear();
  }
}

}  // namespace dosmara
