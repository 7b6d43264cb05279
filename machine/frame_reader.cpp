// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/frame_reader.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace machine {
namespace {

constexpr std::uint8_t kForwardedRead = 241;
constexpr std::uint8_t kForwardedWrite = 242;
constexpr std::uint8_t kWriteBit = 128;
constexpr std::size_t kDirectHeader = 4;     // C B H A
constexpr std::size_t kForwardedHeader = 6;  // marker B H A C T
constexpr std::size_t kCheck = 1;

std::size_t DataBytes(unsigned length_less_one) {
  return std::min<std::size_t>(length_less_one + 1u, kMaxWriteData);
}

std::uint8_t Sum(std::span<const std::uint8_t> bytes) {
  return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0u));
}

}  // namespace

bool IsPortTest(const Request& request) {
  return request.node == 0 && !request.write && request.address == Address{};
}

int NodeOfLetter(std::uint8_t letter) {
  switch (letter) {
    case 'Q':
      return 1;
    case 'V':
      return 2;
    case 'W':
      return 3;
    default:
      return 0;
  }
}

std::size_t FrameLength(std::uint8_t first) {
  if (first >= kForwardedWrite) {
    return kForwardedHeader + DataBytes(first - kForwardedWrite) + kCheck;
  }
  if (first == kForwardedRead) {
    return kForwardedHeader + kCheck;
  }
  if (first & kWriteBit) {
    return kDirectHeader + DataBytes(first & 15u) + kCheck;
  }
  return kDirectHeader + kCheck;
}

std::optional<Request> DecodeFrame(std::span<const std::uint8_t> frame) {
  const std::uint8_t check = frame.back();
  if (Sum(frame.first(frame.size() - kCheck)) != check) {
    return std::nullopt;
  }

  const bool forwarded = frame[0] >= kForwardedRead;
  const std::uint8_t control = forwarded ? frame[4] : frame[0];
  Request request;
  request.write = (control & kWriteBit) != 0;
  if (forwarded) {
    request.node = NodeOfLetter(frame[5]);
    if (request.node == 0) {
      return std::nullopt;
    }
    const unsigned marker = request.write ? kForwardedWrite + (control & 15u) : kForwardedRead;
    if (frame[0] != marker) {
      return std::nullopt;
    }
  }
  request.address = {frame[1], frame[2], frame[3], static_cast<std::uint8_t>(control & ~kWriteBit)};
  const std::size_t header = forwarded ? kForwardedHeader : kDirectHeader;
  request.data.assign(frame.begin() + header, frame.end() - kCheck);
  request.check = check;
  request.frame.assign(frame.begin(), frame.end());
  return request;
}

void FrameReader::Push(std::uint8_t byte) {
  pending_.push_back(byte);
  Search(/*silent=*/false);
}

void FrameReader::Silence() {
  Search(/*silent=*/true);
  at_start_ = true;
}

std::optional<Request> FrameReader::TakeRequest() {
  if (requests_.empty()) {
    return std::nullopt;
  }
  Request request = std::move(requests_.front());
  requests_.pop_front();
  return request;
}

Bytes FrameReader::TakeDropped() { return std::exchange(dropped_, {}); }

void FrameReader::Search(bool silent) {
  while (!pending_.empty()) {
    const std::size_t length = FrameLength(pending_.front());
    if (pending_.size() < length) {
      if (!silent) {
        return;
      }
      DropFirst();
      continue;
    }
    if (auto request = DecodeFrame(std::span(pending_).first(length))) {
      requests_.push_back(std::move(*request));
      pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(length));
      at_start_ = true;
      continue;
    }
    const bool lone_frame = at_start_ && pending_.size() == length;
    if (!lone_frame) {
      DropFirst();
    } else if (silent) {
      dropped_.insert(dropped_.end(), pending_.begin(), pending_.end());
      pending_.clear();
    } else {
      return;  // the next byte, or silence, tells noise from a damaged frame
    }
  }
}

void FrameReader::DropFirst() {
  dropped_.push_back(pending_.front());
  pending_.erase(pending_.begin());
  at_start_ = false;
}

}  // namespace machine
