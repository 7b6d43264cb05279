// SPDX-License-Identifier: GPL-3.0-or-later
// Test mode of the boards behind the main board, in which the tool drives their outputs.
//
// Node 1 takes a command in record 535, on data that was written to 536 to 539 before; the outputs read back
// in 547 to 550, and bit value 1 of 541 is set in test mode. Nodes 2 and 3 take it in 284, on row 285 and
// column 286; 288 and 289 read back, and bit value 1 of 290 is set in test mode.
//
//   command 1   60 in the first data record enters test mode; 0 leaves it
//   command 2   the data becomes the outputs, in test mode only
//
// Anything else is refused with a remark. All outputs go off on entering, also when the mode is on already,
// and on leaving. A unit turns one sector at a time: of several rows or columns it takes the lowest. It has
// six rows; bit 7 of its row is the compressor.
#pragma once

#include "machine/board.h"
#include "machine/concern.h"
#include "machine/remarks.h"

namespace machine {

// The row and column of a unit, as they are, and the bit of its compressor in the row.
inline constexpr int kRowRecord = 288;
inline constexpr int kColumnRecord = 289;
inline constexpr std::uint32_t kCompressorOutput = 128;

// The command record of a unit with the command that sends its motors to zero, and its status: test mode, and
// motors on their way.
inline constexpr int kUnitCommandRecord = 284;
inline constexpr std::uint32_t kZeroCommand = 3;
inline constexpr int kUnitStatusRecord = 290;
inline constexpr std::uint32_t kTestBit = 1;
inline constexpr std::uint32_t kMotorsBit = 2;

// True while the board of nodes 1 to 3 is in test mode.
bool InTestMode(const Boards& boards, int node);
// True while the motors of the unit at node 2 or 3 are on their way to zero.
bool MotorsRun(const Boards& boards, int node);

class OutputTest : public Concern {
 public:
  OutputTest(Boards& boards, Remarks& remarks) : boards_(boards), remarks_(remarks) {}

  void OnWrite(int node, int record) override;
  void OnRestart() override;

 private:
  void SetMode(int node, bool on);
  void Drive(int node);

  Boards& boards_;
  Remarks& remarks_;
};

}  // namespace machine
