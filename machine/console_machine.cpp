// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the machine behind the line: its customers, parts, supplies and clock.
#include <algorithm>
#include <vector>

#include "machine/arguments.h"
#include "machine/console.h"
#include "machine/main_board_records.h"
#include "machine/positions.h"

namespace machine {
namespace {

// Records that set the clock: hour, minute, day, month, year less 2000.
constexpr int kFirstClockRecord = 326;

// Words of a sale.
struct PaymentWord {
  std::string_view word;
  Payment payment;
};
constexpr PaymentWord kPayments[] = {{"paid", Payment::kCoins},
                                     {"bill", Payment::kBill},
                                     {"token", Payment::kToken},
                                     {"key", Payment::kKey},
                                     {"free", Payment::kFree}};
struct ExtraWord {
  std::string_view word;
  bool Order::*field;
};
constexpr ExtraWord kExtras[] = {{"jug", &Order::jug},
                                 {"sugar", &Order::extra_sugar},
                                 {"milk", &Order::extra_milk},
                                 {"no-cup", &Order::no_cup}};

// A selection as "3", a position as "2:34".
Order OrderFor(std::string_view text) {
  Order order;
  const auto colon = text.find(':');
  std::optional<int> index;
  if (colon == std::string_view::npos) {
    if (const auto number = Number(text, 1, 26)) {
      index = SelectionOfNumber(static_cast<int>(*number));
    }
  } else {
    const auto node = Number(text.substr(0, colon), 2, 3);
    const auto position = Number(text.substr(colon + 1), 11, 68);
    if (node && position) {
      order.node = static_cast<int>(*node);
      index = PositionAt(static_cast<int>(*position / 10), static_cast<int>(*position % 10));
    }
  }
  if (!index) {
    throw CommandError("a selection such as 3 or a position such as 2:34, not " + Quoted(text));
  }
  order.index = *index;
  return order;
}

Supply SupplyFor(std::string_view name) {
  const auto found = std::ranges::find(kSupplyNames, name);
  if (found == kSupplyNames.end()) {
    throw CommandError("water, cups, coffee, stirrers, grounds or tray, not " + Quoted(name));
  }
  return static_cast<Supply>(found - kSupplyNames.begin());
}

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

}  // namespace

std::string Console::Vend(Arguments arguments) {
  Order order = OrderFor(arguments[0]);
  std::optional<Payment> payment;
  std::optional<std::uint32_t> amount;
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const auto means = std::ranges::find(kPayments, arguments[i], &PaymentWord::word);
    const auto extra = std::ranges::find(kExtras, arguments[i], &ExtraWord::word);
    if (means != std::end(kPayments)) {
      if (payment) {
        throw CommandError("only one of paid, bill, token, key and free");
      }
      payment = means->payment;
      const bool by_amount = payment != Payment::kKey && payment != Payment::kFree;
      if (by_amount && i + 1 < arguments.size() && arguments[i + 1].front() <= '9') {
        amount = NumberIn("amount", arguments[++i], 0, 65535);
      }
    } else if (extra != std::end(kExtras)) {
      order.*extra->field = true;
    } else {
      throw CommandError("no way to buy " + Quoted(arguments[i]) + ", try help vend");
    }
  }
  const auto refusal = machine_.sales().Vend(order, payment.value_or(Payment::kCoins), amount);
  if (!refusal.empty()) {
    throw CommandError(refusal);
  }
  return {};
}

std::string Console::Customers(Arguments arguments) {
  machine_.sales().SetCustomers(NumberIn("count", arguments[0], 0, 3600));
  return {};
}

std::string Console::RaiseAlarm(Arguments arguments) {
  if (arguments[0] == "clear") {
    machine_.alarms().Clear();
  } else {
    machine_.alarms().Raise(NumberIn("code", arguments[0], 0, kLargestAlarm));
  }
  return {};
}

std::string Console::Exhaust(Arguments arguments) {
  machine_.supplies().Exhaust(SupplyFor(arguments[0]));
  return {};
}

std::string Console::Service(Arguments arguments) {
  if (arguments[0] != "all") {
    machine_.supplies().Service(SupplyFor(arguments[0]));
    return {};
  }
  for (const std::string_view name : kSupplyNames) {
    machine_.supplies().Service(SupplyFor(name));
  }
  return {};
}

std::string Console::Break(Arguments arguments) {
  if (machine_.defects().Break(arguments[0])) {
    return {};
  }
  throw CommandError("no part " + Quoted(arguments[0]) + "; parts: " + Defects::Names());
}

std::string Console::Mend(Arguments arguments) {
  if (machine_.defects().Mend(arguments[0])) {
    return {};
  }
  throw CommandError("no part " + Quoted(arguments[0]) + "; parts: " + Defects::Names());
}

std::string Console::Door(Arguments arguments) {
  machine_.inputs().SetDoorOpen(OneOf(arguments[0], "open", "closed"));
  return {};
}

std::string Console::Input(Arguments arguments) {
  const bool on = OneOf(arguments[1], "on", "off");
  if (machine_.inputs().SetByHand(arguments[0], on)) {
    return {};
  }
  throw CommandError("no input " + Quoted(arguments[0]) + "; inputs: " + Inputs::Names());
}

std::string Console::Turn(Arguments arguments) {
  machine_.dispenser().SetSpiralTurn(std::chrono::milliseconds(NumberIn("time", arguments[0], 100, 60000)));
  return {};
}

std::string Console::Tubes(Arguments arguments) {
  const bool fill = OneOf(arguments[0], "fill", "empty");
  const std::uint32_t amount = NumberIn("amount", arguments[1], 1, 1000000);
  if (fill) {
    machine_.till().FillTubes(amount);
  } else if (!machine_.till().EmptyTubes(amount)) {
    throw CommandError("the tubes do not hold as much");
  }
  return {};
}

std::string Console::Key(Arguments arguments) {
  const auto refusal = machine_.till().LoadKey(NumberIn("amount", arguments[0], 1, 1000000));
  if (!refusal.empty()) {
    throw CommandError(refusal);
  }
  return {};
}

std::string Console::Clock(Arguments arguments) {
  if (arguments[0] == "fitted" || arguments[0] == "missing") {
    if (arguments.size() != 1) {
      throw CommandError("usage: clock fitted|missing");
    }
    machine_.calendar().SetFitted(arguments[0] == "fitted");
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
  if (!machine_.calendar().fitted()) {
    throw CommandError("no clock is fitted");
  }
  const auto seconds = static_cast<std::uint32_t>(*time);
  std::vector<std::uint32_t> fields = {seconds / 3600, seconds / 60 % 60};
  fields.insert(fields.end(), date.rbegin(), date.rend());
  int record = kFirstClockRecord;
  for (const std::uint32_t field : fields) {
    machine_.Set(0, record++, field);
  }
  return {};
}

std::string Console::Languages(Arguments arguments) {
  SetBits(machine_.board(0), kStatusRecord, kEightLanguagesBit, OneOf(arguments[0], "8", "4"));
  return {};
}

std::string Console::Speed(Arguments arguments) {
  machine_.SetSpeed(NumberIn("factor", arguments[0], 1, 3600));
  return {};
}

std::string Console::PlayScenario(Arguments arguments) {
  if (arguments[0] == "stop") {
    scenario_.Stop();
    return {};
  }
  if (const auto wrong = Play(std::string(arguments[0])); !wrong.empty()) {
    throw CommandError(wrong);
  }
  return std::to_string(scenario_.left()) + " lines to come";
}

}  // namespace machine
