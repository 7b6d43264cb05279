// SPDX-License-Identifier: GPL-3.0-or-later
// The ring of the last ten alarms, on node 0. Record 86 is the newest entry, 0 to 9; entry e is records
// 142 + 6e to 147 + 6e: minute, hour, day, month, year less 2000, code. A code above 203 marks an empty
// entry. A machine without a clock logs no date and no time.
#pragma once

#include "machine/board.h"
#include "machine/calendar.h"

namespace machine {

// The codes that the machine raises by itself. What they mean is in the captions, line 403 + code.
enum class Alarm : std::uint8_t {
  kNoWater = 1,
  kNoCups = 2,
  kNoCoffee = 3,
  kNoStirrers = 4,
  kGroundsFull = 5,
  kTrayFull = 6,
  kDoorOpen = 7,
  kBoilerCold = 8,
  kBoilerHot = 9,
  kBoilerProbe = 10,
  kBrewerTimeout = 11,
  kGrinderTimeout = 12,
  kPumpTimeout = 13,
  kFillTimeout = 14,
  kFlowMeter = 15,
  kCoinMechanism = 16,
  kBillValidator = 17,
  kTubesEmpty = 18,
  kDrinksUnitMissing = 19,
  kUnitMissing = 20,  // and 21 for the unit at node 3
  kUnitWarm = 22,     // and 23
  kUnitMotor = 24,    // and 25
  kClock = 26,
  kMemory = 27,
};

// The alarm of the unit at `node`, 2 or 3; `alarm` is the one of the unit at node 2.
constexpr Alarm OfUnit(Alarm alarm, int node) {
  return static_cast<Alarm>(static_cast<int>(alarm) + node - 2);
}

inline constexpr std::uint32_t kLargestAlarm = 203;

class Alarms {
 public:
  Alarms(Boards& boards, const Calendar& calendar) : boards_(boards), calendar_(calendar) {}

  // Logs an alarm over the oldest entry.
  void Raise(std::uint32_t code);
  void Raise(Alarm alarm) { Raise(static_cast<std::uint32_t>(alarm)); }
  // Empties the ring.
  void Clear();

 private:
  Boards& boards_;
  const Calendar& calendar_;
};

}  // namespace machine
