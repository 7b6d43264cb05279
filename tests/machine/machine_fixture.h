// SPDX-License-Identifier: GPL-3.0-or-later
// A machine with a memory map that is easy to work out by hand, in virtual time.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <numeric>

#include "machine/machine.h"

namespace machine {

using namespace std::chrono_literals;

// Record n lies at bank 1, high byte n / 256, low byte n modulo 256, and is one byte long; the water counts,
// records 148 to 257 of node 1, and the raw temperatures, 287 of nodes 2 and 3, are two bytes long.
// Identification entry k lies at bank 2, low byte k. All values are 0.
inline Boards PlainBoards() {
  constexpr int kRecords[] = {390, 600, 380, 380};
  Boards boards;
  for (std::size_t node = 0; node < boards.size(); ++node) {
    for (int entry = 1; entry <= 18; ++entry) {
      EXPECT_TRUE(boards[node].AddIdentification({.bank = 2, .low = static_cast<std::uint8_t>(entry)}));
    }
    for (int n = 1; n <= kRecords[node]; ++n) {
      const bool water = node == 1 && n >= 148 && n <= 257;
      const std::uint8_t control = water || (node >= 2 && n == 287) ? 1 : 0;
      EXPECT_TRUE(boards[node].AddRecord({.bank = 1,
                                          .high = static_cast<std::uint8_t>(n / 256),
                                          .low = static_cast<std::uint8_t>(n % 256),
                                          .control = control},
                                         0));
    }
  }
  boards[0].SetIdentity({.type = 256, .revision = 14, .file_number = 1, .model = 25});
  return boards;
}

class MachineTest : public testing::Test {
 protected:
  void Pass(Time time) { machine_.AdvanceTo(machine_.now() + time); }

  // What comes back within half a second.
  Bytes Ask(const Bytes& request) {
    machine_.Receive(request);
    Pass(500ms);
    return Sent();
  }

  Bytes Sent() {
    Bytes bytes;
    for (const SentByte& sent : machine_.TakeSent()) {
      bytes.push_back(sent.byte);
    }
    return bytes;
  }

  static Bytes WithSum(Bytes bytes) {
    bytes.push_back(static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0)));
    return bytes;
  }

  // Writes one byte to a record of node 0, as the tool would.
  Bytes Write(int record, std::uint8_t value) {
    return Ask(WithSum(
        {128, 1, static_cast<std::uint8_t>(record / 256), static_cast<std::uint8_t>(record % 256), value}));
  }

  // What a board holds to begin with; the machine does not take it for a change.
  void Set(int node, int record, std::uint32_t value) { machine_.board(node).Set(record, value); }
  std::uint32_t Get(int node, int record) { return machine_.board(node).Get(record); }

  Machine machine_{PlainBoards(), 1};
};

}  // namespace machine
