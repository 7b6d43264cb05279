// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/commands.h"

#include <algorithm>
#include <vector>

#include "machine/arguments.h"
#include "machine/text.h"

namespace machine {
namespace {

std::string Help(Session&, Arguments arguments);

std::vector<Command> JoinTables() {
  std::vector<Command> commands = {{"help", "[COMMAND]", "lists the commands, or explains one", 0, 1, Help}};
  for (const auto table :
       {RecordCommands(), SellingCommands(), PartCommands(), DayCommands(), LineCommands()}) {
    commands.insert(commands.end(), table.begin(), table.end());
  }
  return commands;
}

const std::vector<Command>& AllCommands() {
  static const std::vector<Command> commands = JoinTables();
  return commands;
}

const Command* Find(std::string_view name) {
  const auto& commands = AllCommands();
  const auto found = std::ranges::find(commands, name, &Command::name);
  return found == commands.end() ? nullptr : &*found;
}

std::string Usage(const Command& command) {
  const std::string name(command.name);
  return command.arguments.empty() ? name : name + " " + std::string(command.arguments);
}

// Why a line cannot be a command, or nothing.
std::string Check(std::string_view line) {
  const auto words = Words(line);
  if (words.empty()) {
    return "no command";
  }
  const Command* command = Find(words.front());
  if (command == nullptr) {
    return "no command " + Quoted(words.front()) + ", try help";
  }
  const std::size_t arguments = words.size() - 1;
  if (arguments >= command->least && arguments <= command->most) {
    return {};
  }
  return "usage: " + Usage(*command);
}

std::string Help(Session&, Arguments arguments) {
  if (arguments.empty()) {
    std::string names;
    for (const Command& command : AllCommands()) {
      names += (names.empty() ? "" : ", ") + std::string(command.name);
    }
    return names;
  }
  const Command* command = Find(arguments[0]);
  if (command == nullptr) {
    throw CommandError("no command " + Quoted(arguments[0]));
  }
  return Usage(*command) + ": " + std::string(command->help);
}

}  // namespace

std::string CommandList() {
  std::string text;
  for (const Command& command : AllCommands()) {
    text += "  " + Usage(command) + "\n      " + std::string(command.help) + "\n";
  }
  return text;
}

std::string CheckInScenario(std::string_view line) {
  if (auto wrong = Check(line); !wrong.empty()) {
    return wrong;
  }
  const Command& command = *Find(Words(line).front());
  if (command.allowed == Allowed::kByHandOnly) {
    return Quoted(command.name) + " has no place in a scenario";
  }
  return {};
}

std::string RunCommand(std::string_view line, Session& session) {
  if (const auto wrong = Check(line); !wrong.empty()) {
    return "error: " + wrong;
  }
  const auto words = Words(line);
  try {
    const std::string result = Find(words.front())->run(session, Arguments(words).subspan(1));
    return result.empty() ? "ok" : "ok " + result;
  } catch (const CommandError& error) {
    return std::string("error: ") + error.what();
  }
}

}  // namespace machine
