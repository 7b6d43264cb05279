// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/presence.h"

#include "machine/main_board_records.h"

namespace machine {
namespace {

constexpr std::uint32_t kPresentBit = 4;
constexpr std::array<int, kNodeCount> kGateRecords = {0, 312, 313, 357};

}  // namespace

Presence::Presence(Boards& boards) : boards_(boards) {
  for (int node = 1; node < kNodeCount; ++node) {
    SetPresent(node, true);
  }
  present_[0] = true;
}

void Presence::SetPresent(int node, bool present) {
  const auto index = static_cast<std::size_t>(node);
  present_[index] = present;
  SetBits(boards_[0], kGateRecords[index], kPresentBit, present);
}

bool Presence::IsOpen(int node) const {
  return node == 0 || (boards_[0].Get(kGateRecords[static_cast<std::size_t>(node)]) & kPresentBit) != 0;
}

}  // namespace machine
