// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated machine's frame reader: whatever comes, a request has the right check, and no byte is lost or
// taken twice. A byte of 0xFE is a silence, other bytes are themselves.
#include <cstdlib>

#include "machine/frame_reader.h"

namespace {

constexpr std::uint8_t kSilenceMark = 0xFE;

// The bytes of all requests that wait.
std::size_t CheckRequests(machine::FrameReader& reader) {
  std::size_t bytes = 0;
  while (const auto request = reader.TakeRequest()) {
    unsigned sum = 0;
    for (std::size_t i = 0; i + 1 < request->frame.size(); ++i) {
      sum += request->frame[i];
    }
    if (sum % 256 != request->frame.back()) {
      std::abort();
    }
    bytes += request->frame.size();
  }
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  machine::FrameReader reader;
  std::size_t pushed = 0;
  std::size_t seen = 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == kSilenceMark) {
      reader.Silence();
    } else {
      reader.Push(data[i]);
      ++pushed;
    }
    seen += CheckRequests(reader);
  }
  reader.Silence();
  seen += CheckRequests(reader) + reader.TakeDropped().size();
  if (seen != pushed) {
    std::abort();
  }
  return 0;
}
