// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_azione.h"

#include <QScopedValueRollback>

#include "shell/caption_table.h"
#include "shell/records.h"

namespace dosmara {

namespace {

constexpr int kLoadThreshold = 7;
constexpr int kMainBoard = 0;
constexpr int kHotDrinks = 1;

// A bar spans the signed 16-bit numbers, a count the unsigned ones: the bar holds the count less this.
constexpr int kShift = 32768;
constexpr int kLargestCount = 65535;
// Where a bar stands until its count arrives.
constexpr int kFirstPosition = -32767;

void ShowCount(QLabel& text, Bar& bar, double value) {
  bar.SetValue(static_cast<int>(value) - kShift);
  text.setText(QString::number(value));
}

constexpr FieldRow CountRow(int line, int record, int mirror) {
  return {.line = line,
          .node = kHotDrinks,
          .record = record,
          .mirror = mirror,
          .min = -kShift,
          .max = kLargestCount - kShift,
          .large_change = 100,
          .offset = kShift,
          .show = ShowCount,
          .clamped = true,
          .parse = ParseWhole,
          .limit = kLargestCount,
          .length = 5};
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
    : DataForm("FrmAzione", kLoadThreshold),
      Presenza1{.record = GateRecord(kHotDrinks), .while_loading = Gate::WhileLoading::kCountsChanges},
      rows_(Body(),
            {.caption = "Label6",
             .value = "Label10",
             .box = "Text1",
             .bar = "HScroll1",
             .opening_fills_box = true},
            kRows, InArrival) {
  auto* grid = new QGridLayout(Body());
  rows_.PlaceIn(*grid, 0, rows_.size() - 1);
  grid->setRowStretch(rows_.size(), 1);
  const QScopedValueRollback guard(InArrival, true);
  for (int n = 0; n < rows_.size(); ++n) {
    rows_[n].bar().SetValue(kFirstPosition);
  }
}

void FrmAzione::Load() {
  InitDati();
  InitMessaggi();
  SetLumenoEnabled(false);
  FormCentre(*this);
}

void FrmAzione::Unload() {
  Unsubscribe({kMainBoard, GateRecord(kHotDrinks)});
  rows_.Unsubscribe();
  // Released though never subscribed.
  rows_.UnsubscribeMirrors();
}

void FrmAzione::InitDati() {
  Subscribe({kMainBoard, GateRecord(kHotDrinks)});
  rows_.Subscribe();
  Listen(Presenza1, [this] { Loaded(); });
  Listen(rows_);
}

void FrmAzione::InitMessaggi() {
  setWindowTitle(Caption(43));
  rows_.SetCaptions();
}

void FrmAzione::SetLumenoEnabled(bool enabled) {
  rows_.SetOpen(kHotDrinks, enabled);
  for (int n = 0; n < rows_.size(); ++n) {
    rows_[n].SetLabelsEnabled(enabled);
  }
}

}  // namespace dosmara
