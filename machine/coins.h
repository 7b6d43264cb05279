// SPDX-License-Identifier: GPL-3.0-or-later
// Which coins a customer puts in.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace machine {

inline constexpr int kCoinChannels = 8;

// By channel: how many coins, or the value of one; 0 for a channel that takes none.
using Coins = std::array<std::uint32_t, kCoinChannels>;

// The fewest coins that make `amount`, or, with `at_least`, the smallest sum from `amount` up that coins
// make. Nothing when no coins do, or when the sum is larger than any customer carries.
std::optional<Coins> CoinsFor(std::uint32_t amount, bool at_least, const Coins& values);

}  // namespace machine
