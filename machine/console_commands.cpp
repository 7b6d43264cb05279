// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the operator's commands, and what is done by it alone.
#include <algorithm>

#include "machine/arguments.h"
#include "machine/console.h"

namespace machine {

struct Console::Command {
  std::string_view name;
  std::string_view arguments;
  std::string_view help;
  std::size_t least;
  std::size_t most;
  std::string (Console::*run)(Arguments);
};

std::span<const Console::Command> Console::Commands() {
  static constexpr Command kCommands[] = {
      {"help", "[COMMAND]", "lists the commands, or explains one", 0, 1, &Console::Help},
      {"get", "NODE RECORD", "prints node, record and value", 2, 2, &Console::Get},
      {"set", "NODE RECORD VALUE", "changes what a board holds", 3, 3, &Console::Set},
      {"test", "COMMAND SELECTION [PART]", "starts a test as the tool would, by records 314 to 316", 2, 3,
       &Console::Test},
      {"vend",
       "SELECTION|NODE:POSITION [paid [AMOUNT]|bill [AMOUNT]|token [1-3]|key|free] [jug] [sugar] [milk] "
       "[no-cup]",
       "one customer, at selection 1 to 16 or 21 to 26, or at a position such as 2:34", 1, 7, &Console::Vend},
      {"customers", "COUNT", "lets so many customers an hour come by themselves", 1, 1, &Console::Customers},
      {"alarm", "CODE|clear", "logs an alarm, 0 to 203, or empties the log", 1, 1, &Console::RaiseAlarm},
      {"exhaust", "SUPPLY", "water, cups, coffee, stirrers run out; grounds, tray are full", 1, 1,
       &Console::Exhaust},
      {"service", "SUPPLY|all", "fills a supply, empties grounds or tray", 1, 1, &Console::Service},
      {"break", "PART", "breaks a part; a wrong name lists them all", 1, 1, &Console::Break},
      {"mend", "PART", "mends a part", 1, 1, &Console::Mend},
      {"door", "open|closed", "opens or closes the door", 1, 1, &Console::Door},
      {"input", "NAME on|off", "puts an input on or off by hand; a wrong name lists them all", 2, 2,
       &Console::Input},
      {"turn", "MS", "how long one turn of a spiral takes, 100 to 60000", 1, 1, &Console::Turn},
      {"tubes", "fill|empty AMOUNT", "puts money into the tubes for change, or takes it out", 2, 2,
       &Console::Tubes},
      {"key", "AMOUNT", "loads money onto a key", 1, 1, &Console::Key},
      {"clock", "HH:MM [YYYY-MM-DD] | fitted | missing", "sets the clock, or puts it in or out", 1, 2,
       &Console::Clock},
      {"languages", "4|8", "how many languages the machine speaks", 1, 1, &Console::Languages},
      {"speed", "FACTOR", "lets clock, temperatures, customers and scenario run 1 to 3600 times faster", 1, 1,
       &Console::Speed},
      {"scenario", "FILE|stop", "plays a file of commands by the clock", 1, 1, &Console::PlayScenario},
      {"absent", "NODE", "takes a board of nodes 1 to 3 away", 1, 1, &Console::Absent},
      {"present", "NODE", "puts a board of nodes 1 to 3 back", 1, 1, &Console::Present},
      {"model", "CODE", "changes the model code of node 0", 1, 1,
       &Console::SetIdentity<&Identity::model, 255>},
      {"board-code", "CODE", "changes the board code of node 0", 1, 1,
       &Console::SetIdentity<&Identity::board_code, 255>},
      {"type", "TYPE", "changes the board type of node 0", 1, 1,
       &Console::SetIdentity<&Identity::type, 65535>},
      {"revision", "NUMBER", "changes the software revision of node 0", 1, 1,
       &Console::SetIdentity<&Identity::revision, 255>},
      {"file-number", "NUMBER", "changes the index file number of node 0", 1, 1,
       &Console::SetIdentity<&Identity::file_number, 255>},
      {"fault", "NAME COUNT | NAME RATE% | NAME off | off",
       "silence, lost, late, flood, noise, corrupt, surplus: strikes so many replies, or a share of them", 1,
       2, &Console::SetFault},
      {"mute", "on|off", "makes the machine deaf and dumb", 1, 1, &Console::Mute},
      {"restart", "", "switches the machine off and on; values stay", 0, 0, &Console::Restart},
      {"unplug", "", "pulls the serial line out", 0, 0, &Console::Unplug},
      {"replug", "", "puts the serial line back under the same link", 0, 0, &Console::Replug},
      {"log", "on|off", "logs the frames", 1, 1, &Console::Log},
      {"status", "", "tells how the machine is", 0, 0, &Console::Status},
      {"wait", "MS", "holds the next command back for so many milliseconds", 1, 1, &Console::Wait},
      {"quit", "", "ends the program", 0, 0, &Console::Quit},
  };
  return kCommands;
}

const Console::Command* Console::Find(std::string_view name) {
  const auto commands = Commands();
  const auto found = std::ranges::find(commands, name, &Command::name);
  return found == commands.end() ? nullptr : &*found;
}

std::string Console::Usage(const Command& command) {
  const std::string name(command.name);
  return command.arguments.empty() ? name : name + " " + std::string(command.arguments);
}

std::string Console::CommandList() {
  std::string text;
  for (const Command& command : Commands()) {
    text += "  " + Usage(command) + "\n      " + std::string(command.help) + "\n";
  }
  return text;
}

std::string Console::Check(std::string_view line) {
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

// A scenario keeps the time of its lines by itself, and begins no other.
std::string Console::CheckInScenario(std::string_view line) {
  if (auto wrong = Check(line); !wrong.empty()) {
    return wrong;
  }
  const std::string_view name = Words(line).front();
  if (name == "wait" || name == "scenario") {
    return Quoted(name) + " has no place in a scenario";
  }
  return {};
}

std::string Console::Execute(std::string_view line) {
  if (const auto wrong = Check(line); !wrong.empty()) {
    return "error: " + wrong;
  }
  const auto words = Words(line);
  try {
    const std::string result = (this->*Find(words.front())->run)(Arguments(words).subspan(1));
    return result.empty() ? "ok" : "ok " + result;
  } catch (const CommandError& error) {
    return std::string("error: ") + error.what();
  }
}

std::string Console::Help(Arguments arguments) {
  if (arguments.empty()) {
    std::string names;
    for (const Command& command : Commands()) {
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

template <int Identity::*kPart, std::uint32_t kLargest>
std::string Console::SetIdentity(Arguments arguments) {
  Identity identity = machine_.board(0).identity();
  identity.*kPart = static_cast<int>(NumberIn("number", arguments[0], 0, kLargest));
  machine_.board(0).SetIdentity(identity);
  return {};
}

}  // namespace machine
