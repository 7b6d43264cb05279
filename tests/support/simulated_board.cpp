// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/simulated_board.h"

namespace dosmara {

namespace {

std::uint8_t LowByte(std::uint64_t value) { return static_cast<std::uint8_t>(value & 0xFF); }

int NodeOfLetter(std::uint8_t letter) {
  switch (letter) {
    case 0x51:
      return 1;
    case 0x56:
      return 2;
    case 0x57:
      return 3;
    default:
      return -1;
  }
}

}  // namespace

std::optional<BoardRequest> ReadFrame(const Bytes& frame) {
  if (frame.size() < 5) {
    return std::nullopt;
  }
  unsigned sum = 0;
  for (std::size_t i = 0; i + 1 < frame.size(); ++i) {
    sum += frame[i];
  }
  if (LowByte(sum) != frame.back()) {
    return std::nullopt;
  }

  BoardRequest request;
  request.checksum = frame.back();
  request.address = frame[2] * 256 + frame[3];
  const bool forward = frame[0] >= 0xF1;
  const std::size_t header = forward ? 6 : 4;
  if (frame.size() < header + 1) {
    return std::nullopt;
  }
  const std::uint8_t control = forward ? frame[4] : frame[0];
  request.node = forward ? NodeOfLetter(frame[5]) : 0;
  if (request.node < 0) {
    return std::nullopt;
  }
  request.write = control >= 0x80;
  if (forward && request.write != (frame[0] != 0xF1)) {
    return std::nullopt;
  }
  request.length = (control & 0x0FU) + 1U;
  request.data.assign(frame.begin() + static_cast<std::ptrdiff_t>(header), frame.end() - 1);
  const std::size_t expected = !request.write ? 0 : request.length > 4 ? 4 : request.length;
  if (request.data.size() != expected) {
    return std::nullopt;
  }
  return request;
}

Bytes WithCheck(Bytes data) {
  unsigned sum = 0;
  for (const std::uint8_t byte : data) {
    sum += byte;
  }
  data.push_back(LowByte(sum));
  return data;
}

std::uint64_t SimulatedBoard::Get(int node, int address) const {
  const auto found = values_.find({node, address});
  return found == values_.end() ? 0 : found->second;
}

Bytes SimulatedBoard::Answer(const Bytes& frame) {
  const std::optional<BoardRequest> request = ReadFrame(frame);
  if (!request || absent.contains(request->node)) {
    return {};
  }
  if (request->write) {
    std::uint64_t value = 0;
    for (std::size_t i = request->data.size(); i-- > 0;) {
      value = value << 8 | request->data[i];
    }
    Set(request->node, request->address, value);
    return {LowByte(2U * request->checksum)};
  }
  Bytes data(request->length, 0);
  std::uint64_t value = Get(request->node, request->address);
  for (std::uint8_t& byte : data) {
    byte = LowByte(value);
    value >>= 8;
  }
  return WithCheck(data);
}

void SimulatedBoard::Receive(const Bytes& frame, VirtualHost& line) {
  const Bytes reply = Answer(frame);
  if (!reply.empty()) {
    line.Send(reply, latency);
  }
}

}  // namespace dosmara
