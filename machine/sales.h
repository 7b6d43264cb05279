// SPDX-License-Identifier: GPL-3.0-or-later
// Customers: what they pay, what they get, and what the counters of the boards make of it. A sale is counted
// when it has been handed out to its end; one that fails gives the money back and counts as nothing.
#pragma once

#include <optional>
#include <random>
#include <string>

#include "machine/concern.h"
#include "machine/dispenser.h"
#include "machine/inputs.h"
#include "machine/tariff.h"
#include "machine/till.h"
#include "machine/timetable.h"

namespace machine {

class Sales : public Concern {
 public:
  Sales(Boards& boards, const Calendar& calendar, Dispenser& dispenser, const Inputs& inputs,
        const Timetable& timetable, Till& till, std::uint32_t seed)
      : boards_(boards),
        tariff_(boards, calendar),
        dispenser_(dispenser),
        inputs_(inputs),
        timetable_(timetable),
        till_(till),
        random_(seed) {}

  // One customer; `amount` is the money put in, as Till::Take has it. Returns why there is no sale, or
  // nothing.
  std::string Vend(const Order& order, Payment payment, std::optional<std::uint32_t> amount);
  // Lets customers come by themselves, so many an hour on the average.
  void SetCustomers(std::uint32_t per_hour) { per_hour_ = per_hour; }

  void OnSecond() override;
  void OnServed(const Serving& serving) override;
  void OnFailed(const Serving& serving) override;
  void OnRestart() override { sale_.reset(); }

 private:
  struct Sale {
    Order order;
    Cost cost;
    Money money{};
  };

  std::string ObstacleTo(const Order& order) const;
  bool Option(int record, std::uint32_t mask) const { return (boards_[0].Get(record) & mask) != 0; }
  void CountVend(const Sale& sale);
  void RandomCustomer();

  Boards& boards_;
  Tariff tariff_;
  Dispenser& dispenser_;
  const Inputs& inputs_;
  const Timetable& timetable_;
  Till& till_;
  std::mt19937 random_;
  std::uint32_t per_hour_ = 0;
  std::optional<Sale> sale_;
};

}  // namespace machine
