// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_ass_set.h"

#include <array>

#include "fields/data_form.h"
#include "fields/position_grid.h"
#include "forms/selling/held_rows.h"
#include "forms/selling/price_number.h"

namespace dosmara {

namespace {

constexpr int kBarLength = 13;  // in widths of the letter x

using PositionRows = std::array<FieldRow, kPositions>;

// What tells the two windows apart.
struct Window {
  FormSetup setup;
  int node;
  PositionRows rows;
};

constexpr int kFirstPrice = 1;
constexpr int kMirrors = 216;

constexpr PositionRows RowsOf(int node) {
  PositionRows rows{};
  for (int n = 0; n < kPositions; ++n) {
    rows[n] = PriceNumberRow({.line = 127,
                              .number = NumberOf(Numbering::kPosition, n),
                              .node = node,
                              .record = kFirstPrice + n,
                              .mirror = kMirrors + n});
  }
  return rows;
}

constexpr Window WindowOf(const char* name, int title, int node) {
  return {{.name = name, .title = title, .opens_with = kAllFresh}, node, RowsOf(node)};
}

constexpr Window kWindows[] = {WindowOf("FrmAssSet", 12, kZeth), WindowOf("FrmAssSet2", 13, kZeth2)};

class FrmAssSet : public DataForm {
 public:
  explicit FrmAssSet(const Window& window);

 private:
  // While the set is not in use, the form stays locked.
  bool IsReady() const override { return set_in_use_.IsOpen() && DataForm::IsReady(); }
  void Loaded() override { SetOpen(!all_at_price_1_); }

  // Opens the rows, unless the form is locked, or closes them.
  void SetOpen(bool open);

  Gate set_in_use_;
  bool all_at_price_1_ = false;
  FieldRows& prices_;
};

// The caption stands above value and mark, the bar below them.
QLayout* LayOutPosition(ValueRow& price) {
  auto* layout = new QGridLayout;
  layout->setSpacing(1);
  layout->addWidget(&price.caption(), 0, 0, 1, 2);
  price.PlaceValueIn(*layout, 1, 0);
  layout->addWidget(&price.echo(), 1, 1);
  price.bar().setMinimumWidth(kBarLength * price.bar().fontMetrics().horizontalAdvance('x'));
  layout->addWidget(&price.bar(), 2, 0, 1, 2);
  return layout;
}

FrmAssSet::FrmAssSet(const Window& window)
    : DataForm(window.setup),
      set_in_use_{.record = GateRecord(window.node), .counted = Gate::Counted::kNone, .followed = true},
      prices_(NewRows(HeldRows(), window.rows)) {
  auto* grid = new QGridLayout(Body());
  for (int n = 0; n < kPositions; ++n) {
    grid->addLayout(LayOutPosition(prices_[n]), PositionLine(n), PositionColumn(n, 1));
  }
  AddPositionHeadings(*grid, *Body(), 1, Qt::AlignLeft);
  grid->setRowStretch(kPositionRows + 1, 1);
  Watch(prices_, Counts::kYes);
  Hear(kMainBoard, kSellingOptions, Counts::kNo, [this](double value) {
    all_at_price_1_ = (LowBits(value) & kAllAtPrice1) != 0;
    SetOpen(!all_at_price_1_ && set_in_use_.IsOpen());
  });
  Follow(set_in_use_, [this] { SetOpen(set_in_use_.IsOpen()); });
  SetOpen(false);
}

void FrmAssSet::SetOpen(bool open) {
  if (!open || !Loading) {
    prices_.SetEnabled(open);
    prices_.LetEchoOpen(open);
  }
}

}  // namespace

Form* NewSetAssignment(int node) { return new FrmAssSet(kWindows[node - kZeth]); }

}  // namespace dosmara
