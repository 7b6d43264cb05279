// SPDX-License-Identifier: GPL-3.0-or-later
// A serial line in a test: a pseudo-terminal, its device under a link with a name of one's choice. The test
// holds the machine's end and can pull the plug.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>

#include "link/frame.h"

namespace dosmara {

class PtyLine {
 public:
  // Plugs the line in, its device under `link`.
  explicit PtyLine(std::filesystem::path link);
  ~PtyLine();
  PtyLine(const PtyLine&) = delete;
  PtyLine& operator=(const PtyLine&) = delete;

  // Takes the device away, or brings a new one under the same link.
  void Unplug();
  void Plug();

  // Sends bytes to the tool.
  void Send(const Bytes& bytes) const;
  // Sends as many of the bytes as the line takes at once, and returns how many.
  std::size_t Offer(const Bytes& bytes) const;
  // What the tool has sent by now.
  Bytes Receive() const;
  // Waits without delivering events until the tool has sent something; says whether it has.
  bool WaitForInput(std::chrono::milliseconds deadline) const;

  // The device behind the link.
  const std::string& device() const { return device_; }
  // The tool's end, to look at its settings.
  int tool_end() const { return tool_end_; }

 private:
  std::filesystem::path link_;
  std::string device_;
  int machine_end_ = -1;
  int tool_end_ = -1;
};

}  // namespace dosmara
