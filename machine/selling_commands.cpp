// SPDX-License-Identifier: GPL-3.0-or-later
// Commands of the customers, and of the money in the tubes and on the keys.
#include <algorithm>
#include <optional>

#include "machine/arguments.h"
#include "machine/commands.h"
#include "machine/positions.h"

namespace machine {
namespace {

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

std::string Vend(Session& session, Arguments arguments) {
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
  const auto refusal = session.machine.sales().Vend(order, payment.value_or(Payment::kCoins), amount);
  if (!refusal.empty()) {
    throw CommandError(refusal);
  }
  return {};
}

std::string Customers(Session& session, Arguments arguments) {
  session.machine.sales().SetCustomers(NumberIn("count", arguments[0], 0, 3600));
  return {};
}

}  // namespace

std::span<const Command> SellingCommands() {
  static constexpr Command kCommands[] = {
      {"vend",
       "SELECTION|NODE:POSITION [paid [AMOUNT]|bill [AMOUNT]|token [1-3]|key|free] [jug] [sugar] [milk] "
       "[no-cup]",
       "one customer, at selection 1 to 16 or 21 to 26, or at a position such as 2:34", 1, 7, Vend},
      {"customers", "COUNT", "lets so many customers an hour come by themselves", 1, 1, Customers},
  };
  return kCommands;
}

}  // namespace machine
