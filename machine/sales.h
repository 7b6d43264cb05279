// SPDX-License-Identifier: GPL-3.0-or-later
// Customers: what they pay, what they get, and what the counters of the boards make of it. A sale is counted
// when it has been handed out to its end; one that fails gives the money back and counts as nothing.
#pragma once

#include <optional>
#include <random>
#include <string>

#include "machine/coins.h"
#include "machine/concern.h"
#include "machine/dispenser.h"
#include "machine/inputs.h"
#include "machine/tariff.h"

namespace machine {

enum class Payment { kCoins, kKey, kFree };

class Sales : public Concern {
 public:
  Sales(Boards& boards, const Calendar& calendar, Dispenser& dispenser, const Inputs& inputs, Alarms& alarms,
        std::uint32_t seed)
      : boards_(boards),
        tariff_(boards, calendar),
        dispenser_(dispenser),
        inputs_(inputs),
        alarms_(alarms),
        random_(seed) {}

  // One customer; `paid` is the money put in, or nothing for the nearest sum that coins can make. Returns why
  // there is no sale, or nothing.
  std::string Vend(const Order& order, Payment payment, std::optional<std::uint32_t> paid);
  // Lets customers come by themselves, so many an hour on the average.
  void SetCustomers(std::uint32_t per_hour) { per_hour_ = per_hour; }

  // The technician puts money into the tubes for change, or takes it out. False when there is not as much.
  void FillTubes(std::uint32_t amount);
  bool EmptyTubes(std::uint32_t amount);
  // A customer loads money onto a key.
  void LoadKey(std::uint32_t amount);

  void OnSecond() override;
  void OnServed(const Serving& serving) override;
  void OnRestart() override { sale_.reset(); }

 private:
  struct Sale {
    Order order;
    Payment payment;
    Cost cost;
    Coins coins{};
    std::uint32_t change = 0;
    std::uint32_t overpay = 0;
  };

  std::string ObstacleTo(const Order& order) const;
  std::string TakeCoins(Sale& sale, std::optional<std::uint32_t> paid) const;
  Coins AcceptedCoins() const;
  bool Option(int record, std::uint32_t mask) const { return (boards_[0].Get(record) & mask) != 0; }
  void CountVend(const Sale& sale);
  void CountMoney(const Sale& sale);
  void RandomCustomer();

  Boards& boards_;
  Tariff tariff_;
  Dispenser& dispenser_;
  const Inputs& inputs_;
  Alarms& alarms_;
  std::mt19937 random_;
  std::uint32_t per_hour_ = 0;
  std::uint32_t tubes_ = 5000;
  std::optional<Sale> sale_;
};

}  // namespace machine
