// SPDX-License-Identifier: GPL-3.0-or-later
// Lines for a reader who may be slow, or may not read at all: they wait here, so that the machine never does.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace machine {

class Output {
 public:
  // The most that waits, in bytes.
  static constexpr std::size_t kMost = 1 << 20;

  // Writes to a descriptor that stays open as long as this object.
  explicit Output(int descriptor) : descriptor_(descriptor) {}

  // Adds a line, which goes out at once if it can. A line for which there is no room is lost, and how many
  // were is told once there is room again.
  void Add(std::string_view line);
  // Writes what can be written without waiting. When writing fails, what waits is given up.
  void Flush();
  // True while lines wait for their reader.
  bool waiting() const { return !text_.empty(); }
  int descriptor() const { return descriptor_; }

 private:
  bool Ready() const;

  int descriptor_;
  std::string text_;
  unsigned lost_ = 0;
};

}  // namespace machine
