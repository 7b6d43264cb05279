// SPDX-License-Identifier: GPL-3.0-or-later
// The operator's side of the machine: commands, one a line, each with one line in return that begins with
// "ok" or "error: ". A bad command changes nothing.
#pragma once

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "machine/machine.h"
#include "machine/scenario.h"

namespace machine {

// The plug between the machine and the tool's computer, and the program around the machine.
class Plug {
 public:
  virtual ~Plug() = default;
  // Each returns what went wrong, or nothing.
  virtual std::string Unplug() = 0;
  virtual std::string Replug() = 0;
  virtual bool plugged() const = 0;
  virtual void Quit() = 0;
};

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
  std::string Execute(std::string_view line);

  // Plays a scenario file. Returns what is wrong with it, or nothing.
  std::string Play(const std::string& path);

  // All commands with what they do, one a line.
  static std::string CommandList();

 private:
  using Arguments = std::span<const std::string_view>;
  struct Command;
  static std::span<const Command> Commands();
  static const Command* Find(std::string_view name);
  static std::string Usage(const Command& command);
  // Why a line cannot be a command, or nothing.
  static std::string Check(std::string_view line);
  static std::string CheckInScenario(std::string_view line);

  std::string Help(Arguments arguments);
  std::string Get(Arguments arguments);
  std::string Set(Arguments arguments);
  std::string Test(Arguments arguments);
  std::string Absent(Arguments arguments);
  std::string Present(Arguments arguments);
  std::string SetFault(Arguments arguments);
  std::string Mute(Arguments arguments);
  std::string Restart(Arguments arguments);
  std::string Unplug(Arguments arguments);
  std::string Replug(Arguments arguments);
  std::string Log(Arguments arguments);
  std::string Status(Arguments arguments);
  std::string Wait(Arguments arguments);
  std::string Quit(Arguments arguments);

  std::string Vend(Arguments arguments);
  std::string Customers(Arguments arguments);
  std::string RaiseAlarm(Arguments arguments);
  std::string Exhaust(Arguments arguments);
  std::string Service(Arguments arguments);
  std::string Break(Arguments arguments);
  std::string Mend(Arguments arguments);
  std::string Door(Arguments arguments);
  std::string Input(Arguments arguments);
  std::string Turn(Arguments arguments);
  std::string Tubes(Arguments arguments);
  std::string Key(Arguments arguments);
  std::string Clock(Arguments arguments);
  std::string Languages(Arguments arguments);
  std::string Speed(Arguments arguments);
  std::string PlayScenario(Arguments arguments);
  template <int Identity::*kPart, std::uint32_t kLargest>
  std::string SetIdentity(Arguments arguments);

  std::string SetPresence(std::string_view node, bool present);

  Machine& machine_;
  Plug& plug_;
  Scenario scenario_;
  std::deque<std::string> lines_;
  Time resumes_at_{0};
};

}  // namespace machine
