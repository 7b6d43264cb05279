// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the parts and supplies of the machine, and on the money that it holds.
#include <algorithm>

#include "machine/arguments.h"
#include "machine/commands.h"

namespace machine {
namespace {

Supply SupplyFor(std::string_view name) {
  const auto found = std::ranges::find(kSupplyNames, name);
  if (found == kSupplyNames.end()) {
    throw CommandError("water, cups, coffee, stirrers, grounds or tray, not " + Quoted(name));
  }
  return static_cast<Supply>(found - kSupplyNames.begin());
}

std::string RaiseAlarm(Session& session, Arguments arguments) {
  if (arguments[0] == "clear") {
    session.machine.alarms().Clear();
  } else {
    session.machine.alarms().Raise(NumberIn("code", arguments[0], 0, kLargestAlarm));
  }
  return {};
}

std::string Exhaust(Session& session, Arguments arguments) {
  session.machine.supplies().Exhaust(SupplyFor(arguments[0]));
  return {};
}

std::string Service(Session& session, Arguments arguments) {
  if (arguments[0] != "all") {
    session.machine.supplies().Service(SupplyFor(arguments[0]));
    return {};
  }
  for (const std::string_view name : kSupplyNames) {
    session.machine.supplies().Service(SupplyFor(name));
  }
  return {};
}

std::string Break(Session& session, Arguments arguments) {
  if (session.machine.defects().Break(arguments[0])) {
    return {};
  }
  throw CommandError("no part " + Quoted(arguments[0]) + "; parts: " + Defects::Names());
}

std::string Mend(Session& session, Arguments arguments) {
  if (session.machine.defects().Mend(arguments[0])) {
    return {};
  }
  throw CommandError("no part " + Quoted(arguments[0]) + "; parts: " + Defects::Names());
}

std::string Door(Session& session, Arguments arguments) {
  session.machine.inputs().SetDoorOpen(OneOf(arguments[0], "open", "closed"));
  return {};
}

std::string Input(Session& session, Arguments arguments) {
  const bool on = OneOf(arguments[1], "on", "off");
  if (session.machine.inputs().SetByHand(arguments[0], on)) {
    return {};
  }
  throw CommandError("no input " + Quoted(arguments[0]) + "; inputs: " + Inputs::Names());
}

std::string Turn(Session& session, Arguments arguments) {
  session.machine.dispenser().SetSpiralTurn(
      std::chrono::milliseconds(NumberIn("time", arguments[0], 100, 60000)));
  return {};
}

std::string Tubes(Session& session, Arguments arguments) {
  const bool fill = OneOf(arguments[0], "fill", "empty");
  const std::uint32_t amount = NumberIn("amount", arguments[1], 1, 1000000);
  if (fill) {
    session.machine.till().FillTubes(amount);
  } else if (!session.machine.till().EmptyTubes(amount)) {
    throw CommandError("the tubes do not hold as much");
  }
  return {};
}

std::string Key(Session& session, Arguments arguments) {
  const auto refusal = session.machine.till().LoadKey(NumberIn("amount", arguments[0], 1, 1000000));
  if (!refusal.empty()) {
    throw CommandError(refusal);
  }
  return {};
}

}  // namespace

std::span<const Command> PartCommands() {
  static constexpr Command kCommands[] = {
      {"alarm", "CODE|clear", "logs an alarm, 0 to 203, or empties the log", 1, 1, RaiseAlarm},
      {"exhaust", "SUPPLY", "water, cups, coffee, stirrers run out; grounds, tray are full", 1, 1, Exhaust},
      {"service", "SUPPLY|all", "fills a supply, empties grounds or tray", 1, 1, Service},
      {"break", "PART", "breaks a part; a wrong name lists them all", 1, 1, Break},
      {"mend", "PART", "mends a part", 1, 1, Mend},
      {"door", "open|closed", "opens or closes the door", 1, 1, Door},
      {"input", "NAME on|off", "puts an input on or off by hand; a wrong name lists them all", 2, 2, Input},
      {"turn", "MS", "how long one turn of a spiral takes, 100 to 60000", 1, 1, Turn},
      {"tubes", "fill|empty AMOUNT", "puts money into the tubes for change, or takes it out", 2, 2, Tubes},
      {"key", "AMOUNT", "loads money onto a key", 1, 1, Key},
  };
  return kCommands;
}

}  // namespace machine
