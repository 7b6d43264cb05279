// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/sales.h"

#include <array>
#include <utility>

#include "machine/positions.h"
#include "machine/recipe.h"

namespace machine {
namespace {

// Records of node 0.
constexpr int kCoinValues = 4;
constexpr int kMaximumChange = 79;
constexpr int kSellingOptions = 83;
constexpr std::uint32_t kCoinChanger = 32;
constexpr int kPaymentOptions = 84;
constexpr std::uint32_t kMdb = 4;
constexpr std::uint32_t kExtraMilk = 8;
constexpr std::uint32_t kNoCup = 16;
constexpr int kChannelsAccepted = 85;
constexpr int kCoinsCounted = 107;
constexpr int kVendsForLife = 123;
constexpr int kVends = 124;
constexpr int kFreeVends = 125;
constexpr int kTakingsForLife = 127;
constexpr int kTakings = 128;
constexpr int kDiscounts = 129;
constexpr int kOverpay = 130;
constexpr int kJugVends = 131;
constexpr int kOverpayForLife = 332;
constexpr int kSugarVends = 336;
constexpr int kMilkVends = 337;
constexpr int kNoCupVends = 338;
constexpr int kIntoTubes = 339;
constexpr int kIntoTubesByHand = 340;
constexpr int kOutOfTubes = 341;
constexpr int kOutOfTubesByHand = 342;
constexpr int kOntoKey = 343;
constexpr int kFromKey = 344;

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

std::string Sales::Vend(const Order& order, Payment payment, std::optional<std::uint32_t> paid) {
  if (auto obstacle = ObstacleTo(order); !obstacle.empty()) return obstacle;
  Sale sale{.order = order, .payment = payment, .cost = tariff_.CostOf(order)};
  if (tariff_.IsFree(order)) sale.payment = Payment::kFree;
  if (sale.payment == Payment::kCoins) {
    if (auto failure = TakeCoins(sale, paid); !failure.empty()) return failure;
  }
  const Serving serving{.kind = order.node == 1 ? Serving::Kind::kDrink : Serving::Kind::kProduct,
                        .node = order.node,
                        .index = order.index,
                        .sale = true,
                        .cup = !order.no_cup && !order.jug};
  auto refusal = dispenser_.Serve(serving);
  if (refusal.empty()) sale_ = sale;
  return refusal;
}

void Sales::FillTubes(std::uint32_t amount) {
  tubes_ += amount;
  boards_[0].Add(kIntoTubesByHand, amount);
}

bool Sales::EmptyTubes(std::uint32_t amount) {
  if (amount > tubes_) return false;
  tubes_ -= amount;
  boards_[0].Add(kOutOfTubesByHand, amount);
  return true;
}

void Sales::LoadKey(std::uint32_t amount) { boards_[0].Add(kOntoKey, amount); }

void Sales::OnSecond() {
  if (per_hour_ > 0 && random_() % 3600 < per_hour_) RandomCustomer();
}

void Sales::OnServed(const Serving& serving) {
  if (!serving.sale || !sale_) return;
  const Sale sale = *std::exchange(sale_, std::nullopt);
  CountVend(sale);
  if (sale.payment != Payment::kFree) CountMoney(sale);
}

std::string Sales::ObstacleTo(const Order& order) const {
  if (inputs_.door_open()) return "the door is open";
  if (order.node != 1) return order.jug || order.no_cup ? "only a drink has a cup or a jug" : "";
  if (!SelectionBit(boards_, kIncluded, order.index)) return "the selection is not included";
  if (order.jug && !SelectionBit(boards_, kJugAllowed, order.index)) return "the selection has no jug";
  if (order.extra_milk && !Option(kPaymentOptions, kExtraMilk)) return "extra milk is not enabled";
  if (order.no_cup && !Option(kPaymentOptions, kNoCup)) return "a sale without a cup is not enabled";
  return {};
}

// Change is given by a coin changer, up to the largest change and what the tubes hold; what is left over is
// the machine's.
std::string Sales::TakeCoins(Sale& sale, std::optional<std::uint32_t> paid) const {
  const Coins values = AcceptedCoins();
  const auto coins = CoinsFor(paid.value_or(sale.cost.price), !paid, values);
  if (!coins) return "no accepted coins make that amount";
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < values.size(); ++i) sum += (*coins)[i] * values[i];
  if (sum < sale.cost.price) return "the price is " + std::to_string(sale.cost.price);
  sale.coins = *coins;
  const std::uint32_t left = sum - sale.cost.price;
  const bool change = Option(kSellingOptions, kCoinChanger) && left <= boards_[0].Get(kMaximumChange);
  if (change && left > 0 && left > tubes_) alarms_.Raise(Alarm::kTubesEmpty);
  (change && left <= tubes_ ? sale.change : sale.overpay) = left;
  return {};
}

Coins Sales::AcceptedCoins() const {
  Coins values{};
  for (int channel = 0; channel < kCoinChannels; ++channel) {
    if (Option(kChannelsAccepted, 1u << channel)) {
      values[static_cast<std::size_t>(channel)] = boards_[0].Get(kCoinValues + channel);
    }
  }
  return values;
}

void Sales::CountVend(const Sale& sale) {
  Board& main = boards_[0];
  const Order& order = sale.order;
  const VendCounters& counters = kVendCounters[static_cast<std::size_t>(order.node)];
  int counter = counters.paid;
  if (order.jug) {
    main.Add(kJugVends, 1);
    counter = counters.jug;
  } else if (sale.payment == Payment::kFree) {
    main.Add(kFreeVends, 1);
    counter = counters.free;
  } else {
    main.Add(kVendsForLife, 1);
    main.Add(kVends, 1);
  }
  boards_[static_cast<std::size_t>(order.node)].Add(counter + order.index, 1);
  if (order.extra_sugar) main.Add(kSugarVends, 1);
  if (order.extra_milk) main.Add(kMilkVends, 1);
  if (order.no_cup) main.Add(kNoCupVends, 1);
}

void Sales::CountMoney(const Sale& sale) {
  Board& main = boards_[0];
  for (const int record : {kTakingsForLife, kTakings}) main.Add(record, sale.cost.price);
  main.Add(kDiscounts, sale.cost.discount);
  for (const int record : {kOverpayForLife, kOverpay}) main.Add(record, sale.overpay);
  if (sale.payment == Payment::kKey) main.Add(kFromKey, sale.cost.price);
  if (sale.payment != Payment::kCoins) return;
  for (int channel = 0; channel < kCoinChannels; ++channel) {
    main.Add(kCoinsCounted + channel, sale.coins[static_cast<std::size_t>(channel)]);
  }
  const std::uint32_t inserted = sale.cost.price + sale.change + sale.overpay;
  tubes_ += inserted - sale.change;
  if (!Option(kPaymentOptions, kMdb)) return;
  main.Add(kIntoTubes, inserted);
  main.Add(kOutOfTubes, sale.change);
}

// Three of four buy a drink; one of eight has a key.
void Sales::RandomCustomer() {
  Order order;
  const std::uint32_t choice = random_();
  if (choice % 4 == 0) order.node = 2 + static_cast<int>(choice / 4 % 2);
  order.index = static_cast<int>(choice / 8 % (order.node == 1 ? kSelections : kPositions));
  order.extra_sugar = order.node == 1 && choice / 4096 % 4 == 0;
  Vend(order, choice / 16384 % 8 == 0 ? Payment::kKey : Payment::kCoins, std::nullopt);
}

}  // namespace machine
