// SPDX-License-Identifier: GPL-3.0-or-later
// Records of node 0 by which the main board is commanded and tells what goes on.
#pragma once

#include <cstdint>

#include "machine/board.h"

namespace machine {

// A write to the first is a command; what it works on is written before, into the two behind it.
inline constexpr int kCommandRecord = 314;
inline constexpr std::uint32_t kClear = 1;
inline constexpr std::uint32_t kClearAll = 8;
inline constexpr int kSelectionRecord = 315;
inline constexpr int kPartRecord = 316;
inline constexpr int kStatusRecord = 317;
inline constexpr std::uint32_t kDispensingBit = 2;
inline constexpr std::uint32_t kClockBit = 4;
inline constexpr std::uint32_t kEightLanguagesBit = 8;

// Sets or clears bits of a record and leaves the others alone.
inline void SetBits(Board& board, int record, std::uint32_t mask, bool on) {
  const std::uint32_t value = board.Get(record);
  board.Set(record, on ? value | mask : value & ~mask);
}

}  // namespace machine
