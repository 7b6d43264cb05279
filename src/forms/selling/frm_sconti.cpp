// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_sconti.h"

#include <array>

#include "forms/selling/held_rows.h"

namespace dosmara {

namespace {

constexpr Records kDiscounts = {kMainBoard, 44, 30};
constexpr Records kWithoutCup = {kMainBoard, 74};
constexpr int kMirrors = 246;
constexpr int kRowCount = kDiscounts.count + kWithoutCup.count;

// The machine goes on being polled for the discount without a cup when the form has closed, once more for
// each time that it was open.
constexpr Records kStaysSubscribed[] = {kWithoutCup};

constexpr FormSetup kSetup = {
    .name = "FrmSconti", .title = 10, .opens_with = kAllFresh, .kept = kStaysSubscribed};

constexpr std::array<FieldRow, kRowCount> DiscountRows() {
  std::array<FieldRow, kRowCount> rows{};
  for (int n = 0; n < kRowCount; ++n) {
    rows[n] =
        MoneyRow({.line = 118, .number = n + 1, .record = kDiscounts.first + n, .mirror = kMirrors + n});
  }
  rows.back().line = 119;
  rows.back().number = 0;
  return rows;
}
constexpr auto kRows = DiscountRows();

}  // namespace

FrmSconti::FrmSconti() : DataForm(kSetup), discounts_(NewRows(HeldRows(), kRows, &money_)) {
  auto* grid = new QGridLayout(Body());
  discounts_.PlaceInColumns(*grid, 3);
  grid->setRowStretch(kRowCount, 1);
  Watch(money_, Counts::kYes);
  Watch(discounts_, Counts::kYes);
}

}  // namespace dosmara
