// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/frame.h"

#include <numeric>

namespace dosmara {

namespace {

constexpr std::uint8_t kFrameLengthMask = 15;

}  // namespace

std::uint8_t Sum(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0U));
}

Bytes EncodeRequest(const Request& request) {
  const bool write = (request.control & kWriteBit) != 0;
  const bool forward = request.letter != 0;
  Bytes frame;
  frame.reserve(7 + request.value.size());
  if (forward) {
    // The marker fits one byte for up to 14 bytes of data. No record that is written has as many.
    const int marker = write ? kForwardWrite + (request.control & kFrameLengthMask) : kForwardRead;
    frame.push_back(static_cast<std::uint8_t>(marker));
  } else {
    frame.push_back(request.control);
  }
  frame.push_back(request.bank);
  frame.push_back(request.addr_hi);
  frame.push_back(request.addr_lo);
  if (forward) {
    frame.push_back(request.control);
    frame.push_back(static_cast<std::uint8_t>(request.letter));
  }
  if (write) {
    frame.insert(frame.end(), request.value.begin(), request.value.end());
  }
  frame.push_back(Sum(frame));
  return frame;
}

Bytes PortTestFrame() { return Bytes(5, 0); }

bool IsGoodReadReply(std::span<const std::uint8_t> taken, std::size_t n) {
  return Sum(taken.first(n)) == taken.back();
}

bool IsGoodWriteReply(std::span<const std::uint8_t> taken, std::uint8_t checksum) {
  return taken.size() == 1 && taken[0] == static_cast<std::uint8_t>(2 * checksum);
}

}  // namespace dosmara
