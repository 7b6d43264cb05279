// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_ass_sel.h"

#include <array>

#include "fields/numbering.h"
#include "forms/selling/held_rows.h"
#include "forms/selling/price_number.h"

namespace dosmara {

namespace {

constexpr FormSetup kSetup = {.name = "FrmAssSel", .title = 11, .opens_with = kAllFresh};

constexpr int kColumns = 2;

constexpr Records kSelectionPrices = {kHotDrinks, 1, kSelections};
constexpr int kSelectionMirrors = 479;
constexpr int kSelectionLine = 121;

constexpr std::array<FieldRow, kSelections> SelectionRows() {
  std::array<FieldRow, kSelections> rows{};
  for (int n = 0; n < kSelections; ++n) {
    rows[n] = PriceNumberRow({.line = kSelectionLine,
                              .number = SelectionNumber(n),
                              .node = kHotDrinks,
                              .record = kSelectionPrices.first + n,
                              .mirror = kSelectionMirrors + n});
  }
  return rows;
}
constexpr auto kSelectionRows = SelectionRows();

// Numbers that no selection of this family has: their rows are never seen.
constexpr FieldRow kSpare = {.line = kSelectionLine};
constexpr FieldRow kSpareRows[] = {kSpare, kSpare, kSpare, kSpare, kSpare, kSpare, kSpare, kSpare};

constexpr Records kExtraPrices = {kMainBoard, 42, 2};
constexpr FieldRow kExtraRows[] = {
    MoneyRow({.line = 122, .record = 42, .mirror = 244}),  // sugar
    MoneyRow({.line = 123, .record = 43, .mirror = 245}),  // milk
};

}  // namespace

FrmAssSel::FrmAssSel()
    : DataForm(kSetup),
      selections_(NewRows(HeldRows(0, {"Text1"}), kSelectionRows)),
      extras_(NewRows(HeldRows(30, {"Text2"}), kExtraRows, &money_)) {
  auto* grid = new QGridLayout(Body());
  selections_.PlaceInColumns(*grid, kColumns);
  auto* line = new QFrame(Body());
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  grid->addWidget(line, grid->rowCount(), 0, 1, grid->columnCount());
  const int last = grid->rowCount();
  for (int n = 0; n < extras_.size(); ++n) {
    extras_.PlaceIn(*grid, n, n, last, n * kRowColumns);
  }
  grid->setRowStretch(grid->rowCount(), 1);
  FieldRows& spare = NewRows(HeldRows(kSelections, {"Text1", kSelections}), kSpareRows);
  for (int n = 0; n < spare.size(); ++n) {
    spare[n].Withdraw();
  }
  Watch(selections_, Counts::kYes);
  Watch(money_, Counts::kNo);
  Follow(by_selection_, [this] { FollowOptions(); });
  Watch(extras_, Counts::kYes);
  Hear(kExtraPrices, Counts::kYes, [this](int n, double) {
    if (!Loading) {
      extras_[n].SetOpen(true);
    }
  });
  Hear(kMainBoard, kSellingOptions, Counts::kNo, [this](double value) {
    all_at_price_1_ = (LowBits(value) & kAllAtPrice1) != 0;
    if (money_.IsKnown()) {
      FollowOptions();
    }
  });
  selections_.LetEchoOpen(false);
  extras_.LetEchoOpen(false);
  CloseAll();
}

// A machine without its selections opens the extra prices alone, and stays locked.
void FrmAssSel::AfterArrival() {
  if (AllFresh(kSelectionPrices)) {
    return;
  }
  if (AllFresh(kExtraPrices) && !by_selection_.IsOpen()) {
    extras_.SetOpen(true);
  } else if (Loading) {
    CloseAll();
  }
}

// Where everything sells at the first price, nothing opens with the form.
void FrmAssSel::Loaded() {
  FollowOptions();
  if (!all_at_price_1_) {
    extras_.SetEnabled(true);
  }
}

void FrmAssSel::FollowOptions() {
  const bool open = by_selection_.IsOpen() && !all_at_price_1_;
  selections_.SetEnabled(open);
  selections_.LetEchoOpen(open && !Loading);
}

void FrmAssSel::CloseAll() {
  selections_.SetEnabled(false);
  extras_.SetEnabled(false);
}

}  // namespace dosmara
