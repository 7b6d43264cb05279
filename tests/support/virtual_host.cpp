// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/virtual_host.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "link/link_engine.h"
#include "store/failure.h"

namespace dosmara {

microseconds WireTime(std::size_t count) {
  constexpr std::size_t kBytesPerSecond = 1920;
  return microseconds((count * 1000000 + kBytesPerSecond - 1) / kBytesPerSecond);
}

void VirtualHost::Send(const Bytes& bytes, microseconds delay) {
  microseconds start = now_ + delay;
  if (!to_tool_.empty()) {
    start = std::max(start, to_tool_.back().time);
  }
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    to_tool_.push_back({start + TimeOf(i + 1), bytes[i]});
  }
}

void VirtualHost::At(microseconds when, std::function<void()> what) { calls_.emplace(when, std::move(what)); }

void VirtualHost::RunFor(microseconds time) {
  const microseconds end = now_ + time;
  for (;;) {
    const Next next = FindNext(false);
    if (next.source == Source::kNone || next.time > end) {
      break;
    }
    Deliver(next, false);
  }
  now_ = end;
}

void VirtualHost::Stall(milliseconds time) {
  WaitBlocking(time);
  if (std::exchange(unannounced_, 0) > 0) {
    ReceiveEvent();
  }
}

bool VirtualHost::RunUntil(const std::function<bool()>& condition, microseconds limit) {
  const microseconds end = now_ + limit;
  while (!condition()) {
    const Next next = FindNext(false);
    if (next.source == Source::kNone || next.time > end) {
      now_ = end;
      return condition();
    }
    Deliver(next, false);
  }
  return true;
}

int VirtualHost::OpenPort(int port) {
  opened.push_back(port);
  const auto error = open_errors.find(port);
  if (error != open_errors.end()) {
    return error->second;
  }
  open_port_ = port;
  input_.clear();
  return 0;
}

void VirtualHost::ClosePort() {
  open_port_ = 0;
  input_.clear();
}

void VirtualHost::ReopenPort() {
  ++reopens;
  input_.clear();
}

void VirtualHost::Output(std::span<const std::uint8_t> frame) {
  frames.push_back({now_, Bytes(frame.begin(), frame.end())});
  if (!Connected() || board == nullptr) {
    return;
  }
  to_board_free_ = std::max(to_board_free_, now_) + TimeOf(frame.size());
  to_board_.push_back({to_board_free_, frames.back().bytes});
  board->FrameBegins(frames.back().bytes, *this);
}

Bytes VirtualHost::TakeInput() {
  unannounced_ = 0;
  return std::exchange(input_, {});
}

void VirtualHost::EnableTimer(LinkTimer timer) {
  Timer& entry = TimerOf(timer);
  if (entry.enabled) {
    return;
  }
  entry = {true, now_ + kLinkTimerInterval[static_cast<int>(timer)], started_++};
}

void VirtualHost::ShowLamp(int panel, int image) {
  lamps.push_back({now_, panel, image});
  shown_[static_cast<std::size_t>(panel - 2)] = image;
}

void VirtualHost::WaitBlocking(milliseconds time) {
  const microseconds end = now_ + time;
  for (;;) {
    const Next next = FindNext(true);
    if (next.source == Source::kNone || next.time > end) {
      break;
    }
    Deliver(next, true);
  }
  now_ = end;
}

void VirtualHost::PumpEvents() {
  const Next next = FindNext(false);
  if (next.source == Source::kNone) {
    throw std::logic_error("nothing will ever happen again");
  }
  Deliver(next, false);
}

BoxAnswer VirtualHost::MsgBox(const std::string& text, const std::string& title, BoxStyle style) {
  boxes.push_back({now_, text, title, style});
  if (during_box) {
    during_box();
  }
  RunFor(box_time);
  if (!answers.empty()) {
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  return style == BoxStyle::kRetryCancel ? BoxAnswer::kCancel : BoxAnswer::kOk;
}

void VirtualHost::TickPort(int port, bool tick) {
  if (port < 1 || port > 4) {
    return;
  }
  if (tick) {
    ticked.insert(port);
  } else {
    ticked.erase(port);
  }
}

int VirtualHost::ReadSettingsPort() {
  if (settings_error != 0) {
    throw RunTimeError(settings_error, "settings file");
  }
  return settings_port;
}

VirtualHost::Next VirtualHost::FindNext(bool world_only) const {
  Next next;
  const auto offer = [&next](Source source, microseconds time, std::size_t timer = 0) {
    if (next.source == Source::kNone || time < next.time) {
      next = {source, time, timer};
    }
  };
  if (!calls_.empty()) {
    offer(Source::kCall, calls_.begin()->first);
  }
  if (!to_board_.empty()) {
    offer(Source::kFrame, to_board_.front().time);
  }
  if (!to_tool_.empty()) {
    offer(Source::kByte, to_tool_.front().time);
  }
  if (world_only) {
    return next;
  }
  for (std::size_t i = 0; i < timers_.size(); ++i) {
    const Timer& timer = timers_[i];
    if (!timer.enabled) {
      continue;
    }
    const bool before_other_timer =
        next.source == Source::kTimer && timer.due == next.time && timer.order < timers_[next.timer].order;
    if (before_other_timer) {
      next.timer = i;
    } else {
      offer(Source::kTimer, timer.due, i);
    }
  }
  return next;
}

void VirtualHost::Deliver(const Next& next, bool blocking) {
  now_ = std::max(now_, next.time);
  switch (next.source) {
    case Source::kNone:
      break;
    case Source::kCall: {
      const auto what = std::move(calls_.begin()->second);
      calls_.erase(calls_.begin());
      what();
      break;
    }
    case Source::kFrame: {
      const Bytes frame = std::move(to_board_.front().bytes);
      to_board_.pop_front();
      if (Connected()) {
        board->Receive(frame, *this);
      }
      break;
    }
    case Source::kByte:
      ByteArrives(blocking);
      break;
    case Source::kTimer:
      FireTimer(next.timer);
      break;
  }
}

void VirtualHost::ByteArrives(bool blocking) {
  const std::uint8_t value = to_tool_.front().value;
  to_tool_.pop_front();
  if (!Connected()) {
    return;
  }
  if (input_.size() < kInputBufferBytes) {
    input_.push_back(value);
  }
  ++unannounced_;
  if (blocking || (unannounced_ < chunk && !to_tool_.empty())) {
    return;
  }
  unannounced_ = 0;
  ReceiveEvent();
}

void VirtualHost::FireTimer(std::size_t index) {
  Timer& timer = timers_[index];
  timer.due += kLinkTimerInterval[index];
  timer.order = started_++;
  TimerEvent(static_cast<LinkTimer>(index));
}

}  // namespace dosmara
