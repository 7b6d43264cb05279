// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/console.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "machine/main_board_records.h"
#include "machine/text.h"

namespace machine {
namespace {

constexpr int kSelectionRecord = 315;
constexpr int kPartRecord = 316;

// Why a command cannot be carried out.
struct CommandError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

std::uint32_t NumberIn(std::string_view what, std::string_view text, std::uint32_t least,
                       std::uint32_t largest) {
  if (const auto number = Number(text, least, largest)) return *number;
  throw CommandError(std::string(what) + " must be " + std::to_string(least) + " to " +
                     std::to_string(largest) + ", not " + Quoted(text));
}

bool OnOrOff(std::string_view text) {
  if (text == "on") return true;
  if (text == "off") return false;
  throw CommandError("on or off, not " + Quoted(text));
}

struct Place {
  int node;
  int record;
};

Place PlaceIn(Machine& machine, std::string_view node_text, std::string_view record_text) {
  const int node = static_cast<int>(NumberIn("node", node_text, 0, kNodeCount - 1));
  const auto last = static_cast<std::uint32_t>(machine.board(node).record_count());
  return {node, static_cast<int>(NumberIn("record of node " + std::to_string(node), record_text, 1, last))};
}

}  // namespace

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
      {"absent", "NODE", "takes a board of nodes 1 to 3 away", 1, 1, &Console::Absent},
      {"present", "NODE", "puts a board of nodes 1 to 3 back", 1, 1, &Console::Present},
      {"model", "CODE", "changes the model code of node 0", 1, 1, &Console::Model},
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

void Console::Add(std::string_view line) {
  const auto words = Words(line);
  if (!words.empty() && words.front().front() != '#') lines_.emplace_back(line);
}

std::optional<std::string> Console::RunNext() {
  if (lines_.empty() || machine_.now() < resumes_at_) return std::nullopt;
  const std::string line = std::move(lines_.front());
  lines_.pop_front();
  return Execute(line);
}

std::optional<Time> Console::resumes_at() const {
  if (lines_.empty()) return std::nullopt;
  return resumes_at_;
}

std::string Console::Execute(std::string_view line) {
  const auto words = Words(line);
  if (words.empty()) return "error: no command";
  const Command* command = Find(words.front());
  if (command == nullptr) return "error: no command " + Quoted(words.front()) + ", try help";
  const Arguments arguments = Arguments(words).subspan(1);
  if (arguments.size() < command->least || arguments.size() > command->most) {
    return "error: usage: " + std::string(command->name) + " " + std::string(command->arguments);
  }
  try {
    const std::string result = (this->*command->run)(arguments);
    return result.empty() ? "ok" : "ok " + result;
  } catch (const CommandError& error) {
    return std::string("error: ") + error.what();
  }
}

std::string Console::Help(Arguments arguments) {
  if (arguments.empty()) {
    std::string names;
    for (const Command& command : Commands())
      names += (names.empty() ? "" : ", ") + std::string(command.name);
    return names;
  }
  const Command* command = Find(arguments[0]);
  if (command == nullptr) throw CommandError("no command " + Quoted(arguments[0]));
  return std::string(command->name) + " " + std::string(command->arguments) + ": " +
         std::string(command->help);
}

std::string Console::Get(Arguments arguments) {
  const Place place = PlaceIn(machine_, arguments[0], arguments[1]);
  return std::to_string(place.node) + " " + std::to_string(place.record) + " " +
         std::to_string(machine_.board(place.node).Get(place.record));
}

std::string Console::Set(Arguments arguments) {
  const Place place = PlaceIn(machine_, arguments[0], arguments[1]);
  Board& board = machine_.board(place.node);
  board.Set(place.record, NumberIn("value", arguments[2], 0, board.Largest(place.record)));
  return {};
}

std::string Console::Test(Arguments arguments) {
  const std::uint32_t command = NumberIn("command", arguments[0], 1, 255);
  const std::uint32_t selection = NumberIn("selection", arguments[1], 0, 255);
  const std::uint32_t part = arguments.size() == 3 ? NumberIn("part", arguments[2], 0, 255) : 0;
  if (machine_.dispenser().busy()) throw CommandError("the machine is dispensing");
  machine_.Write(0, kSelectionRecord, selection);
  machine_.Write(0, kPartRecord, part);
  machine_.Write(0, kCommandRecord, command);
  return {};
}

std::string Console::Absent(Arguments arguments) { return SetPresence(arguments[0], false); }

std::string Console::Present(Arguments arguments) { return SetPresence(arguments[0], true); }

std::string Console::SetPresence(std::string_view node, bool present) {
  machine_.presence().SetPresent(static_cast<int>(NumberIn("node", node, 1, kNodeCount - 1)), present);
  return {};
}

std::string Console::Model(Arguments arguments) {
  Identity identity = machine_.board(0).identity();
  identity.model = static_cast<int>(NumberIn("model code", arguments[0], 0, 255));
  machine_.board(0).SetIdentity(identity);
  return {};
}

std::string Console::SetFault(Arguments arguments) {
  if (arguments.size() == 1) {
    if (arguments[0] != "off") throw CommandError("a count, a rate such as 5%, or off is missing");
    machine_.faults().ClearAll();
    return {};
  }
  const auto fault = FaultByName(arguments[0]);
  if (!fault) throw CommandError("no fault " + Quoted(arguments[0]) + ", try help fault");
  std::string_view amount = arguments[1];
  if (amount == "off") {
    machine_.faults().SetCount(*fault, 0);
  } else if (amount.ends_with('%')) {
    amount.remove_suffix(1);
    machine_.faults().SetRate(*fault, NumberIn("rate", amount, 0, 100) / 100.0);
  } else {
    machine_.faults().SetCount(*fault, NumberIn("count", amount, 0, 1000000));
  }
  return {};
}

std::string Console::Mute(Arguments arguments) {
  machine_.Mute(OnOrOff(arguments[0]));
  return {};
}

std::string Console::Restart(Arguments) {
  machine_.Restart();
  return {};
}

std::string Console::Unplug(Arguments) {
  if (!plug_.plugged()) throw CommandError("unplugged already");
  if (const auto failure = plug_.Unplug(); !failure.empty()) throw CommandError(failure);
  return {};
}

std::string Console::Replug(Arguments) {
  if (plug_.plugged()) throw CommandError("plugged in already");
  if (const auto failure = plug_.Replug(); !failure.empty()) throw CommandError(failure);
  return {};
}

std::string Console::Log(Arguments arguments) {
  machine_.log().Switch(OnOrOff(arguments[0]));
  return {};
}

std::string Console::Status(Arguments) {
  std::string absent;
  for (int node = 1; node < kNodeCount; ++node) {
    if (!machine_.presence().IsPresent(node)) absent += (absent.empty() ? "" : ",") + std::to_string(node);
  }
  std::string faults;
  for (std::size_t i = 0; i < kFaultNames.size(); ++i) {
    if (!machine_.faults().Armed(static_cast<Fault>(i))) continue;
    faults += (faults.empty() ? "" : ",") + std::string(kFaultNames[i]);
  }
  const Traffic& traffic = machine_.traffic();
  char text[256];
  std::snprintf(
      text, sizeof text,
      "time %.3f model %d plugged %s muted %s absent %s dispensing %s faults %s requests %u replies %u "
      "dropped %u",
      std::chrono::duration<double>(machine_.now()).count(), machine_.board(0).identity().model,
      plug_.plugged() ? "yes" : "no", machine_.muted() ? "yes" : "no",
      absent.empty() ? "none" : absent.c_str(), machine_.dispenser().busy() ? "yes" : "no",
      faults.empty() ? "none" : faults.c_str(), traffic.requests, traffic.replies, traffic.dropped_bytes);
  return text;
}

std::string Console::Wait(Arguments arguments) {
  resumes_at_ = machine_.now() + std::chrono::milliseconds(NumberIn("time", arguments[0], 0, 86400000));
  return {};
}

std::string Console::Quit(Arguments) {
  plug_.Quit();
  return {};
}

}  // namespace machine
