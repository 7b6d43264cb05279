// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_azione.h"

#include <QScopedValueRollback>

namespace dosmara {

namespace {

// The mirrors are only ever written.
constexpr Records kMirrors[] = {{kHotDrinks, 557, 4}, {kHotDrinks, 526, 3}};

constexpr FormSetup kSetup = {.name = "FrmAzione", .title = 43, .opens_with = 8, .also_released = kMirrors};

// Where a bar stands until its count arrives.
constexpr int kFirstPosition = -32767;

constexpr FieldRow CountRow(int line, int record, int mirror) {
  FieldRow row = SixteenBitRow({.line = line, .node = kHotDrinks, .record = record, .mirror = mirror});
  row.text = WholeText;
  row.parse = ParseWhole;
  row.length = 5;
  return row;
}

constexpr FieldRow kRows[] = {
    CountRow(230, 553, 557),  // valves
    CountRow(231, 554, 558),  // seals
    CountRow(232, 555, 559),  // boiler
    CountRow(233, 556, 560),  // sanitizing
    CountRow(234, 48, 526),   // softener
    CountRow(235, 49, 527),   // grinder blades
    CountRow(236, 50, 528),   // coffee filters
};

}  // namespace

FrmAzione::FrmAzione()
    : DataForm(kSetup),
      rows_(NewRows({.caption = {"Label6"},
                     .value = {"Label10"},
                     .box = {"Text1"},
                     .bar = {"HScroll1"},
                     .opening_fills_box = true},
                    kRows)) {
  auto* grid = new QGridLayout(Body());
  rows_.PlaceInColumns(*grid, 1);
  grid->setRowStretch(rows_.size(), 1);
  Watch(rows_, Counts::kYes);
  Follow(Presenza1, [this] { FollowBoard(); });
  SetLumenoEnabled(false);
  const QScopedValueRollback guard(InArrival, true);
  for (int n = 0; n < rows_.size(); ++n) {
    rows_[n].bar().SetValue(kFirstPosition);
    rows_[n].bar().SetKnown(false);
  }
}

}  // namespace dosmara
