// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's money: what its payment system takes, what it gives back, and the records of node 0 that
// count it. The system is chosen by record 84.
//
//   none of the bits 1, 2, 4   tokens: channel 7 alone, at its value; no change
//   bit value 1                G13: the eight coin channels; change by a coin changer
//   bit value 2                Executive: the master outside holds the price and the customer's money; the
//                              machine counts what it has sold and no coin
//   bit value 4                MDB: coins, bills, tokens and keys; change; the flows 339 to 344
//
// MDB stands above Executive, Executive above G13.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "machine/alarms.h"
#include "machine/board.h"
#include "machine/coins.h"

namespace machine {

enum class Payment { kCoins, kBill, kToken, kKey, kFree };
enum class PaymentSystem { kTokens, kG13, kExecutive, kMdb };

// What becomes of one customer's money.
struct Money {
  Payment payment = Payment::kFree;
  std::uint32_t price = 0;
  Coins coins{};
  std::uint32_t into_tubes = 0;
  std::uint32_t change = 0;
  std::uint32_t overpay = 0;
  std::uint32_t onto_key = 0;
  bool change_first = false;  // change comes ahead of the drink
};

class Till {
 public:
  Till(Boards& boards, Alarms& alarms) : boards_(boards), alarms_(alarms) {}

  PaymentSystem system() const;
  bool TakesKeys() const { return system() >= PaymentSystem::kExecutive; }

  // Takes the money for one sale: `amount` is the sum of the coins, the value of the bill or the number of
  // the token; nothing for the nearest that serves. Returns why it is not taken, or nothing and `money`.
  std::string Take(Payment payment, std::uint32_t price, std::optional<std::uint32_t> amount,
                   Money& money) const;
  // The sale begins, has come to its end, or has failed, which gives the money back.
  void Begin(const Money& money);
  void Finish(const Money& money);
  void Fail(const Money& money);

  // The technician puts money into the tubes for change, or takes it out. False when there is not as much.
  void FillTubes(std::uint32_t amount);
  bool EmptyTubes(std::uint32_t amount);
  // A customer loads money onto a key. Returns why not, or nothing.
  std::string LoadKey(std::uint32_t amount);

 private:
  bool Option(int record, std::uint32_t mask) const { return (boards_[0].Get(record) & mask) != 0; }
  bool mdb() const { return system() == PaymentSystem::kMdb; }
  Coins AcceptedCoins() const;
  // The value of a bill: the one of `amount`, or the smallest that pays the price.
  std::optional<std::uint32_t> AcceptedBill(std::uint32_t price, std::optional<std::uint32_t> amount) const;
  std::string TakeCoins(std::optional<std::uint32_t> amount, Money& money) const;
  std::string TakeOneBill(std::optional<std::uint32_t> amount, Money& money) const;
  std::string TakeOneToken(std::uint32_t number, Money& money) const;
  // Parts `sum` into price, change, overpay and what goes onto the key.
  std::string Part(std::uint32_t sum, Money& money) const;
  void Move(const Money& money);
  void AddFlow(int record, std::uint32_t amount);

  Boards& boards_;
  Alarms& alarms_;
  std::uint32_t tubes_ = 5000;
};

}  // namespace machine
