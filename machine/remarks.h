// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine was told to do and did not: a real one gives no sign of it, this one has it in its log and
// in its status.
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace machine {

class Remarks {
 public:
  // `sink` takes each remark.
  explicit Remarks(std::function<void(const std::string&)> sink) : sink_(std::move(sink)) {}

  // `command` has been refused, and why.
  void Refused(const std::string& command, const std::string& why) {
    ++refused_;
    sink_("refused: " + command + ": " + why);
  }
  // `command` waits, and for what.
  void Waits(const std::string& command, const std::string& until) { sink_(command + " waits: " + until); }

  unsigned refused() const { return refused_; }

 private:
  std::function<void(const std::string&)> sink_;
  unsigned refused_ = 0;
};

}  // namespace machine
