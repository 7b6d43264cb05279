// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/tariff.h"

#include <algorithm>

#include "machine/recipe.h"
#include "machine/timetable.h"

namespace machine {
namespace {

constexpr int kFirstPrice = 12;
constexpr int kPrice31 = 367;
constexpr std::uint32_t kFirstPrices = 30;
constexpr int kFirstDiscount = 44;
constexpr int kSugarPrice = 42;
constexpr int kMilkPrice = 43;
constexpr int kNoCupDiscount = 74;
constexpr int kSellingOptions = 83;
constexpr std::uint32_t kAllAtPrice1 = 1;
constexpr int kJugCups = 28;
constexpr int kFreeOfCharge = 589;

constexpr Band kBands[] = {{99, 103}, {101, 105}};

}  // namespace

Cost Tariff::CostOf(const Order& order) const {
  const bool all_at_price_1 = (Money(kSellingOptions) & kAllAtPrice1) != 0;
  const std::uint32_t number =
      all_at_price_1 ? 0 : boards_[static_cast<std::size_t>(order.node)].Get(order.index + 1);
  const bool first_prices = number < kFirstPrices;
  const auto offset = static_cast<int>(first_prices ? number : number - kFirstPrices);
  const std::uint32_t listed = Money((first_prices ? kFirstPrice : kPrice31) + offset);

  Cost cost;
  if (first_prices && InDiscountBand()) {
    cost.discount = Money(kFirstDiscount + offset);
  }
  if (order.no_cup) {
    cost.discount += Money(kNoCupDiscount);
  }
  cost.discount = std::min(cost.discount, listed);
  cost.price = listed - cost.discount;
  if (order.jug) {
    cost.price *= boards_[1].Get(kJugCups);
    cost.discount *= boards_[1].Get(kJugCups);
  }
  if (order.extra_sugar) {
    cost.price += Money(kSugarPrice);
  }
  if (order.extra_milk) {
    cost.price += Money(kMilkPrice);
  }
  return cost;
}

bool Tariff::IsFree(const Order& order) const {
  return order.node == 1 && SelectionBit(boards_, kFreeOfCharge, order.index);
}

bool Tariff::InDiscountBand() const {
  return std::ranges::any_of(kBands, [&](const Band& band) { return InBand(boards_[0], calendar_, band); });
}

}  // namespace machine
