// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/settings.h"

namespace machine {
namespace {

constexpr int kDecimalsWanted = 76;
constexpr int kDecimalsInUse = 311;
constexpr std::uint32_t kDecimals = 3;

}  // namespace

void Settings::OnWrite(int node, int record) {
  if (node != 0 || record != kDecimalsWanted) {
    return;
  }
  const std::uint32_t others = boards_[0].Get(kDecimalsInUse) & ~kDecimals;
  boards_[0].Set(kDecimalsInUse, others | (boards_[0].Get(kDecimalsWanted) & kDecimals));
}

}  // namespace machine
