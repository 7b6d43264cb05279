// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_tempi.h"

#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/beverage/tempi_tables.h"
#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {

using namespace tempi;

namespace {

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
