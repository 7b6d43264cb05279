// SPDX-License-Identifier: GPL-3.0-or-later
// The operator's side of the machine: commands, one a line, each with one line in return that begins with
// "ok" or "error: ". A bad command changes nothing.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "machine/commands.h"
#include "machine/machine.h"
#include "machine/scenario.h"

namespace machine {

class Console {
 public:
  Console(Machine& machine, Plug& plug);

  // Adds a line to those that wait. An empty line and one that begins with "#" are passed over.
  void Add(std::string_view line);
  // Carries out the next line that waits; nothing when none does, or while a "wait" lasts.
  std::optional<std::string> RunNext();
  // The moment at which RunNext goes on after a "wait", while lines are held back by it.
  std::optional<Time> resumes_at() const;

  // Carries out one command and returns the line for it.
  std::string Execute(std::string_view line) { return RunCommand(line, session_); }

  // Plays a scenario file. Returns what is wrong with it, or nothing.
  std::string Play(const std::string& path) { return PlayScenario(session_, path); }

 private:
  Scenario scenario_;
  Session session_;
  std::deque<std::string> lines_;
};

}  // namespace machine
