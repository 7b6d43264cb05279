// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_tempi.h"

#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {

namespace {

// The mirrors are only ever written.
constexpr Records kMirrors[] = {{kHotDrinks, 503, 2}, {kHotDrinks, 508, 3}, {kHotDrinks, 562},
                                {kHotDrinks, 586},    {kHotDrinks, 588},    {kZeth, 273},
                                {kZeth, 310, 18},     {kZeth2, 273},        {kZeth2, 310, 18}};

constexpr FormSetup kSetup = {.name = "FrmTempi", .title = 4, .opens_after = 20, .also_released = kMirrors};

constexpr BoardFrame kBoards[] = {
    {.name = "Frame1", .line = 47, .node = kHotDrinks},
    {.name = "Frame2", .line = 54, .node = kZeth},
    {.name = "Frame3", .line = 56, .node = kZeth2},
};

// Shown in tenths and typed with a tenth.
constexpr FieldRow Tenths(FieldRow row) {
  row.text = TenthsText;
  row.parse = ParseTenths;
  return row;
}

// Shown as a whole number but typed like tenths: "12" is 120.
constexpr FieldRow WholeTypedInTenths(FieldRow row) {
  row.text = WholeText;
  row.parse = ParseTenths;
  return row;
}

constexpr FieldRow TimeRow(int line, int node, int record, int mirror, int max) {
  return Tenths({.line = line,
                 .node = node,
                 .record = record,
                 .mirror = mirror,
                 .max = max,
                 .limit = max,
                 .length = 4});
}

// A row of a timing whose bar does not end where an entry does.
constexpr FieldRow Limited(FieldRow row, int min, int limit) {
  row.min = min;
  row.limit = limit;
  return row;
}

// The rows of no drawer. Rows 8 and 9 carry each other's entry limit; the bars keep their values in bounds.
constexpr FieldRow kTimes[] = {
    TimeRow(48, kHotDrinks, 31, 509, 100),
    TimeRow(49, kHotDrinks, 25, 503, 100),
    TimeRow(50, kHotDrinks, 26, 504, 100),
    TimeRow(51, kHotDrinks, 30, 508, 255),
    WholeRow({.line = 52, .node = kHotDrinks, .record = 32, .mirror = 510, .max = 90, .length = 2}),
    TimeRow(55, kZeth, 58, 273, 250),
    WholeRow(
        {.line = 53, .node = kHotDrinks, .record = 561, .mirror = 562, .min = 5, .max = 60, .length = 2}),
    TimeRow(55, kZeth2, 58, 273, 250),
    Limited(TimeRow(622, kHotDrinks, 587, 588, 230), 29, 255),
    WholeTypedInTenths({.line = 623,
                        .node = kHotDrinks,
                        .record = 585,
                        .mirror = 586,
                        .max = 255,
                        .limit = 230,
                        .length = 3}),
};
constexpr int kFillTimeout = 6;
constexpr int kHotDrinksRows[] = {0, 1, 2, 3, 4, kFillTimeout, 8, 9};
// The row of no drawer on the tab of each Zeth unit.
constexpr int kMotorTimeouts[] = {5, 7};

constexpr int kModelWithoutFillTimeout = 20;

constexpr int kZethUnits = 2;
constexpr int kDrawers = 8;

// Rows of one Zeth unit: the drawers' times, their attempts, and the two of the sensor.
constexpr int kFirstAttempts = kDrawers;
constexpr int kFirstSensorRow = 2 * kDrawers;
constexpr int kDrawerRows = kFirstSensorRow + 2;

using DrawerTable = std::array<FieldRow, kDrawerRows>;

constexpr DrawerTable DrawerRows(int node, int attempts_length) {
  DrawerTable rows{};
  for (int k = 0; k < kDrawers; ++k) {
    rows[k] = Tenths({.line = 618, .number = k + 1, .max = 10, .large_change = 10, .limit = 10, .length = 3});
    rows[kFirstAttempts + k] = WholeTypedInTenths(
        {.line = 619, .number = k + 1, .min = 1, .max = 3, .limit = 3, .length = attempts_length});
  }
  rows[kFirstSensorRow] =
      Tenths({.line = 620, .min = 10, .max = 30, .large_change = 10, .limit = 30, .length = 3});
  rows[kFirstSensorRow + 1] = WholeTypedInTenths(
      {.line = 621, .min = 120, .max = 240, .large_change = 10, .limit = 240, .length = 3});
  for (int n = 0; n < kDrawerRows; ++n) {
    rows[n].node = node;
    rows[n].record = 292 + n;
    rows[n].mirror = 310 + n;
  }
  return rows;
}

// On the first unit's tab the box of the attempts is too short for a separator: only the bar changes them.
constexpr DrawerTable kDrawersOfUnit[kZethUnits] = {DrawerRows(kZeth, 1), DrawerRows(kZeth2, 3)};

constexpr RowStyle DrawerStyle(const char* caption, const char* value, const char* box, const char* bar) {
  return {
      .caption = {caption}, .value = {value, 1}, .box = {box, 1}, .bar = {bar, 1}, .closed_box_stays = true};
}
constexpr RowStyle kDrawerStyles[kZethUnits] = {DrawerStyle("Label10", "Label3", "txtzeth1", "HScroll3"),
                                                DrawerStyle("Label11", "Label4", "txtzeth2", "HScroll4")};

// A frame without a title around some of the rows of a Zeth unit.
QFrame* RowFrame(FieldRows& rows, int first, int last, const QString& name = {}) {
  auto* frame = new QFrame;
  frame->setObjectName(name);
  frame->setFrameShape(QFrame::StyledPanel);
  auto* grid = new QGridLayout(frame);
  rows.PlaceIn(*grid, first, last);
  return frame;
}

}  // namespace

FrmTempi::FrmTempi()
    : BoardsForm(kSetup, kBoards, {.mask = kInUse, .presence = 0}),
      tabs_(new QTabWidget(Body())),
      times_(NewBoardRows(
          {.caption = {"Label2"}, .value = {"Label1"}, .box = {"txtTempi"}, .bar = {"HScroll1"}}, kTimes)) {
  tabs_->setObjectName("SSTab1");
  LayOutHotDrinks();
  for (int unit = 0; unit < kZethUnits; ++unit) {
    drawers_[unit] = &NewBoardRows(kDrawerStyles[unit], kDrawersOfUnit[unit]);
    LayOutZeth(unit);
  }
  auto* layout = new QVBoxLayout(Body());
  layout->addWidget(tabs_);
  if (ModelCode == kModelWithoutFillTimeout) {
    times_[kFillTimeout].Withdraw();
  }
}

// Puts the frame of a board on a tab of its own.
void FrmTempi::AddTab(std::size_t board) {
  auto* page = new QWidget;
  auto* layout = new QVBoxLayout(page);
  layout->addWidget(Frame(board));
  layout->addStretch();
  tabs_->addTab(page, QString());
}

void FrmTempi::LayOutHotDrinks() {
  auto* grid = new QGridLayout(Frame(0));
  int line = 0;
  for (const int n : kHotDrinksRows) {
    times_.PlaceIn(*grid, n, n, line++);
  }
  AddTab(0);
}

// The times of the drawers beside their attempts.
void FrmTempi::LayOutZeth(int unit) {
  FieldRows& rows = *drawers_[unit];
  auto* layout = new QGridLayout(Frame(1 + unit));
  layout->addWidget(RowFrame(times_, kMotorTimeouts[unit], kMotorTimeouts[unit]), 0, 0);
  layout->addWidget(RowFrame(rows, 0, kFirstAttempts - 1, ControlArray{"Frame13"}[unit]), 1, 0);
  layout->addWidget(RowFrame(rows, kFirstAttempts, kFirstSensorRow - 1, ControlArray{"Frame50"}[unit]), 1, 1);
  layout->addWidget(RowFrame(rows, kFirstSensorRow, kDrawerRows - 1, ControlArray{"Frame51"}[unit]), 2, 0);
  AddTab(1 + unit);
}

// Gives the captions in the frames above each other one width, so that the boxes behind them stand in line.
void FrmTempi::LineUp(int unit) {
  FieldRows& rows = *drawers_[unit];
  std::vector<FieldLabel*> captions = {&times_[kMotorTimeouts[unit]].caption()};
  for (int n = 0; n < kDrawerRows; ++n) {
    if (n < kFirstAttempts || n >= kFirstSensorRow) {
      captions.push_back(&rows[n].caption());
    }
  }
  int width = 0;
  for (const FieldLabel* caption : captions) {
    width = std::max(width, caption->sizeHint().width());
  }
  for (FieldLabel* caption : captions) {
    caption->setMinimumWidth(width);
  }
}

void FrmTempi::InitMessaggi() {
  BoardsForm::InitMessaggi();
  tabs_->setAccessibleName(Caption(4));
  tabs_->tabBar()->setAccessibleName(Caption(4));
  for (int i = 0; i < tabs_->count(); ++i) {
    tabs_->setTabText(i, Caption(kBoards[i].line));
  }
  for (int unit = 0; unit < kZethUnits; ++unit) {
    LineUp(unit);
  }
}

}  // namespace dosmara
