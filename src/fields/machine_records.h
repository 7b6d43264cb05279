// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the boards and of the records that several forms share.
#pragma once

#include "store/failure.h"

namespace dosmara {

// Nodes.
inline constexpr int kMainBoard = 0;  // machine-wide status, tests and money
inline constexpr int kHotDrinks = 1;  // the board of the hot drinks unit
inline constexpr int kZeth = 2;       // the two identical Zeth units
inline constexpr int kZeth2 = 3;

// The record of the main board that stands for the board of node 1, 2 or 3, and its bit: the board is
// present and in use. Stops the program for any other node.
constexpr int GateRecord(int node) {
  switch (node) {
    case kHotDrinks:
      return 312;
    case kZeth:
      return 313;
    case kZeth2:
      return 357;
    default:
      StopProgram("GateRecord: only the boards of nodes 1 to 3 have a gate");
  }
}
inline constexpr int kInUse = 4;

// The selling options of the main board, bit by bit the business of several forms.
inline constexpr int kSellingOptions = 83;
inline constexpr int kSellingOptionsMirror = 285;
inline constexpr int kAllAtPrice1 = 1;

// The payment system and options of the main board, of which the same holds. No system is one for tokens.
inline constexpr int kPaymentOptions = 84;
inline constexpr int kPaymentOptionsMirror = 286;
inline constexpr int kG13 = 1;
inline constexpr int kExecutive = 2;
inline constexpr int kMdb = 4;

// Its options of change and credit, of which the same holds.
inline constexpr int kCreditOptions = 361;
inline constexpr int kCreditOptionsMirror = 362;

// How many decimals money is shown with: the low two bits, as the machine reports them.
inline constexpr int kMoneyDecimals = 311;

// Of the hot drinks unit: the temperature of its boiler, in degrees.
inline constexpr int kBoilerTemperature = 542;

// Of a Zeth unit: the offset of its temperature, in degrees and stored with kTankOffsetOfZero added; the raw
// temperature, see TankTemperature; a command and the status, which a test reads.
inline constexpr int kTankOffset = 52;
inline constexpr int kTankOffsetOfZero = 5;
inline constexpr int kUnitCommand = 284;
inline constexpr int kTankTemperature = 287;
inline constexpr int kUnitStatus = 290;

// Tests of the main board: what is tested goes first, the command follows when its echo is back.
inline constexpr int kTestCommand = 314;
inline constexpr int kTestSelection = 315;  // or the column of a unit
inline constexpr int kTestPart = 316;       // or its row
inline constexpr int kMachineStatus = 317;
inline constexpr int kStatusDispensing = 2;

}  // namespace dosmara
