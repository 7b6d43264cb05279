// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the machine's clock, and on the day that it plays.
#include <chrono>
#include <optional>
#include <vector>

#include "machine/arguments.h"
#include "machine/commands.h"
#include "machine/main_board_records.h"

namespace machine {
namespace {

// Records that set the clock: hour, minute, day, month, year less 2000.
constexpr int kFirstClockRecord = 326;

// Year less 2000, month and day of a date as "2024-03-04".
std::vector<std::uint32_t> DateFields(std::string_view text) {
  std::vector<std::uint32_t> fields;
  if (text.size() == 10 && text[4] == '-' && text[7] == '-') {
    const auto year = Number(text.substr(0, 4), 2000, 2099);
    const auto month = Number(text.substr(5, 2), 1, 12);
    const auto day = Number(text.substr(8, 2), 1, 31);
    const auto date = [](auto y, auto m, auto d) {
      return std::chrono::year(static_cast<int>(y)) / std::chrono::month(m) / std::chrono::day(d);
    };
    if (year && month && day && date(*year, *month, *day).ok()) {
      fields = {*year - 2000, *month, *day};
    }
  }
  if (fields.empty()) {
    throw CommandError("a date such as 2024-03-04, not " + Quoted(text));
  }
  return fields;
}

std::string Clock(Session& session, Arguments arguments) {
  if (arguments[0] == "fitted" || arguments[0] == "missing") {
    if (arguments.size() != 1) {
      throw CommandError("usage: clock fitted|missing");
    }
    session.machine.calendar().SetFitted(arguments[0] == "fitted");
    return {};
  }
  const auto time = TimeOfDay(arguments[0]);
  if (!time || *time % 60 != 0) {
    throw CommandError("a time such as 08:00, not " + Quoted(arguments[0]));
  }
  std::vector<std::uint32_t> date;
  if (arguments.size() == 2) {
    date = DateFields(arguments[1]);
  }
  if (!session.machine.calendar().fitted()) {
    throw CommandError("no clock is fitted");
  }
  const auto seconds = static_cast<std::uint32_t>(*time);
  std::vector<std::uint32_t> fields = {seconds / 3600, seconds / 60 % 60};
  fields.insert(fields.end(), date.rbegin(), date.rend());
  int record = kFirstClockRecord;
  for (const std::uint32_t field : fields) {
    session.machine.Set(0, record++, field);
  }
  return {};
}

std::string Languages(Session& session, Arguments arguments) {
  SetBits(session.machine.board(0), kStatusRecord, kEightLanguagesBit, OneOf(arguments[0], "8", "4"));
  return {};
}

std::string Speed(Session& session, Arguments arguments) {
  session.machine.SetSpeed(NumberIn("factor", arguments[0], 1, 3600));
  return {};
}

std::string Play(Session& session, Arguments arguments) {
  if (arguments[0] == "stop") {
    session.scenario.Stop();
    return {};
  }
  if (const auto wrong = PlayScenario(session, std::string(arguments[0])); !wrong.empty()) {
    throw CommandError(wrong);
  }
  return std::to_string(session.scenario.left()) + " lines to come";
}

}  // namespace

std::string PlayScenario(Session& session, const std::string& path) {
  return session.scenario.Start(path, [&session] { return session.machine.calendar().second_of_day(); });
}

std::span<const Command> DayCommands() {
  static constexpr Command kCommands[] = {
      {"clock", "HH:MM [YYYY-MM-DD] | fitted | missing", "sets the clock, or puts it in or out", 1, 2, Clock},
      {"languages", "4|8", "how many languages the machine speaks", 1, 1, Languages},
      {"speed", "FACTOR", "lets clock, temperatures, customers and scenario run 1 to 3600 times faster", 1, 1,
       Speed},
      {"scenario", "FILE|stop", "plays a file of commands by the clock", 1, 1, Play, Allowed::kByHandOnly},
  };
  return kCommands;
}

}  // namespace machine
