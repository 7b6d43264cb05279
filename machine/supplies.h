// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine uses up, and the bins that it fills. A serving that needs what has run out, or a bin that
// is full, is refused; the alarm comes once, as that happens. Servings take no water, which comes from the
// mains, and do not fill the drip tray: these two change by the operator's hand only.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "machine/alarms.h"
#include "machine/board.h"
#include "machine/concern.h"

namespace machine {

enum class Supply { kWater, kCups, kCoffee, kStirrers, kGrounds, kTray };

inline constexpr std::array<std::string_view, 6> kSupplyNames = {"water",    "cups",    "coffee",
                                                                 "stirrers", "grounds", "tray"};

class Supplies : public Concern {
 public:
  Supplies(Boards& boards, Alarms& alarms);

  // The first supply that a serving needs and that is not there.
  std::optional<Supply> MissingFor(const Serving& serving) const;
  bool Has(Supply supply) const { return Left(supply) > 0; }

  // Ends a supply, or fills a bin, with its alarm.
  void Exhaust(Supply supply);
  // Makes a supply full, or a bin empty.
  void Service(Supply supply);

  void OnServed(const Serving& serving) override;

 private:
  bool Needs(Supply supply, const Serving& serving) const;
  int Left(Supply supply) const { return left_[static_cast<std::size_t>(supply)]; }

  Boards& boards_;
  Alarms& alarms_;
  std::array<int, kSupplyNames.size()> left_{};
};

}  // namespace machine
