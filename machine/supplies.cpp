// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/supplies.h"

#include "machine/recipe.h"

namespace machine {
namespace {

struct Kind {
  Alarm alarm;
  int servings;  // that a full supply, or an empty bin, is good for
  bool endless;  // servings take nothing of it
};
constexpr std::array<Kind, kSupplyNames.size()> kKinds = {{{Alarm::kNoWater, 1, true},
                                                           {Alarm::kNoCups, 600, false},
                                                           {Alarm::kNoCoffee, 500, false},
                                                           {Alarm::kNoStirrers, 800, false},
                                                           {Alarm::kGroundsFull, 450, false},
                                                           {Alarm::kTrayFull, 1, true}}};

}  // namespace

Supplies::Supplies(Boards& boards, Alarms& alarms) : boards_(boards), alarms_(alarms) {
  for (std::size_t i = 0; i < left_.size(); ++i) {
    left_[i] = kKinds[i].servings;
  }
}

std::optional<Supply> Supplies::MissingFor(const Serving& serving) const {
  for (std::size_t i = 0; i < left_.size(); ++i) {
    const auto supply = static_cast<Supply>(i);
    if (!Has(supply) && Needs(supply, serving)) {
      return supply;
    }
  }
  return std::nullopt;
}

void Supplies::Exhaust(Supply supply) {
  const auto index = static_cast<std::size_t>(supply);
  if (left_[index] == 0) {
    return;
  }
  left_[index] = 0;
  alarms_.Raise(kKinds[index].alarm);
}

void Supplies::Service(Supply supply) {
  const auto index = static_cast<std::size_t>(supply);
  left_[index] = kKinds[index].servings;
}

void Supplies::OnServed(const Serving& serving) {
  for (std::size_t i = 0; i < left_.size(); ++i) {
    const auto supply = static_cast<Supply>(i);
    if (kKinds[i].endless || !Needs(supply, serving)) {
      continue;
    }
    if (left_[i] == 1) {
      Exhaust(supply);
    } else {
      --left_[i];
    }
  }
}

// A part on its own is tested dry, a product needs nothing of the drinks unit.
bool Supplies::Needs(Supply supply, const Serving& serving) const {
  if (serving.kind == Serving::Kind::kWash) {
    return supply == Supply::kWater || supply == Supply::kTray;
  }
  if (serving.kind != Serving::Kind::kDrink) {
    return false;
  }
  switch (supply) {
    case Supply::kWater:
    case Supply::kTray:
      return true;
    case Supply::kCups:
      return serving.cup;
    case Supply::kCoffee:
    case Supply::kGrounds:
      return serving.powders && boards_[1].Get(kCoffeeWater + serving.index) > 0;
    case Supply::kStirrers:
      return GetsStirrer(boards_, serving);
  }
  return false;
}

}  // namespace machine
