// SPDX-License-Identifier: GPL-3.0-or-later
// What may go wrong between the machine and the tool. Each fault strikes the next so many replies, or every
// reply with a certain probability. The same seed and the same requests give the same faults.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <random>
#include <string_view>

#include "machine/frame_reader.h"

namespace machine {

enum class Fault {
  kSilence,  // the request is neither carried out nor answered
  kLost,     // the request is carried out, the reply is lost
  kLate,     // the reply comes when the tool has given up waiting
  kFlood,    // a flood of random bytes instead of the reply
  kNoise,    // up to three random bytes ahead of the reply
  kCorrupt,  // the last byte of the reply, its check, is wrong
  kSurplus,  // one random byte behind the reply
};

inline constexpr std::array<std::string_view, 7> kFaultNames = {"silence", "lost",    "late",   "flood",
                                                                "noise",   "corrupt", "surplus"};

// The fault of a name as in kFaultNames.
std::optional<Fault> FaultByName(std::string_view name);

class Faults {
 public:
  explicit Faults(std::uint32_t seed) : random_(seed) {}

  // The next `count` replies are struck; 0 ends the fault.
  void SetCount(Fault fault, unsigned count) { settings_[Index(fault)] = {.count = count}; }
  // Every reply is struck with this probability, 0 to 1.
  void SetRate(Fault fault, double rate) { settings_[Index(fault)] = {.rate = rate}; }
  void ClearAll() { settings_ = {}; }

  // True when the fault strikes now; a count goes down by one.
  bool Strikes(Fault fault);
  // True while the fault may still strike.
  bool Armed(Fault fault) const;

  // `reply` as it leaves for the wire after the faults that change bytes.
  Bytes Damage(const Bytes& reply);

 private:
  struct Setting {
    unsigned count = 0;
    double rate = 0;
  };
  static std::size_t Index(Fault fault) { return static_cast<std::size_t>(fault); }
  std::uint8_t RandomByte() { return static_cast<std::uint8_t>(random_() >> 24); }
  void AppendRandom(std::size_t count, Bytes& bytes);

  std::array<Setting, kFaultNames.size()> settings_{};
  std::mt19937 random_;
};

}  // namespace machine
