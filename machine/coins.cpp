// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/coins.h"

#include <algorithm>
#include <vector>

namespace machine {
namespace {

constexpr std::uint32_t kUnreachable = UINT32_MAX;

// More than a customer has in the pocket.
constexpr std::uint32_t kLargestSum = 1000000;

}  // namespace

// Works out, for each sum from 1 up, the fewest coins that make it and the channel of the last of them. The
// coins of a sum are that last one and those of the rest.
std::optional<Coins> CoinsFor(std::uint32_t amount, bool at_least, const Coins& values) {
  const std::uint32_t largest = *std::ranges::max_element(values);
  if (largest == 0 || amount > kLargestSum) {
    return std::nullopt;
  }
  const std::uint32_t end = amount + (at_least ? largest : 0);
  std::vector<std::uint32_t> fewest(end + 1, kUnreachable);
  std::vector<std::uint8_t> last(end + 1, 0);
  fewest[0] = 0;
  for (std::uint32_t sum = 1; sum <= end; ++sum) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i] == 0 || values[i] > sum || fewest[sum - values[i]] == kUnreachable) {
        continue;
      }
      if (fewest[sum - values[i]] + 1 >= fewest[sum]) {
        continue;
      }
      fewest[sum] = fewest[sum - values[i]] + 1;
      last[sum] = static_cast<std::uint8_t>(i);
    }
  }
  std::uint32_t sum = amount;
  while (sum < end && fewest[sum] == kUnreachable) {
    ++sum;
  }
  if (fewest[sum] == kUnreachable) {
    return std::nullopt;
  }
  Coins coins{};
  for (; sum > 0; sum -= values[last[sum]]) {
    ++coins[last[sum]];
  }
  return coins;
}

}  // namespace machine
