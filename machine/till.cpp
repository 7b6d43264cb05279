// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/till.h"

#include <algorithm>
#include <array>

namespace machine {
namespace {

// Records of node 0.
constexpr int kCoinValues = 4;
constexpr int kMaximumChange = 79;
constexpr int kSellingOptions = 83;
constexpr std::uint32_t kChangeForToken = 8;
constexpr std::uint32_t kRechargeForToken = 16;
constexpr std::uint32_t kCoinChanger = 32;
constexpr std::uint32_t kExactChangeForToken = 64;
constexpr int kPaymentOptions = 84;
constexpr std::uint32_t kG13 = 1;
constexpr std::uint32_t kExecutive = 2;
constexpr std::uint32_t kMdb = 4;
constexpr int kChannelsAccepted = 85;
constexpr int kCoinsCounted = 107;
constexpr int kTakingsForLife = 127;
constexpr int kTakings = 128;
constexpr int kOverpay = 130;
constexpr int kOverpayForLife = 332;
constexpr int kIntoTubes = 339;
constexpr int kIntoTubesByHand = 340;
constexpr int kOutOfTubes = 341;
constexpr int kOutOfTubesByHand = 342;
constexpr int kOntoKey = 343;
constexpr int kFromKey = 344;
constexpr int kMaximumCash = 345;
constexpr int kTokenValues = 347;
constexpr std::uint32_t kTokens = 3;
constexpr int kBillsAccepted = 355;
constexpr int kChangeOptions = 361;
constexpr std::uint32_t kChangeFirst = 1;
constexpr std::uint32_t kIgnoreExactChange = 2;
constexpr int kMaximumKey = 363;

// The only channel, counted from 0, of a machine that takes tokens.
constexpr std::size_t kTokenChannel = 6;

// No record tells the value of a bill channel; those behind the last one take nothing.
constexpr std::array<std::uint32_t, 7> kBillValues = {500, 1000, 2000, 5000, 10000, 20000, 50000};

}  // namespace

PaymentSystem Till::system() const {
  if (Option(kPaymentOptions, kMdb)) {
    return PaymentSystem::kMdb;
  }
  if (Option(kPaymentOptions, kExecutive)) {
    return PaymentSystem::kExecutive;
  }
  return Option(kPaymentOptions, kG13) ? PaymentSystem::kG13 : PaymentSystem::kTokens;
}

std::string Till::Take(Payment payment, std::uint32_t price, std::optional<std::uint32_t> amount,
                       Money& money) const {
  money = {.payment = payment, .price = price, .change_first = Option(kChangeOptions, kChangeFirst)};
  switch (payment) {
    case Payment::kFree:
      return {};
    case Payment::kKey:
      return TakesKeys() ? "" : "the payment system takes no keys";
    case Payment::kBill:
      return mdb() ? TakeOneBill(amount, money) : "the payment system takes no bills";
    case Payment::kToken:
      return mdb() ? TakeOneToken(amount.value_or(1), money) : "the payment system takes no tokens";
    case Payment::kCoins:
      break;
  }
  if (system() != PaymentSystem::kExecutive) {
    return TakeCoins(amount, money);
  }
  return amount && *amount < price ? "the price is " + std::to_string(price) : "";
}

void Till::Begin(const Money& money) {
  if (money.change_first) {
    Move(money);
  }
}

void Till::Finish(const Money& money) {
  if (money.payment == Payment::kFree) {
    return;
  }
  if (!money.change_first) {
    Move(money);
  }
  for (const int record : {kTakingsForLife, kTakings}) {
    boards_[0].Add(record, money.price);
  }
  for (const int record : {kOverpayForLife, kOverpay}) {
    boards_[0].Add(record, money.overpay);
  }
  if (money.payment == Payment::kKey) {
    AddFlow(kFromKey, money.price);
  }
}

// Without change ahead of the drink nothing has moved yet.
void Till::Fail(const Money& money) {
  if (!money.change_first || money.payment == Payment::kKey || money.payment == Payment::kFree) {
    return;
  }
  const std::uint32_t back = std::min(tubes_, money.price + money.overpay);
  tubes_ -= back;
  AddFlow(kOutOfTubes, back);
}

void Till::FillTubes(std::uint32_t amount) {
  tubes_ += amount;
  AddFlow(kIntoTubesByHand, amount);
}

bool Till::EmptyTubes(std::uint32_t amount) {
  if (amount > tubes_) {
    return false;
  }
  tubes_ -= amount;
  AddFlow(kOutOfTubesByHand, amount);
  return true;
}

std::string Till::LoadKey(std::uint32_t amount) {
  if (!mdb()) {
    return "the payment system loads no keys";
  }
  const std::uint32_t most = boards_[0].Get(kMaximumKey);
  if (most > 0 && amount > most) {
    return "the largest credit of a key is " + std::to_string(most);
  }
  AddFlow(kOntoKey, amount);
  return {};
}

Coins Till::AcceptedCoins() const {
  Coins values{};
  for (std::size_t channel = 0; channel < values.size(); ++channel) {
    const bool accepted = system() == PaymentSystem::kTokens ? channel == kTokenChannel
                                                             : Option(kChannelsAccepted, 1u << channel);
    if (accepted) {
      values[channel] = boards_[0].Get(kCoinValues + static_cast<int>(channel));
    }
  }
  return values;
}

std::optional<std::uint32_t> Till::AcceptedBill(std::uint32_t price,
                                                std::optional<std::uint32_t> amount) const {
  for (std::size_t channel = 0; channel < kBillValues.size(); ++channel) {
    const std::uint32_t value = kBillValues[channel];
    if (!Option(kBillsAccepted, 1u << channel)) {
      continue;
    }
    if (amount ? value == *amount : value >= price) {
      return value;
    }
  }
  return std::nullopt;
}

std::string Till::TakeCoins(std::optional<std::uint32_t> amount, Money& money) const {
  const Coins values = AcceptedCoins();
  const auto coins = CoinsFor(amount.value_or(money.price), !amount, values);
  if (!coins) {
    return "no accepted coins make that amount";
  }
  money.coins = *coins;
  for (std::size_t i = 0; i < values.size(); ++i) {
    money.into_tubes += money.coins[i] * values[i];
  }
  return Part(money.into_tubes, money);
}

std::string Till::TakeOneBill(std::optional<std::uint32_t> amount, Money& money) const {
  const auto bill = AcceptedBill(money.price, amount);
  return bill ? Part(*bill, money) : "no accepted bill has that value";
}

std::string Till::TakeOneToken(std::uint32_t number, Money& money) const {
  if (number < 1 || number > kTokens) {
    return "tokens are 1 to 3";
  }
  return Part(boards_[0].Get(kTokenValues + static_cast<int>(number) - 1), money);
}

// Change is given by a coin changer, up to the largest change and what the tubes hold. Where exact change
// counts, a sale whose change the tubes do not hold is refused; else what is left over is the machine's.
std::string Till::Part(std::uint32_t sum, Money& money) const {
  if (sum < money.price) {
    return "the price is " + std::to_string(money.price);
  }
  const std::uint32_t most = boards_[0].Get(kMaximumCash);
  if (most > 0 && sum > most) {
    return "the largest credit is " + std::to_string(most);
  }
  const std::uint32_t left = sum - money.price;
  if (left == 0) {
    return {};
  }
  const bool token = money.payment == Payment::kToken;
  if (token && !Option(kSellingOptions, kChangeForToken) && Option(kSellingOptions, kRechargeForToken)) {
    money.onto_key = left;
    return {};
  }
  const bool change = system() != PaymentSystem::kTokens && Option(kSellingOptions, kCoinChanger) &&
                      (!token || Option(kSellingOptions, kChangeForToken)) &&
                      left <= boards_[0].Get(kMaximumChange);
  if (change && left > tubes_) {
    alarms_.Raise(Alarm::kTubesEmpty);
    const bool exact = !token || Option(kSellingOptions, kExactChangeForToken);
    if (exact && !Option(kChangeOptions, kIgnoreExactChange)) {
      return "exact change only";
    }
  }
  (change && left <= tubes_ ? money.change : money.overpay) = left;
  return {};
}

void Till::Move(const Money& money) {
  for (std::size_t channel = 0; channel < money.coins.size(); ++channel) {
    boards_[0].Add(kCoinsCounted + static_cast<int>(channel), money.coins[channel]);
  }
  tubes_ += money.into_tubes - money.change;
  AddFlow(kIntoTubes, money.into_tubes);
  AddFlow(kOutOfTubes, money.change);
  AddFlow(kOntoKey, money.onto_key);
}

// The flows are those of the MDB system and stand still without it.
void Till::AddFlow(int record, std::uint32_t amount) {
  if (mdb()) {
    boards_[0].Add(record, amount);
  }
}

}  // namespace machine
