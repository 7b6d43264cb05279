// SPDX-License-Identifier: GPL-3.0-or-later
// A machine on a bad line: answers like SimulatedBoard, but spoils replies at random, and keeps book of the
// ones that it sent whole and right.
#pragma once

#include <array>
#include <deque>
#include <random>

#include "support/simulated_board.h"

namespace dosmara {

enum class Fault {
  kNone,
  kCorruptCheck,  // one byte of the reply is wrong
  kLostReply,
  kSurplusByte,  // one byte more than due, right behind the reply
  kNoiseBefore,  // one to three bytes right before the reply
  kLateReply,    // after the tool's time-out
  kSilence,      // this request and the next few stay without an answer
  kFlood,        // garbage that begins on an idle line
  kUnplug,
};
inline constexpr int kFaults = 9;

class FaultyBoard : public LineBoard {
 public:
  FaultyBoard(SimulatedBoard& machine, std::uint32_t seed) : machine_(machine), random_(seed) {}

  // Whether replies are spoiled.
  bool faulty = true;
  // From the last byte of a request to the first of its reply: at least so long, and up to so much longer.
  microseconds least_latency{200};
  unsigned further_microseconds = 12000;
  // How often each fault has happened.
  std::array<int, kFaults> counts{};

  // Whether a right reply with this value, to a request for this record, is complete at this moment.
  bool HasJustSent(microseconds now, int node, int address, double value) const;
  // Floods the line from this moment on: random bytes, or one byte over and over.
  void Flood(VirtualHost& line);
  // A number from 0 to `limit` - 1.
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }

  void FrameBegins(const Bytes& frame, VirtualHost& line) override;
  void Receive(const Bytes& frame, VirtualHost& line) override;

 private:
  // A reply that left whole and right.
  struct Reply {
    microseconds complete;  // when its last byte reaches the tool
    int node;
    int address;
    double value;
    bool operator==(const Reply&) const = default;
  };

  Fault PickFault();
  // Noise before a reply is not such that the tool's first look at it sums up by chance: that is beyond the
  // 8-bit check of this line, and no rule of the tool could tell.
  Bytes NoiseBefore(const BoardRequest& request, const Bytes& reply);
  void SendRight(const BoardRequest& request, const Bytes& before, const Bytes& reply, microseconds delay,
                 VirtualHost& line);
  void SendLate(const BoardRequest& request, const Bytes& reply, VirtualHost& line);

  SimulatedBoard& machine_;
  std::mt19937 random_;
  std::deque<Reply> replies_;  // the last few; a repeated request is answered twice
  unsigned silent_requests_ = 0;
  unsigned requests_begun_ = 0;
  microseconds flood_end_{-1};
};

}  // namespace dosmara
