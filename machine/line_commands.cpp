// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the boards that are there, on the line between machine and tool, and on the program.
#include <chrono>
#include <cstdio>
#include <string>

#include "machine/arguments.h"
#include "machine/commands.h"

namespace machine {
namespace {

// The nodes behind the main board for which `holds` is true, as "1,3".
template <typename Predicate>
std::string NodesWhere(Predicate holds) {
  std::string nodes;
  for (int node = 1; node < kNodeCount; ++node) {
    if (holds(node)) {
      nodes += (nodes.empty() ? "" : ",") + std::to_string(node);
    }
  }
  return nodes.empty() ? "none" : nodes;
}

std::string SetPresence(Session& session, std::string_view node, bool present) {
  session.machine.SetPresent(static_cast<int>(NumberIn("node", node, 1, kNodeCount - 1)), present);
  return {};
}

std::string Absent(Session& session, Arguments arguments) {
  return SetPresence(session, arguments[0], false);
}

std::string Present(Session& session, Arguments arguments) {
  return SetPresence(session, arguments[0], true);
}

template <int Identity::*kPart, std::uint32_t kLargest>
std::string SetIdentity(Session& session, Arguments arguments) {
  Identity identity = session.machine.board(0).identity();
  identity.*kPart = static_cast<int>(NumberIn("number", arguments[0], 0, kLargest));
  session.machine.board(0).SetIdentity(identity);
  return {};
}

std::string SetFault(Session& session, Arguments arguments) {
  if (arguments.size() == 1) {
    if (arguments[0] != "off") {
      throw CommandError("a count, a rate such as 5%, or off is missing");
    }
    session.machine.faults().ClearAll();
    return {};
  }
  const auto fault = FaultByName(arguments[0]);
  if (!fault) {
    throw CommandError("no fault " + Quoted(arguments[0]) + ", try help fault");
  }
  std::string_view amount = arguments[1];
  if (amount == "off") {
    session.machine.faults().SetCount(*fault, 0);
  } else if (amount.ends_with('%')) {
    amount.remove_suffix(1);
    session.machine.faults().SetRate(*fault, NumberIn("rate", amount, 0, 100) / 100.0);
  } else {
    session.machine.faults().SetCount(*fault, NumberIn("count", amount, 0, 1000000));
  }
  return {};
}

std::string Mute(Session& session, Arguments arguments) {
  session.machine.Mute(OneOf(arguments[0], "on", "off"));
  return {};
}

std::string Restart(Session& session, Arguments) {
  session.machine.Restart();
  return {};
}

std::string Unplug(Session& session, Arguments) {
  if (!session.plug.plugged()) {
    throw CommandError("unplugged already");
  }
  if (const auto failure = session.plug.Unplug(); !failure.empty()) {
    throw CommandError(failure);
  }
  return {};
}

std::string Replug(Session& session, Arguments) {
  if (session.plug.plugged()) {
    throw CommandError("plugged in already");
  }
  if (const auto failure = session.plug.Replug(); !failure.empty()) {
    throw CommandError(failure);
  }
  return {};
}

std::string Log(Session& session, Arguments arguments) {
  session.machine.log().Switch(OneOf(arguments[0], "on", "off"));
  return {};
}

std::string Status(Session& session, Arguments) {
  Machine& machine = session.machine;
  const std::string absent = NodesWhere([&](int node) { return !machine.presence().IsPresent(node); });
  const std::string testing = NodesWhere([&](int node) { return machine.InTest(node); });
  std::string faults;
  for (std::size_t i = 0; i < kFaultNames.size(); ++i) {
    if (!machine.faults().Armed(static_cast<Fault>(i))) {
      continue;
    }
    faults += (faults.empty() ? "" : ",") + std::string(kFaultNames[i]);
  }
  const Traffic& traffic = machine.traffic();
  const int minute = machine.calendar().minute_of_day();
  char text[512];
  std::snprintf(
      text, sizeof text,
      "time %.3f model %d plugged %s muted %s absent %s dispensing %s faults %s requests %u replies %u "
      "dropped %u serving %s connection %s frames/s %u errors %u speed %u clock %02d:%02d scenario %zu "
      "selling %s testing %s refused %u",
      std::chrono::duration<double>(machine.now()).count(), machine.board(0).identity().model,
      session.plug.plugged() ? "yes" : "no", machine.muted() ? "yes" : "no", absent.c_str(),
      machine.dispenser().busy() ? "yes" : "no", faults.empty() ? "none" : faults.c_str(), traffic.requests,
      traffic.replies, traffic.dropped_bytes, machine.dispenser().Describe().c_str(),
      machine.connected() ? "alive" : "quiet", machine.frames_per_second(), traffic.errors, machine.speed(),
      minute / 60, minute % 60, session.scenario.left(), machine.timetable().SwitchedOn() ? "yes" : "no",
      testing.c_str(), machine.remarks().refused());
  return text;
}

std::string Wait(Session& session, Arguments arguments) {
  session.resumes_at =
      session.machine.now() + std::chrono::milliseconds(NumberIn("time", arguments[0], 0, 86400000));
  return {};
}

std::string Quit(Session& session, Arguments) {
  session.plug.Quit();
  return {};
}

}  // namespace

std::span<const Command> LineCommands() {
  static constexpr Command kCommands[] = {
      {"absent", "NODE", "takes a board of nodes 1 to 3 away", 1, 1, Absent},
      {"present", "NODE", "puts a board of nodes 1 to 3 back", 1, 1, Present},
      {"model", "CODE", "changes the model code of node 0", 1, 1, SetIdentity<&Identity::model, 255>},
      {"board-code", "CODE", "changes the board code of node 0", 1, 1,
       SetIdentity<&Identity::board_code, 255>},
      {"type", "TYPE", "changes the board type of node 0", 1, 1, SetIdentity<&Identity::type, 65535>},
      {"revision", "NUMBER", "changes the software revision of node 0", 1, 1,
       SetIdentity<&Identity::revision, 255>},
      {"file-number", "NUMBER", "changes the index file number of node 0", 1, 1,
       SetIdentity<&Identity::file_number, 255>},
      {"fault", "NAME COUNT | NAME RATE% | NAME off | off",
       "silence, lost, late, flood, noise, corrupt, surplus: strikes so many replies, or a share of them", 1,
       2, SetFault},
      {"mute", "on|off", "makes the machine deaf and dumb", 1, 1, Mute},
      {"restart", "", "switches the machine off and on; values stay", 0, 0, Restart},
      {"unplug", "", "pulls the serial line out", 0, 0, Unplug},
      {"replug", "", "puts the serial line back under the same link", 0, 0, Replug},
      {"log", "on|off", "logs the frames", 1, 1, Log},
      {"status", "", "tells how the machine is", 0, 0, Status},
      {"wait", "MS", "holds the next command back for so many milliseconds", 1, 1, Wait,
       Allowed::kByHandOnly},
      {"quit", "", "ends the program", 0, 0, Quit},
  };
  return kCommands;
}

}  // namespace machine
