// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/machine.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

namespace machine {
namespace {

using namespace std::chrono_literals;

// From the end of a request to the start of its reply: the main board by itself, and with a board behind it.
constexpr Time kDirectTurnaround = 1ms;
constexpr Time kForwardedTurnaround = 3ms;

// A tool gives up after one second.
constexpr Time kLateTurnaround = 1200ms;

// From switch-on to the first reply.
constexpr Time kStartUp = 2s;

}  // namespace

Machine::Machine(Boards boards, std::uint32_t seed, FrameLog log)
    : boards_(std::move(boards)),
      dispenser_(boards_, presence_, schedule_, supplies_, defects_, alarms_, sensors_, remarks_,
                 [this](const Serving& serving, bool served) {
                   for (Concern* concern : concerns_) {
                     served ? concern->OnServed(serving) : concern->OnFailed(serving);
                   }
                 }),
      sales_(boards_, calendar_, dispenser_, inputs_, timetable_, till_, seed),
      faults_(seed),
      log_(std::move(log)) {
  StartTime();
}

void Machine::Receive(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    const Time end = incoming_.Carry(now());
    schedule_.At(end, [this, byte] { TakeByte(byte); });
  }
}

std::vector<SentByte> Machine::TakeSent() { return std::exchange(sent_, {}); }

void Machine::Restart() {
  log_.Note(now(), "restart");
  schedule_.Clear();
  reader_ = {};
  incoming_ = {};
  outgoing_ = {};
  ready_at_ = now() + kStartUp;
  for (Concern* concern : concerns_) {
    concern->OnRestart();
  }
  StartTime();
}

void Machine::SetSpeed(unsigned factor) {
  speed_ = factor;
  ++day_;
  ScheduleSecond();
}

void Machine::Write(int node, int record, std::uint32_t value) {
  board(node).Set(record, value);
  for (Concern* concern : concerns_) {
    concern->OnWrite(node, record);
  }
}

void Machine::Set(int node, int record, std::uint32_t value) {
  board(node).Set(record, value);
  for (Concern* concern : concerns_) {
    concern->OnSet(node, record);
  }
}

void Machine::SetPresent(int node, bool present) {
  if (!present && presence_.IsPresent(node)) {
    alarms_.Raise(node == 1 ? Alarm::kDrinksUnitMissing : OfUnit(Alarm::kUnitMissing, node));
  }
  presence_.SetPresent(node, present);
}

void Machine::StartTime() {
  SetSpeed(speed_);
  schedule_.In(1s, [this] { CountFrames(); });
}

void Machine::ScheduleSecond() {
  schedule_.In(Time(1s) / speed_, [this, day = day_] {
    if (day != day_) {
      return;
    }
    for (Concern* concern : concerns_) {
      concern->OnSecond();
    }
    each_second_();
    if (day == day_) {
      ScheduleSecond();
    }
  });
}

void Machine::CountFrames() {
  frames_per_second_ = std::exchange(frames_this_second_, 0);
  schedule_.In(1s, [this] { CountFrames(); });
}

void Machine::TakeByte(std::uint8_t byte) {
  last_byte_ = now();
  reader_.Push(byte);
  TakeRequests();
  schedule_.In(kSilentTime, [this] {
    // Another byte has arrived since, or is on its way.
    if (incoming_.free_at() > last_byte_ || now() - last_byte_ < kSilentTime) {
      return;
    }
    reader_.Silence();
    TakeRequests();
  });
}

void Machine::TakeRequests() {
  const Bytes dropped = reader_.TakeDropped();
  traffic_.dropped_bytes += static_cast<unsigned>(dropped.size());
  if (!dropped.empty()) {
    ++traffic_.errors;
  }
  log_.Dropped(now(), dropped);
  while (const auto request = reader_.TakeRequest()) {
    Handle(*request);
  }
}

void Machine::Handle(const Request& request) {
  Cell* cell = board(request.node).Find(request.address);
  ++traffic_.requests;
  ++frames_this_second_;
  last_request_ = now();
  log_.In(now(), request, cell);
  if (muted_ || now() < ready_at_ || !presence_.IsPresent(request.node)) {
    return;
  }
  if (cell == nullptr && !IsPortTest(request)) {
    return;
  }
  if (faults_.Strikes(Fault::kSilence)) {
    ++traffic_.errors;
    return;
  }
  const Bytes answer = Answer(request, cell);
  const Bytes reply = faults_.Damage(answer);
  const bool late = faults_.Strikes(Fault::kLate);
  const bool lost = faults_.Strikes(Fault::kLost);
  if (late || lost || reply != answer) {
    ++traffic_.errors;
  }
  if (lost) {
    return;
  }

  const Time turnaround = request.node == 0 ? kDirectTurnaround : kForwardedTurnaround;
  schedule_.In(late ? kLateTurnaround : turnaround, [this, request, cell, reply] {
    log_.Out(now(), request, cell, reply);
    ++traffic_.replies;
    Send(reply);
  });
}

// A write is answered by twice the check of its request, a read by the data and their sum. The port test,
// which reads address 0 of node 0, is answered like a value of one byte that is 0.
Bytes Machine::Answer(const Request& request, Cell* cell) {
  if (request.write) {
    cell->bytes.fill(0);
    std::copy(request.data.begin(), request.data.end(), cell->bytes.begin());
    if (!cell->identification) {
      for (Concern* concern : concerns_) {
        concern->OnWrite(request.node, cell->number);
      }
    }
    return {static_cast<std::uint8_t>(2 * request.check)};
  }
  Bytes reply(request.address.length(), 0);
  if (cell != nullptr) {
    std::copy_n(cell->bytes.begin(), reply.size(), reply.begin());
  }
  reply.push_back(static_cast<std::uint8_t>(std::accumulate(reply.begin(), reply.end(), 0u)));
  return reply;
}

void Machine::Send(const Bytes& bytes) {
  for (const std::uint8_t byte : bytes) {
    const Time end = outgoing_.Carry(now());
    schedule_.At(end, [this, byte, end] { sent_.push_back({end, byte}); });
  }
}

}  // namespace machine
