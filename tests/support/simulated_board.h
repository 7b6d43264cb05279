// SPDX-License-Identifier: GPL-3.0-or-later
// A machine for the virtual line: up to four boards that hold bytes by address. It reads frames by rules of
// its own, so that it can judge those of the tool.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "support/virtual_host.h"

namespace dosmara {

// What a frame of the tool asks for, as a board understands it.
struct BoardRequest {
  int node = 0;
  int address = 0;  // AddrHi x 256 + AddrLo
  bool write = false;
  std::size_t length = 1;  // data bytes of the record
  Bytes data;              // of a write
  std::uint8_t checksum = 0;
};

// Empty when no board would take the frame for one of its own.
std::optional<BoardRequest> ReadFrame(const Bytes& frame);

// Data bytes followed by their check byte.
Bytes WithCheck(Bytes data);

class SimulatedBoard : public LineBoard {
 public:
  // From the last byte of a request to the first of the reply.
  microseconds latency{2000};
  // Nodes that do not answer.
  std::set<int> absent;

  // Holds `value`, any number of bytes, least significant first. A record that was never set is zero.
  void Set(int node, int address, std::uint64_t value) { values_[{node, address}] = value; }
  std::uint64_t Get(int node, int address) const;
  // The reply to a frame, after storing what a write carries; empty when nobody answers.
  Bytes Answer(const Bytes& frame);

  void Receive(const Bytes& frame, VirtualHost& line) override;

 private:
  std::map<std::pair<int, int>, std::uint64_t> values_;
};

// Answers the requests one after the other with the given bytes, then with silence.
class ScriptedBoard : public LineBoard {
 public:
  microseconds latency{2000};
  std::deque<Bytes> replies;

  void Receive(const Bytes& /*frame*/, VirtualHost& line) override {
    if (replies.empty()) {
      return;
    }
    line.Send(replies.front(), latency);
    replies.pop_front();
  }
};

}  // namespace dosmara
