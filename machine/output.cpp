// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/output.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace machine {
namespace {

// A pipe that is ready takes at least this much without waiting for its reader.
constexpr std::size_t kPiece = 512;

}  // namespace

void Output::Add(std::string_view line) {
  if (text_.size() + line.size() >= kMost) {
    ++lost_;
    return;
  }
  if (lost_ > 0) {
    text_ += "(" + std::to_string(std::exchange(lost_, 0)) + " lines lost)\n";
  }
  text_ += line;
  text_ += '\n';
  Flush();
}

void Output::Flush() {
  std::size_t written = 0;
  while (written < text_.size() && Ready()) {
    const ssize_t count =
        write(descriptor_, text_.data() + written, std::min(text_.size() - written, kPiece));
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
      break;
    }
    written = count < 0 ? text_.size() : written + static_cast<std::size_t>(count);
  }
  text_.erase(0, written);
}

bool Output::Ready() const {
  pollfd wait{.fd = descriptor_, .events = POLLOUT, .revents = 0};
  return poll(&wait, 1, 0) == 1;
}

}  // namespace machine
