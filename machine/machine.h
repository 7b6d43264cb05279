// SPDX-License-Identifier: GPL-3.0-or-later
// A drinks vending machine as its serial line shows it: four boards, a wire in each direction, and whatever
// goes on by itself, all in virtual time.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "machine/audit.h"
#include "machine/board.h"
#include "machine/clock.h"
#include "machine/dispenser.h"
#include "machine/faults.h"
#include "machine/frame_log.h"
#include "machine/frame_reader.h"
#include "machine/presence.h"
#include "machine/schedule.h"
#include "machine/wire.h"

namespace machine {

// A byte that has left the machine, and the end of its stop bit.
struct SentByte {
  Time at;
  std::uint8_t byte;
};

// What has passed on the wire.
struct Traffic {
  unsigned requests = 0;
  unsigned replies = 0;
  unsigned dropped_bytes = 0;
};

class Machine {
 public:
  // `seed` decides the faults.
  Machine(Boards boards, std::uint32_t seed, FrameLog log = {});
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  Time now() const { return schedule_.now(); }
  // The moment at which the machine will next do something.
  std::optional<Time> next_event() const { return schedule_.next(); }
  void AdvanceTo(Time when) { schedule_.AdvanceTo(when); }

  // Bytes that the tool writes now. They travel at the pace of the line, behind those still under way.
  void Receive(std::span<const std::uint8_t> bytes);
  // The bytes that have left since the last call.
  std::vector<SentByte> TakeSent();

  // A muted machine hears and says nothing.
  void Mute(bool on) { muted_ = on; }
  bool muted() const { return muted_; }
  // Switches the machine off and on: what was under way is lost, values stay, and the boards start up before
  // they answer again.
  void Restart();

  Board& board(int node) { return boards_[static_cast<std::size_t>(node)]; }
  Presence& presence() { return presence_; }
  Faults& faults() { return faults_; }
  FrameLog& log() { return log_; }
  const Dispenser& dispenser() const { return dispenser_; }
  const Traffic& traffic() const { return traffic_; }

  // Writes a record as a frame would, with all that follows from it.
  void Write(int node, int record, std::uint32_t value);

 private:
  void TakeByte(std::uint8_t byte);
  void TakeRequests();
  void Handle(const Request& request);
  Bytes Answer(const Request& request, Cell* cell);
  void Send(const Bytes& bytes);

  Boards boards_;
  Schedule schedule_;
  Presence presence_{boards_};
  Dispenser dispenser_{boards_, presence_, schedule_};
  Audit audit_{boards_, presence_, dispenser_};
  std::array<Concern*, 2> concerns_ = {&dispenser_, &audit_};

  Faults faults_;
  FrameLog log_;
  Traffic traffic_;
  FrameReader reader_;
  Wire incoming_;
  Wire outgoing_;
  Time last_byte_{0};
  Time ready_at_{0};
  bool muted_ = false;
  std::vector<SentByte> sent_;
};

}  // namespace machine
