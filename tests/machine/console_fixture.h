// SPDX-License-Identifier: GPL-3.0-or-later
// A console with a machine whose plug is a flag.
#pragma once

#include "machine/console.h"
#include "machine_fixture.h"

namespace machine {

class FakePlug : public Plug {
 public:
  std::string Unplug() override {
    plugged_ = false;
    return {};
  }
  std::string Replug() override {
    if (failure_.empty()) {
      plugged_ = true;
    }
    return failure_;
  }
  bool plugged() const override { return plugged_; }
  void Quit() override { quit_ = true; }

  bool plugged_ = true;
  bool quit_ = false;
  std::string failure_;
};

class ConsoleTest : public MachineTest {
 protected:
  std::string Run(std::string_view line) { return console_.Execute(line); }

  FakePlug plug_;
  Console console_{machine_, plug_};
};

}  // namespace machine
