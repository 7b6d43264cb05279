// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the records of the boards.
#include <string>
#include <utility>
#include <vector>

#include "machine/arguments.h"
#include "machine/commands.h"
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

std::string Get(Session& session, Arguments arguments) {
  const Place place = PlaceIn(session.machine, arguments[0], arguments[1]);
  return std::to_string(place.node) + " " + std::to_string(place.record) + " " +
         std::to_string(session.machine.board(place.node).Get(place.record));
}

std::string Set(Session& session, Arguments arguments) {
  const Place place = PlaceIn(session.machine, arguments[0], arguments[1]);
  const std::uint32_t largest = session.machine.board(place.node).Largest(place.record);
  session.machine.Set(place.node, place.record, NumberIn("value", arguments[2], 0, largest));
  return {};
}

std::string Test(Session& session, Arguments arguments) {
  const std::uint32_t command = NumberIn("command", arguments[0], 2, 7);
  const std::uint32_t selection = NumberIn("selection", arguments[1], 0, 255);
  const std::uint32_t part = arguments.size() == 3 ? NumberIn("part", arguments[2], 0, 255) : 0;
  if (session.machine.dispenser().busy()) {
    throw CommandError("the machine is dispensing");
  }
  const std::pair<int, std::uint32_t> wanted[] = {
      {kSelectionRecord, selection}, {kPartRecord, part}, {kCommandRecord, command}};
  std::vector<std::pair<int, std::uint32_t>> before;
  for (const auto& [record, value] : wanted) {
    before.emplace_back(record, session.machine.board(0).Get(record));
    session.machine.Write(0, record, value);
  }
  if (session.machine.dispenser().busy()) {
    return {};
  }
  for (const auto& [record, value] : before) {
    session.machine.board(0).Set(record, value);
  }
  throw CommandError("the machine does not start that");
}

}  // namespace

std::span<const Command> RecordCommands() {
  static constexpr Command kCommands[] = {
      {"get", "NODE RECORD", "prints node, record and value", 2, 2, Get},
      {"set", "NODE RECORD VALUE", "changes what a board holds", 3, 3, Set},
      {"test", "COMMAND SELECTION [PART]", "starts a test as the tool would, by records 314 to 316", 2, 3,
       Test},
  };
  return kCommands;
}

}  // namespace machine
