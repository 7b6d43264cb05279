// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/faulty_board.h"

#include <algorithm>

#include "link/link_engine.h"

namespace dosmara {

namespace {

constexpr std::size_t kRepliesKept = 8;

int Number(Fault fault) { return static_cast<int>(fault); }

}  // namespace

bool FaultyBoard::HasJustSent(microseconds now, int node, int address, double value) const {
  return std::ranges::find(replies_, Reply{now, node, address, value}) != replies_.end();
}

void FaultyBoard::Flood(VirtualHost& line) {
  ++counts[Number(Fault::kFlood)];
  Bytes garbage(10 + Below(500));
  const bool steady = Below(2) == 0;
  const auto byte = static_cast<std::uint8_t>(Below(4) == 0 ? Below(256) : 0);
  for (std::uint8_t& value : garbage) {
    value = steady ? byte : static_cast<std::uint8_t>(Below(256));
  }
  // The first byte is there now, while the line is idle.
  line.Send(garbage, -WireTime(1));
  flood_end_ = line.Now() + WireTime(garbage.size());
}

void FaultyBoard::FrameBegins(const Bytes& /*frame*/, VirtualHost& /*line*/) { ++requests_begun_; }

Fault FaultyBoard::PickFault() {
  if (!faulty || Below(100) >= 12) {
    return Fault::kNone;
  }
  // Faults that cost the tool a second of waiting are rarer.
  constexpr Fault kChoice[] = {Fault::kCorruptCheck, Fault::kCorruptCheck, Fault::kCorruptCheck,
                               Fault::kSurplusByte,  Fault::kSurplusByte,  Fault::kNoiseBefore,
                               Fault::kNoiseBefore,  Fault::kNoiseBefore,  Fault::kLateReply,
                               Fault::kLostReply,    Fault::kSilence};
  return kChoice[Below(std::size(kChoice))];
}

Bytes FaultyBoard::NoiseBefore(const BoardRequest& request, const Bytes& reply) {
  Bytes noise(1 + Below(3));
  for (std::uint8_t& value : noise) {
    value = static_cast<std::uint8_t>(Below(256));
  }
  const auto passes = [&] {
    Bytes seen = noise;
    seen.insert(seen.end(), reply.begin(), reply.end());
    if (request.write) {
      return seen[0] == reply[0];
    }
    seen.resize(request.length + 1);
    return WithCheck(Bytes(seen.begin(), seen.end() - 1)) == seen;
  };
  while (passes()) {
    ++noise.front();
  }
  return noise;
}

void FaultyBoard::SendRight(const BoardRequest& request, const Bytes& before, const Bytes& reply,
                            microseconds delay, VirtualHost& line) {
  const Bytes data = request.write ? request.data : Bytes(reply.begin(), reply.end() - 1);
  double value = 0;
  for (std::size_t i = data.size(); i-- > 0;) {
    value = value * 256 + data[i];
  }
  line.Send(before, delay);
  line.Send(reply, delay);
  replies_.push_back({line.LastByteArrives(), request.node, request.address, value});
  if (replies_.size() > kRepliesKept) {
    replies_.pop_front();
  }
}

// After the tool has given up, and before it asks anew: then a machine forgets the answer that it has not
// begun. Did it send both, the first would pass for the answer to the new request: the frames carry no
// number.
void FaultyBoard::SendLate(const BoardRequest& request, const Bytes& reply, VirtualHost& line) {
  line.At(line.Now() + milliseconds(995 + Below(60)), [this, &line, request, reply, begun = requests_begun_] {
    if (begun == requests_begun_ && LinkIdle) {
      SendRight(request, {}, reply, -WireTime(1), line);
    }
  });
}

void FaultyBoard::Receive(const Bytes& frame, VirtualHost& line) {
  const std::optional<BoardRequest> request = ReadFrame(frame);
  if (!request) {
    return;
  }
  if (silent_requests_ > 0) {
    --silent_requests_;
    return;
  }
  if (line.Now() < flood_end_) {
    return;  // what the machine says now, the flood drowns
  }
  if (!request->write) {
    machine_.Set(request->node, request->address, random_());
  }
  const Bytes reply = machine_.Answer(frame);
  if (reply.empty()) {
    return;
  }

  const microseconds latency = least_latency + microseconds(Below(further_microseconds));
  const Fault fault = PickFault();
  ++counts[Number(fault)];
  switch (fault) {
    case Fault::kCorruptCheck: {
      Bytes wrong = reply;
      wrong[Below(static_cast<unsigned>(wrong.size()))] ^= static_cast<std::uint8_t>(1 + Below(255));
      line.Send(wrong, latency);
      break;
    }
    case Fault::kLostReply:
      break;
    case Fault::kSilence:
      silent_requests_ = Below(4);
      break;
    case Fault::kSurplusByte:
      SendRight(*request, {}, reply, latency, line);
      line.Send({static_cast<std::uint8_t>(Below(256))});
      break;
    case Fault::kNoiseBefore:
      SendRight(*request, NoiseBefore(*request, reply), reply, latency, line);
      break;
    case Fault::kLateReply:
      SendLate(*request, reply, line);
      break;
    default:
      SendRight(*request, {}, reply, latency, line);
      break;
  }
}

}  // namespace dosmara
