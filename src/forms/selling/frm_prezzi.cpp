// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_prezzi.h"

#include <array>

#include "forms/selling/held_rows.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

// The mirror of the selling options is only ever written.
constexpr Records kMirror[] = {{kMainBoard, kSellingOptionsMirror}};

// IsReady says what is fresh enough.
constexpr FormSetup kSetup = {
    .name = "FrmPrezzi", .title = 9, .opens_with = kAllFresh, .also_released = kMirror};

// The prices lie in two runs, of which only the first one has mirrors.
constexpr Records kFirstPrices = {kMainBoard, 12, 30};
constexpr Records kFurtherPrices = {kMainBoard, 367, 20};
constexpr int kMirrors = 214;
constexpr int kPrices = kFirstPrices.count + kFurtherPrices.count;

constexpr std::array<FieldRow, kPrices> PriceRows() {
  std::array<FieldRow, kPrices> rows{};
  for (int n = 0; n < kPrices; ++n) {
    const bool first = n < kFirstPrices.count;
    rows[n] =
        MoneyRow({.line = 115,
                  .number = n + 1,
                  .record = first ? kFirstPrices.first + n : kFurtherPrices.first + n - kFirstPrices.count,
                  .mirror = first ? kMirrors + n : 0});
  }
  return rows;
}
constexpr auto kRows = PriceRows();

constexpr BitRecord kOptions[] = {{kMainBoard, kSellingOptions, kSellingOptionsMirror}};
constexpr BitRow kSwitches[] = {{.line = 116, .mask = kAllAtPrice1}};

// The first record of a run that has not arrived, or the one behind it.
int FirstMissing(const Records& run) {
  int record = run.first;
  while (record < run.first + run.count && ParamIsFresh(record, run.node)) {
    ++record;
  }
  return record;
}

// One record may be missing at the very end of either run, not of both.
constexpr int kOpensAbove = 427;

}  // namespace

FrmPrezzi::FrmPrezzi()
    : DataForm(kSetup), all_at_price_1_(NewSwitches()), prices_(NewRows(HeldRows(), kRows, &money_)) {
  auto* layout = new QVBoxLayout(Body());
  auto* options = new QGridLayout;
  all_at_price_1_.PlaceIn(*options, 0, 0, 0);
  options->setColumnStretch(kSwitchColumns, 1);
  layout->addLayout(options);
  auto* grid = new QGridLayout;
  prices_.PlaceInColumns(*grid, 4);
  layout->addLayout(grid);
  layout->addStretch();
  Watch(money_, Counts::kNo);
  Watch(all_at_price_1_, Counts::kNo);
  Watch(prices_, Counts::kYes);
  prices_.SetOpen(false);
}

BitRows& FrmPrezzi::NewSwitches() {
  BitRows& switches = NewBits(kOptions, kSwitches);
  switches.MakeSwitches(Body(), {"Label2", kNoArray}, {"Switch1", kNoArray});
  return switches;
}

bool FrmPrezzi::IsReady() const {
  return FirstMissing(kFirstPrices) + FirstMissing(kFurtherPrices) > kOpensAbove;
}

// This runs on after the form has opened. A held price that may be missing is so opened by the next arrival
// of any record, before its own echo has come.
void FrmPrezzi::AfterArrival() {
  if (IsReady()) {
    prices_.SetOpen(true);
    all_at_price_1_.SetEnabled(true);
  }
}

}  // namespace dosmara
