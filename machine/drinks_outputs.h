// SPDX-License-Identifier: GPL-3.0-or-later
// The outputs of the hot drinks unit, numbered through records 547 to 550: 0 is bit 0 of 547, 8 is bit 0 of
// 548. The captions of the tool name them in the same order.
#pragma once

#include "machine/main_board_records.h"

namespace machine {

enum DrinksOutput {
  kCoffeeValve = 0,
  kMilkValve = 1,  // for chocolate as well
  kTeaValve = 2,
  kDecafValve = 3,
  kHotWaterValve = 4,
  kPumpOutput = 5,
  kHeaterOutput = 6,
  kGrinder = 8,
  kDoser = 9,
  kBrewer = 10,
  kMilkMixer = 12,
  kChocolateMixer = 13,
  kRinseValve = 15,
  kMilkMotor = 16,
  kChocolateMotor = 17,
  kTeaMotor = 18,
  kDecafMotor = 19,
  kSugarMotor = 20,
  kCupRelease = 21,
  kCupColumn = 22,
  kStirrerRelease = 23,
  kBayLight = 24,
  kPanelLight = 25,
  kFlapLock = 26,
  kDrinksOutputs = 32,
};

inline constexpr int kOutputsRecord = 547;

// `unit` is the board of node 1.
inline bool OutputOn(const Board& unit, int output) {
  return (unit.Get(kOutputsRecord + output / 8) >> (output % 8) & 1) != 0;
}

inline void SetOutput(Board& unit, int output, bool on) {
  SetBits(unit, kOutputsRecord + output / 8, 1u << (output % 8), on);
}

}  // namespace machine
