// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the requests in the bytes that a service tool sends.
//
//   read, node 0         C B H A S                      C below 128
//   write, node 0        C B H A D1..Dm S               C from 128 to 240
//   read, nodes 1 to 3   241 B H A C T S                C below 128
//   write, nodes 1 to 3  242+L B H A C T D1..Dm S       C from 128, its low nibble is L
//
// L is the data length less one, m the data bytes that travel: L + 1, but never more than four. T is the
// letter of the node. S is the sum of all bytes before it, modulo 256. Data is least significant byte first.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace machine {

inline constexpr int kNodeCount = 4;
inline constexpr std::size_t kMaxWriteData = 4;

using Bytes = std::vector<std::uint8_t>;

// Where a value lies on its board. Control is kept without the bit that marks a write.
struct Address {
  std::uint8_t bank = 0;
  std::uint8_t high = 0;
  std::uint8_t low = 0;
  std::uint8_t control = 0;

  // Bytes of the value.
  std::size_t length() const { return (control & 15u) + 1u; }
  auto operator<=>(const Address&) const = default;
};

// One request whose check is right.
struct Request {
  int node = 0;
  bool write = false;
  Address address;
  Bytes data;              // what a write carries
  std::uint8_t check = 0;  // S
  Bytes frame;             // all bytes as they came
};

// A read of node 0 at address 0, by which a tool finds out whether a machine is there.
bool IsPortTest(const Request& request);

// The node that a letter of a forwarded frame calls: Q node 1, V node 2, W node 3, any other 0.
int NodeOfLetter(std::uint8_t letter);

// The length of the frame that begins with `first`.
std::size_t FrameLength(std::uint8_t first);

// Reads `frame`, which has the length that its first byte asks for. Gives nothing for a wrong check, and
// nothing for a header that contradicts itself or names no node.
std::optional<Request> DecodeFrame(std::span<const std::uint8_t> frame);

// Turns bytes into requests. A frame is taken when its last byte arrives. When the bytes at hand are no
// frame, the reader looks for one at each byte behind the first, so that noise ahead of a request does not
// hide the request. A single frame with a wrong check, alone between two silences, is dropped whole: bytes
// inside it are never taken for a request.
class FrameReader {
 public:
  // Takes the next byte from the line.
  void Push(std::uint8_t byte);
  // The line has been silent: whatever has not become a frame by now never will.
  void Silence();

  // The next request, in the order of arrival.
  std::optional<Request> TakeRequest();
  // Bytes that belonged to no request, since the last call.
  Bytes TakeDropped();

 private:
  void Search(bool silent);
  void DropFirst();

  Bytes pending_;
  // True while pending_ begins where a frame should: behind a silence or behind a request.
  bool at_start_ = true;
  std::deque<Request> requests_;
  Bytes dropped_;
};

}  // namespace machine
