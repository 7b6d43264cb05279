// SPDX-License-Identifier: GPL-3.0-or-later
// What a sale costs. Selections (node 1, records 1 to 22) and positions (nodes 2 and 3, records 1 to 48) hold
// the number of a price less 1; node 0 holds the prices 1 to 30 in 12 to 41 and 31 to 50 in 367 to 386, and
// the discount on each of the first thirty in 44 to 73, which is given within two bands of the day.
#pragma once

#include <cstdint>

#include "machine/board.h"
#include "machine/calendar.h"

namespace machine {

// What a customer asks for.
struct Order {
  int node = 1;   // 1 for a drink, 2 or 3 for a product
  int index = 0;  // selection 0 to 21, or position 0 to 47
  bool jug = false;
  bool extra_sugar = false;
  bool extra_milk = false;
  bool no_cup = false;
};

struct Cost {
  std::uint32_t price = 0;  // what the customer owes
  std::uint32_t discount = 0;
};

class Tariff {
 public:
  Tariff(const Boards& boards, const Calendar& calendar) : boards_(boards), calendar_(calendar) {}

  Cost CostOf(const Order& order) const;
  // The selection is marked as free of charge.
  bool IsFree(const Order& order) const;
  // True within one of the two bands of discount.
  bool InDiscountBand() const;

 private:
  std::uint32_t Money(int record) const { return boards_[0].Get(record); }

  const Boards& boards_;
  const Calendar& calendar_;
};

}  // namespace machine
