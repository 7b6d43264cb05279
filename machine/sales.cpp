// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/sales.h"

#include <array>
#include <utility>

#include "machine/positions.h"
#include "machine/recipe.h"

namespace machine {
namespace {

// Records of node 0.
constexpr int kPaymentOptions = 84;
constexpr std::uint32_t kExtraMilk = 8;
constexpr std::uint32_t kNoCup = 16;
constexpr int kVendsForLife = 123;
constexpr int kVends = 124;
constexpr int kFreeVends = 125;
constexpr int kDiscounts = 129;
constexpr int kJugVends = 131;
constexpr int kSugarVends = 336;
constexpr int kMilkVends = 337;
constexpr int kNoCupVends = 338;

// Records of node 1, each the first of three: one bit for each selection.
constexpr int kIncluded = 34;
constexpr int kJugAllowed = 38;

// The first counter of each kind, by node.
struct VendCounters {
  int paid;
  int free;
  int jug;
};
constexpr std::array<VendCounters, kNodeCount> kVendCounters = {
    {{}, {60, 82, 104}, {71, 119, 0}, {71, 119, 0}}};

}  // namespace

std::string Sales::Vend(const Order& order, Payment payment, std::optional<std::uint32_t> amount) {
  if (auto obstacle = ObstacleTo(order); !obstacle.empty()) {
    return obstacle;
  }
  Sale sale{.order = order, .cost = tariff_.CostOf(order)};
  if (tariff_.IsFree(order)) {
    payment = Payment::kFree;
  }
  if (auto failure = till_.Take(payment, sale.cost.price, amount, sale.money); !failure.empty()) {
    return failure;
  }
  const Serving serving{.kind = order.node == 1 ? Serving::Kind::kDrink : Serving::Kind::kProduct,
                        .node = order.node,
                        .index = order.index,
                        .sale = true,
                        .cup = !order.no_cup && !order.jug,
                        .extra_sugar = order.extra_sugar,
                        .extra_milk = order.extra_milk};
  if (auto refusal = dispenser_.Serve(serving); !refusal.empty()) {
    return refusal;
  }
  till_.Begin(sale.money);
  sale_ = sale;
  return {};
}

void Sales::OnSecond() {
  if (per_hour_ > 0 && random_() % 3600 < per_hour_) {
    RandomCustomer();
  }
}

void Sales::OnServed(const Serving& serving) {
  if (!serving.sale || !sale_) {
    return;
  }
  const Sale sale = *std::exchange(sale_, std::nullopt);
  CountVend(sale);
  till_.Finish(sale.money);
}

void Sales::OnFailed(const Serving& serving) {
  if (serving.sale && sale_) {
    till_.Fail(std::exchange(sale_, std::nullopt)->money);
  }
}

std::string Sales::ObstacleTo(const Order& order) const {
  if (inputs_.door_open()) {
    return "the door is open";
  }
  if (!timetable_.SwitchedOn()) {
    return "the machine is switched off at this hour";
  }
  if (order.node != 1) {
    return order.jug || order.no_cup ? "only a drink has a cup or a jug" : "";
  }
  if (!SelectionBit(boards_, kIncluded, order.index)) {
    return "the selection is not included";
  }
  if (order.jug && !SelectionBit(boards_, kJugAllowed, order.index)) {
    return "the selection has no jug";
  }
  if (order.extra_milk && !Option(kPaymentOptions, kExtraMilk)) {
    return "extra milk is not enabled";
  }
  if (order.no_cup && !Option(kPaymentOptions, kNoCup)) {
    return "a sale without a cup is not enabled";
  }
  return {};
}

void Sales::CountVend(const Sale& sale) {
  Board& main = boards_[0];
  const Order& order = sale.order;
  const VendCounters& counters = kVendCounters[static_cast<std::size_t>(order.node)];
  int counter = counters.paid;
  if (order.jug) {
    main.Add(kJugVends, 1);
    counter = counters.jug;
  } else if (sale.money.payment == Payment::kFree) {
    main.Add(kFreeVends, 1);
    counter = counters.free;
  } else {
    main.Add(kVendsForLife, 1);
    main.Add(kVends, 1);
  }
  boards_[static_cast<std::size_t>(order.node)].Add(counter + order.index, 1);
  if (order.extra_sugar) {
    main.Add(kSugarVends, 1);
  }
  if (order.extra_milk) {
    main.Add(kMilkVends, 1);
  }
  if (order.no_cup) {
    main.Add(kNoCupVends, 1);
  }
  if (sale.money.payment != Payment::kFree) {
    main.Add(kDiscounts, sale.cost.discount);
  }
}

// Three of four buy a drink; one of eight has a key.
void Sales::RandomCustomer() {
  Order order;
  const std::uint32_t choice = random_();
  if (choice % 4 == 0) {
    order.node = 2 + static_cast<int>(choice / 4 % 2);
  }
  order.index = static_cast<int>(choice / 8 % (order.node == 1 ? kSelections : kPositions));
  order.extra_sugar = order.node == 1 && choice / 4096 % 4 == 0;
  const bool key = choice / 16384 % 8 == 0 && till_.TakesKeys();
  Vend(order, key ? Payment::kKey : Payment::kCoins, std::nullopt);
}

}  // namespace machine
