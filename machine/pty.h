// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's end of the serial line: a pseudo-terminal, and a link with a name of one's choice to the end
// that the tool opens.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "machine/frame_reader.h"

namespace machine {

// A file descriptor that is closed in the end.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }

 private:
  int number_;
};

// The line exists while the object does. Opens and closes by the tool leave no trace on it: the machine holds
// the tool's end open too, and in raw mode, so that nothing is echoed and no end of file ever shows.
class Pty {
 public:
  // Opens a line, and puts the link in place if `link` is not empty. Throws std::system_error, also where
  // something that is no symbolic link has the name already.
  explicit Pty(std::filesystem::path link);
  ~Pty();
  Pty(const Pty&) = delete;
  Pty& operator=(const Pty&) = delete;

  // The file descriptor to wait on.
  int descriptor() const { return machine_end_.number(); }
  // The device that the tool opens.
  const std::string& device() const { return device_; }

  // What the tool has written; nothing when there is nothing.
  Bytes Read();
  // Sends what the line takes. The rest is lost, as on a line to which nobody listens.
  void Write(std::span<const std::uint8_t> bytes);

 private:
  void PlaceLink() const;

  std::filesystem::path link_;
  Descriptor machine_end_;
  std::string device_;
  Descriptor tool_end_;
};

}  // namespace machine
