// SPDX-License-Identifier: GPL-3.0-or-later
// The frames on the wire, one a line, for people to read:
//
//       0.008587  in   node 1  write  record 148 coffee water, selection 1 = 57  F3 00 02 9E A1 51 39 00 BE
//       0.011587  out  node 1  write  record 148 coffee water, selection 1 = 57  7C
//
// Time is in seconds. Bytes are in hex, as they were on the wire.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "machine/board.h"
#include "machine/clock.h"
#include "machine/record_names.h"

namespace machine {

class FrameLog {
 public:
  using Sink = std::function<void(const std::string& line)>;

  // `sink` takes each line, without its end. Nothing is logged until Switch(true).
  FrameLog(RecordNames names, Sink sink) : names_(std::move(names)), sink_(std::move(sink)) {}
  // A log that never writes.
  FrameLog() = default;

  void Switch(bool on) { on_ = on && sink_; }
  bool on() const { return on_; }

  // A request has arrived; `cell` is what it is about, or null when the board has nothing there.
  void In(Time now, const Request& request, const Cell* cell);
  // A reply leaves; `cell` holds the value.
  void Out(Time now, const Request& request, const Cell* cell, const Bytes& reply);
  // Bytes have arrived that are no request.
  void Dropped(Time now, const Bytes& bytes);
  // Anything else worth a line.
  void Note(Time now, std::string_view text);

 private:
  void Write(Time now, std::string_view direction, const std::string& what, const Bytes& bytes);
  std::string Describe(const Request& request, const Cell* cell) const;

  RecordNames names_;
  Sink sink_;
  bool on_ = false;
};

}  // namespace machine
