// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/output_test.h"

#include <array>
#include <string>

#include "machine/drinks_outputs.h"

namespace machine {
namespace {

constexpr std::uint32_t kModeCommand = 1;
constexpr std::uint32_t kDriveCommand = 2;
constexpr std::uint32_t kEnter = 60;
constexpr std::uint32_t kLeave = 0;

// The records of a board's test: the command, the first of the outputs that are wanted and of those that are
// on, how many there are of each, and the one whose test bit tells the mode.
struct Place {
  int command;
  int wanted;
  int outputs;
  int count;
  int mode;
};
constexpr std::array<Place, kNodeCount> kPlaces = {
    {{},
     {535, 536, kOutputsRecord, 4, 541},
     {kUnitCommandRecord, 285, kRowRecord, 2, kUnitStatusRecord},
     {kUnitCommandRecord, 285, kRowRecord, 2, kUnitStatusRecord}}};

constexpr std::uint32_t kRows = 63;

const Place& PlaceOf(int node) { return kPlaces[static_cast<std::size_t>(node)]; }

std::uint32_t LowestBit(std::uint32_t bits) { return bits & -bits; }

// What a unit makes of the rows or columns that are wanted: its motors turn one of them.
std::uint32_t Sector(std::uint32_t image, bool row) {
  return row ? LowestBit(image & kRows) | (image & kCompressorOutput) : LowestBit(image);
}

}  // namespace

bool InTestMode(const Boards& boards, int node) {
  return (boards[static_cast<std::size_t>(node)].Get(PlaceOf(node).mode) & kTestBit) != 0;
}

bool MotorsRun(const Boards& boards, int node) {
  return (boards[static_cast<std::size_t>(node)].Get(kUnitStatusRecord) & kMotorsBit) != 0;
}

void OutputTest::OnWrite(int node, int record) {
  if (node == 0 || record != PlaceOf(node).command) {
    return;
  }
  const Board& board = boards_[static_cast<std::size_t>(node)];
  const std::uint32_t command = board.Get(record);
  const std::uint32_t first = board.Get(PlaceOf(node).wanted);
  if (node > 1 && command == kZeroCommand) {
    return;
  }
  if (command == kModeCommand && (first == kEnter || first == kLeave)) {
    SetMode(node, first == kEnter);
  } else if (command == kDriveCommand && InTestMode(boards_, node)) {
    Drive(node);
  } else {
    remarks_.Refused("output command " + std::to_string(command) + " of node " + std::to_string(node),
                     command == kDriveCommand ? "not in test mode" : "there is no such command");
  }
}

void OutputTest::OnRestart() {
  for (int node = 1; node < kNodeCount; ++node) {
    SetMode(node, false);
  }
}

void OutputTest::SetMode(int node, bool on) {
  Board& board = boards_[static_cast<std::size_t>(node)];
  const Place& place = PlaceOf(node);
  for (int i = 0; i < place.count; ++i) {
    board.Set(place.outputs + i, 0);
  }
  SetBits(board, place.mode, kTestBit, on);
}

void OutputTest::Drive(int node) {
  Board& board = boards_[static_cast<std::size_t>(node)];
  const Place& place = PlaceOf(node);
  for (int i = 0; i < place.count; ++i) {
    const std::uint32_t image = board.Get(place.wanted + i);
    board.Set(place.outputs + i, node == 1 ? image : Sector(image, i == 0));
  }
}

}  // namespace machine
