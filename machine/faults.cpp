// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/faults.h"

#include <algorithm>

namespace machine {
namespace {

// About a quarter of a second of garbage.
constexpr std::size_t kFloodBytes = 500;

}  // namespace

std::optional<Fault> FaultByName(std::string_view name) {
  const auto found = std::find(kFaultNames.begin(), kFaultNames.end(), name);
  if (found == kFaultNames.end()) {
    return std::nullopt;
  }
  return static_cast<Fault>(found - kFaultNames.begin());
}

bool Faults::Strikes(Fault fault) {
  Setting& setting = settings_[Index(fault)];
  if (setting.count > 0) {
    --setting.count;
    return true;
  }
  return setting.rate > 0 && static_cast<double>(random_()) < setting.rate * 4294967296.0;
}

bool Faults::Armed(Fault fault) const {
  const Setting& setting = settings_[Index(fault)];
  return setting.count > 0 || setting.rate > 0;
}

Bytes Faults::Damage(const Bytes& reply) {
  Bytes sent;
  if (Strikes(Fault::kFlood)) {
    AppendRandom(kFloodBytes, sent);
    return sent;
  }
  if (Strikes(Fault::kNoise)) {
    AppendRandom(1 + random_() % 3, sent);
  }
  sent.insert(sent.end(), reply.begin(), reply.end());
  if (Strikes(Fault::kCorrupt)) {
    sent.back() ^= static_cast<std::uint8_t>(1u << random_() % 8);
  }
  if (Strikes(Fault::kSurplus)) {
    AppendRandom(1, sent);
  }
  return sent;
}

void Faults::AppendRandom(std::size_t count, Bytes& bytes) {
  for (std::size_t i = 0; i < count; ++i) {
    bytes.push_back(RandomByte());
  }
}

}  // namespace machine
