// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/console.h"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

#include "machine/arguments.h"
#include "machine/main_board_records.h"

namespace machine {
namespace {

struct Place {
  int node;
  int record;
};

Place PlaceIn(Machine& machine, std::string_view node_text, std::string_view record_text) {
  const int node = static_cast<int>(NumberIn("node", node_text, 0, kNodeCount - 1));
  const auto last = static_cast<std::uint32_t>(machine.board(node).record_count());
  return {node, static_cast<int>(NumberIn("record of node " + std::to_string(node), record_text, 1, last))};
}

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

}  // namespace

Console::Console(Machine& machine, Plug& plug)
    : machine_(machine), plug_(plug), scenario_(CheckInScenario, [this](std::string_view command) {
        const std::string reply = Execute(command);
        machine_.log().Note(machine_.now(), "scenario: " + std::string(command) + ": " + reply);
      }) {
  machine_.EachSecond([this] { scenario_.OnSecond(); });
}

std::string Console::Play(const std::string& path) {
  return scenario_.Start(path, [this] { return machine_.calendar().second_of_day(); });
}

void Console::Add(std::string_view line) {
  const auto words = Words(line);
  if (!words.empty() && words.front().front() != '#') {
    lines_.emplace_back(line);
  }
}

std::optional<std::string> Console::RunNext() {
  if (lines_.empty() || machine_.now() < resumes_at_) {
    return std::nullopt;
  }
  const std::string line = std::move(lines_.front());
  lines_.pop_front();
  return Execute(line);
}

std::optional<Time> Console::resumes_at() const {
  if (lines_.empty()) {
    return std::nullopt;
  }
  return resumes_at_;
}

std::string Console::Get(Arguments arguments) {
  const Place place = PlaceIn(machine_, arguments[0], arguments[1]);
  return std::to_string(place.node) + " " + std::to_string(place.record) + " " +
         std::to_string(machine_.board(place.node).Get(place.record));
}

std::string Console::Set(Arguments arguments) {
  const Place place = PlaceIn(machine_, arguments[0], arguments[1]);
  const std::uint32_t largest = machine_.board(place.node).Largest(place.record);
  machine_.Set(place.node, place.record, NumberIn("value", arguments[2], 0, largest));
  return {};
}

std::string Console::Test(Arguments arguments) {
  const std::uint32_t command = NumberIn("command", arguments[0], 2, 7);
  const std::uint32_t selection = NumberIn("selection", arguments[1], 0, 255);
  const std::uint32_t part = arguments.size() == 3 ? NumberIn("part", arguments[2], 0, 255) : 0;
  if (machine_.dispenser().busy()) {
    throw CommandError("the machine is dispensing");
  }
  const std::pair<int, std::uint32_t> wanted[] = {
      {kSelectionRecord, selection}, {kPartRecord, part}, {kCommandRecord, command}};
  std::vector<std::pair<int, std::uint32_t>> before;
  for (const auto& [record, value] : wanted) {
    before.emplace_back(record, machine_.board(0).Get(record));
    machine_.Write(0, record, value);
  }
  if (machine_.dispenser().busy()) {
    return {};
  }
  for (const auto& [record, value] : before) {
    machine_.board(0).Set(record, value);
  }
  throw CommandError("the machine does not start that");
}

std::string Console::Absent(Arguments arguments) { return SetPresence(arguments[0], false); }

std::string Console::Present(Arguments arguments) { return SetPresence(arguments[0], true); }

std::string Console::SetPresence(std::string_view node, bool present) {
  machine_.SetPresent(static_cast<int>(NumberIn("node", node, 1, kNodeCount - 1)), present);
  return {};
}

std::string Console::SetFault(Arguments arguments) {
  if (arguments.size() == 1) {
    if (arguments[0] != "off") {
      throw CommandError("a count, a rate such as 5%, or off is missing");
    }
    machine_.faults().ClearAll();
    return {};
  }
  const auto fault = FaultByName(arguments[0]);
  if (!fault) {
    throw CommandError("no fault " + Quoted(arguments[0]) + ", try help fault");
  }
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
  machine_.Mute(OneOf(arguments[0], "on", "off"));
  return {};
}

std::string Console::Restart(Arguments) {
  machine_.Restart();
  return {};
}

std::string Console::Unplug(Arguments) {
  if (!plug_.plugged()) {
    throw CommandError("unplugged already");
  }
  if (const auto failure = plug_.Unplug(); !failure.empty()) {
    throw CommandError(failure);
  }
  return {};
}

std::string Console::Replug(Arguments) {
  if (plug_.plugged()) {
    throw CommandError("plugged in already");
  }
  if (const auto failure = plug_.Replug(); !failure.empty()) {
    throw CommandError(failure);
  }
  return {};
}

std::string Console::Log(Arguments arguments) {
  machine_.log().Switch(OneOf(arguments[0], "on", "off"));
  return {};
}

std::string Console::Status(Arguments) {
  const std::string absent = NodesWhere([this](int node) { return !machine_.presence().IsPresent(node); });
  const std::string testing = NodesWhere([this](int node) { return machine_.InTest(node); });
  std::string faults;
  for (std::size_t i = 0; i < kFaultNames.size(); ++i) {
    if (!machine_.faults().Armed(static_cast<Fault>(i))) {
      continue;
    }
    faults += (faults.empty() ? "" : ",") + std::string(kFaultNames[i]);
  }
  const Traffic& traffic = machine_.traffic();
  const int minute = machine_.calendar().minute_of_day();
  char text[512];
  std::snprintf(
      text, sizeof text,
      "time %.3f model %d plugged %s muted %s absent %s dispensing %s faults %s requests %u replies %u "
      "dropped %u serving %s connection %s frames/s %u errors %u speed %u clock %02d:%02d scenario %zu "
      "selling %s testing %s refused %u",
      std::chrono::duration<double>(machine_.now()).count(), machine_.board(0).identity().model,
      plug_.plugged() ? "yes" : "no", machine_.muted() ? "yes" : "no", absent.c_str(),
      machine_.dispenser().busy() ? "yes" : "no", faults.empty() ? "none" : faults.c_str(), traffic.requests,
      traffic.replies, traffic.dropped_bytes, machine_.dispenser().Describe().c_str(),
      machine_.connected() ? "alive" : "quiet", machine_.frames_per_second(), traffic.errors,
      machine_.speed(), minute / 60, minute % 60, scenario_.left(),
      machine_.timetable().SwitchedOn() ? "yes" : "no", testing.c_str(), machine_.remarks().refused());
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
