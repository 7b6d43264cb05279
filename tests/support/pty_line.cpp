// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/pty_line.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <system_error>
#include <utility>

#include "support/serial_lock.h"

namespace dosmara {

PtyLine::PtyLine(std::filesystem::path link) : link_(std::move(link)) { Plug(); }

PtyLine::~PtyLine() { Unplug(); }

void PtyLine::Plug() {
  char name[64] = {};
  termios raw = {};
  cfmakeraw(&raw);
  if (openpty(&machine_end_, &tool_end_, name, &raw, nullptr) != 0) {
    throw std::system_error(errno, std::generic_category(), "openpty");
  }
  fcntl(machine_end_, F_SETFL, O_NONBLOCK);
  device_ = name;
  AwaitUnlocked(device_);
  std::filesystem::remove(link_);
  std::filesystem::create_symlink(device_, link_);
}

// The link goes first: the system gives the number of a device that is gone to whoever asks next, and a tool
// that still finds the link would open a stranger's line.
void PtyLine::Unplug() {
  std::filesystem::remove(link_);
  close(std::exchange(tool_end_, -1));
  close(std::exchange(machine_end_, -1));
}

void PtyLine::Send(const Bytes& bytes) const {
  if (Offer(bytes) != bytes.size()) {
    throw std::system_error(errno, std::generic_category(), "write");
  }
}

std::size_t PtyLine::Offer(const Bytes& bytes) const {
  const ssize_t taken = write(machine_end_, bytes.data(), bytes.size());
  return taken > 0 ? static_cast<std::size_t>(taken) : 0;
}

Bytes PtyLine::Receive() const {
  Bytes bytes(4096);
  const ssize_t taken = read(machine_end_, bytes.data(), bytes.size());
  bytes.resize(taken > 0 ? static_cast<std::size_t>(taken) : 0);
  return bytes;
}

bool PtyLine::WaitForInput(std::chrono::milliseconds deadline) const {
  pollfd wait = {.fd = machine_end_, .events = POLLIN, .revents = 0};
  return poll(&wait, 1, static_cast<int>(deadline.count())) == 1;
}

}  // namespace dosmara
