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
constexpr Records kMirrors[] = {
    {kHotDrinks, 503, 2}, {kHotDrinks, 508, 3}, {kHotDrinks, 562}, {kHotDrinks, 586}, {kHotDrinks, 588},
    {kZeth, 273},         {kZeth, 310, 18},     {kZeth2, 273},     {kZeth2, 310, 18}};

constexpr FormSetup kSetup = {
    .name = "FrmTempi", .title = 4, .opens_after = 20, .also_released = kMirrors};

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

// The rows of no drawer. Rows 8 and 9 carry each other's entry limit; the bars keep their values in bounds.
constexpr FieldRow kTimes[] = {
    Tenths({.line = 48, .node = kHotDrinks, .record = 31, .mirror = 509, .max = 100, .limit = 100, .length = 4}),
    Tenths({.line = 49, .node = kHotDrinks, .record = 25, .mirror = 503, .max = 100, .limit = 100, .length = 4}),
    Tenths({.line = 50, .node = kHotDrinks, .record = 26, .mirror = 504, .max = 100, .limit = 100, .length = 4}),
    Tenths({.line = 51, .node = kHotDrinks, .record = 30, .mirror = 508, .max = 255, .limit = 255, .length = 4}),
    WholeRow({.line = 52, .node = kHotDrinks, .record = 32, .mirror = 510, .max = 90, .length = 2}),
    Tenths({.line = 55, .node = kZeth, .record = 58, .mirror = 273, .max = 250, .limit = 250, .length = 4}),
    WholeRow({.line = 53, .node = kHotDrinks, .record = 561, .mirror = 562, .min = 5, .max = 60, .length = 2}),
    Tenths({.line = 55, .node = kZeth2, .record = 58, .mirror = 273, .max = 250, .limit = 250, .length = 4}),
    Tenths({.line = 622,
            .node = kHotDrinks,
            .record = 587,
            .mirror = 588,
            .min = 29,
            .max = 230,
            .limit = 255,
            .length = 4}),
    WholeTypedInTenths(
        {.line = 623, .node = kHotDrinks, .record = 585, .mirror = 586, .max = 255, .limit = 230, .length = 3}),
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

constexpr std::array<FieldRow, kDrawerRows> DrawerRows(int node, int attempts_length) {
  std::array<FieldRow, kDrawerRows> rows{};
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
constexpr std::array<FieldRow, kDrawerRows> kDrawersOfUnit[kZethUnits] = {DrawerRows(kZeth, 1),
                                                                         DrawerRows(kZeth2, 3)};

constexpr RowStyle kDrawerStyles[kZethUnits] = {
    {.caption = {"Label10"},
     .value = {"Label3", 1},
     .box = {"txtzeth1", 1},
     .bar = {"HScroll3", 1},
     .closed_box_stays = true},
    {.caption = {"Label11"},
     .value = {"Label4", 1},
     .box = {"txtzeth2", 1},
     .bar = {"HScroll4", 1},
     .closed_box_stays = true},
};

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
