// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/arrival_map.h"

#include <algorithm>

namespace dosmara {

void ArrivalMap::Set(int node, int index, int slot) {
  std::vector<std::uint16_t>& slots = slots_[node];
  const auto position = static_cast<std::size_t>(index);
  slots.resize(std::max(slots.size(), position + 1), kForeign);
  slots[position] = static_cast<std::uint16_t>(slot);
}

void ArrivalMap::Clear() {
  for (std::vector<std::uint16_t>& slots : slots_) {
    slots.clear();
  }
}

}  // namespace dosmara
