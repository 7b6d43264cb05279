// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/pty.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace machine {
namespace {

int Checked(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
  return result;
}

// What a serial device without any line discipline does: no echo, no signals, no translation, bytes at once.
void MakeRaw(int terminal) {
  termios settings{};
  Checked(tcgetattr(terminal, &settings), "serial line");
  settings.c_iflag = 0;
  settings.c_oflag = 0;
  settings.c_lflag = 0;
  settings.c_cflag = CS8 | CREAD | CLOCAL;
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  cfsetispeed(&settings, B19200);
  cfsetospeed(&settings, B19200);
  Checked(tcsetattr(terminal, TCSANOW, &settings), "serial line");
}

int OpenMachineEnd() { return Checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "pseudo-terminal"); }

// Makes the other end ready to be opened, and gives its name.
std::string Unlock(int machine_end) {
  Checked(grantpt(machine_end), "pseudo-terminal");
  Checked(unlockpt(machine_end), "pseudo-terminal");
  return ptsname(machine_end);
}

int OpenToolEnd(const std::string& device) {
  return Checked(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), device.c_str());
}

}  // namespace

Descriptor::~Descriptor() { close(number_); }

Pty::Pty(std::filesystem::path link)
    : link_(std::move(link)),
      machine_end_(OpenMachineEnd()),
      device_(Unlock(machine_end_.number())),
      tool_end_(OpenToolEnd(device_)) {
  MakeRaw(tool_end_.number());
  Checked(fcntl(machine_end_.number(), F_SETFL, O_NONBLOCK), device_.c_str());
  if (!link_.empty()) {
    PlaceLink();
  }
}

Pty::~Pty() {
  std::error_code ignored;
  if (!link_.empty() && std::filesystem::read_symlink(link_, ignored) == device_) {
    std::filesystem::remove(link_, ignored);
  }
}

Bytes Pty::Read() {
  Bytes bytes(4096);
  const ssize_t count = read(machine_end_.number(), bytes.data(), bytes.size());
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

void Pty::Write(std::span<const std::uint8_t> bytes) {
  [[maybe_unused]] const ssize_t taken = write(machine_end_.number(), bytes.data(), bytes.size());
}

// The new link takes the place of an old one in one step, so that the name is never missing. Nothing but a
// symbolic link is ever replaced: what else stands under the name is somebody's file.
void Pty::PlaceLink() const {
  const std::filesystem::path fresh = link_.string() + ".new";
  std::error_code ignored;
  for (const auto& place : {link_, fresh}) {
    const auto status = std::filesystem::symlink_status(place, ignored);
    if (!std::filesystem::exists(status) || std::filesystem::is_symlink(status)) {
      continue;
    }
    throw std::system_error(std::make_error_code(std::errc::file_exists), place.string() + " is no link");
  }
  std::error_code failure;
  std::filesystem::remove(fresh, ignored);
  std::filesystem::create_symlink(device_, fresh, failure);
  if (!failure) {
    std::filesystem::rename(fresh, link_, failure);
  }
  if (!failure) {
    return;
  }
  std::filesystem::remove(fresh, ignored);
  throw std::system_error(failure, link_.string());
}

}  // namespace machine
