// SPDX-License-Identifier: GPL-3.0-or-later
// The operator's commands. Each is a row in one of the tables at the end and a function beside that table;
// help, usage and refusals come from the row.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "machine/clock.h"
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

// What the commands work on.
struct Session {
  Machine& machine;
  Plug& plug;
  Scenario& scenario;
  // The moment until which lines that wait are held back.
  Time resumes_at{0};
};

// The words behind a command's name.
using Arguments = std::span<const std::string_view>;

// Whether a scenario may hold the command.
enum class Allowed { kEverywhere, kByHandOnly };

struct Command {
  std::string_view name;
  std::string_view arguments;  // as the usage tells them
  std::string_view help;
  std::size_t least;  // arguments
  std::size_t most;
  // Returns what stands behind "ok" in the reply, or nothing. Throws CommandError.
  std::string (*run)(Session& session, Arguments arguments);
  Allowed allowed = Allowed::kEverywhere;
};

// All commands with what they do, one a line.
std::string CommandList();
// Carries out one command and returns the line for it.
std::string RunCommand(std::string_view line, Session& session);
// Why a line cannot stand in a scenario, or nothing.
std::string CheckInScenario(std::string_view line);
// Plays a scenario file. Returns what is wrong with it, or nothing.
std::string PlayScenario(Session& session, const std::string& path);

// The tables. Help lists the commands in this order.
std::span<const Command> RecordCommands();
std::span<const Command> SellingCommands();
std::span<const Command> PartCommands();
std::span<const Command> DayCommands();
std::span<const Command> LineCommands();

}  // namespace machine
