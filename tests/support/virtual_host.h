// SPDX-License-Identifier: GPL-3.0-or-later
// The link's surroundings over virtual time: nothing here waits, and every event has its microsecond. Bytes
// travel at the pace of 19200 bit/s in both directions; what sits at the far end of the line is a LineBoard.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "link/host.h"

namespace dosmara {

using std::chrono::microseconds;
using std::chrono::milliseconds;

// Time that `count` bytes take on the wire, ten bits each.
microseconds WireTime(std::size_t count);

class VirtualHost;

// What sits at the far end of the line.
class LineBoard {
 public:
  virtual ~LineBoard() = default;
  // The tool has given `frame` to the line; its first byte leaves now.
  virtual void FrameBegins(const Bytes& /*frame*/, VirtualHost& /*line*/) {}
  // The last byte of `frame` has reached the board.
  virtual void Receive(const Bytes& frame, VirtualHost& line) = 0;
};

class VirtualHost : public LinkHost {
 public:
  struct Frame {
    microseconds time;
    Bytes bytes;
  };
  struct Lamp {
    microseconds time;
    int panel;
    int image;
  };
  struct Box {
    microseconds time;
    std::string text;
    std::string title;
    BoxStyle style;
  };

  // The machine, unless none is on the line. The caller keeps it alive.
  LineBoard* board = nullptr;
  // Port on which the machine is; the others are open lines with nobody on them.
  int board_port = 1;
  // What OpenPort returns for a port; 0 for a port that is not listed.
  std::map<int, int> open_errors;
  // Whether the cable is in. Without it frames and replies are lost.
  bool plugged = true;
  // Whether bytes take the time of 19200 bit/s. A virtual or network port takes none.
  bool at_wire_pace = true;
  // Bytes that collect before one receive event tells of all of them. 1: each byte its own event.
  std::size_t chunk = 1;
  // Port of the settings file, or the number of the error that reading it gives.
  int settings_port = 1;
  int settings_error = 0;
  // Answers to the message boxes in their order, after them kOk, or kCancel for Retry and Cancel.
  std::deque<BoxAnswer> answers;
  // How long each box stays open.
  milliseconds box_time{0};
  // Called for each box while it is open.
  std::function<void()> during_box;

  // What happened.
  std::vector<Frame> frames;
  std::vector<Lamp> lamps;
  std::vector<Box> boxes;
  std::vector<int> opened;
  std::set<int> ticked;
  int reopens = 0;
  std::vector<std::string> status_texts;
  int status_text_clears = 0;
  int default_port_writes = 0;

  // Sends `bytes` toward the tool; the first one begins after `delay`, or as soon as the line is free.
  void Send(const Bytes& bytes, microseconds delay = microseconds(0));
  // When the last of the bytes that are under way reaches the tool.
  microseconds LastByteArrives() const { return to_tool_.empty() ? now_ : to_tool_.back().time; }
  // Calls `what` at the virtual time `when`.
  void At(microseconds when, std::function<void()> what);
  // Lets `time` pass.
  void RunFor(microseconds time);
  // Keeps the program busy for `time`: what happens meanwhile is told of afterwards.
  void Stall(milliseconds time);
  // Runs until `condition` holds, at most for `limit`. Returns whether it holds.
  bool RunUntil(const std::function<bool()>& condition, microseconds limit);
  bool IsEnabled(LinkTimer timer) const { return TimerOf(timer).enabled; }
  bool IsOpen() const { return open_port_ != 0; }
  // Image that a panel, 2 to 4, shows.
  int LampOn(int panel) const { return shown_[static_cast<std::size_t>(panel - 2)]; }

  int OpenPort(int port) override;
  void ClosePort() override;
  void ReopenPort() override;
  void Output(std::span<const std::uint8_t> frame) override;
  std::size_t InputCount() const override { return input_.size(); }
  Bytes TakeInput() override;
  void EnableTimer(LinkTimer timer) override;
  void DisableTimer(LinkTimer timer) override { TimerOf(timer).enabled = false; }
  void ShowLamp(int panel, int image) override;
  void ShowStatusText(const std::string& text) override { status_texts.push_back(text); }
  void ClearStatusText() override { ++status_text_clears; }
  microseconds Now() const override { return now_; }
  void WaitBlocking(milliseconds time) override;
  void PumpEvents() override;
  BoxAnswer MsgBox(const std::string& text, const std::string& title, BoxStyle style) override;
  void TickPort(int port, bool ticked) override;
  int ReadSettingsPort() override;
  void WriteDefaultPort() override { ++default_port_writes; }

 private:
  struct Timer {
    bool enabled = false;
    microseconds due{0};
    std::uint64_t order = 0;  // timers that are due together fire in the order in which they were started
  };
  struct ByteInFlight {
    microseconds time;
    std::uint8_t value;
  };
  enum class Source { kNone, kCall, kFrame, kByte, kTimer };
  struct Next {
    Source source = Source::kNone;
    microseconds time{0};
    std::size_t timer = 0;
  };

  microseconds TimeOf(std::size_t count) const { return at_wire_pace ? WireTime(count) : microseconds(0); }
  Timer& TimerOf(LinkTimer timer) { return timers_[static_cast<std::size_t>(timer)]; }
  const Timer& TimerOf(LinkTimer timer) const { return timers_[static_cast<std::size_t>(timer)]; }
  bool Connected() const { return plugged && open_port_ == board_port; }
  // The next event; with `world_only` the timers are left out.
  Next FindNext(bool world_only) const;
  void Deliver(const Next& next, bool blocking);
  void ByteArrives(bool blocking);
  void FireTimer(std::size_t timer);

  microseconds now_{0};
  std::array<Timer, kLinkTimerCount> timers_;
  std::uint64_t started_ = 0;
  int open_port_ = 0;
  Bytes input_;
  std::size_t unannounced_ = 0;  // bytes that have collected since the last receive event
  std::deque<ByteInFlight> to_tool_;
  std::deque<Frame> to_board_;
  microseconds to_board_free_{0};
  std::multimap<microseconds, std::function<void()>> calls_;
  std::array<int, 3> shown_{1, 2, 3};
};

}  // namespace dosmara
