// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_temperatura.h"

#include <QHBoxLayout>
#include <array>

namespace dosmara {

namespace {

// The mirrors of the first tank are released twice and those of the second not at all. Nobody subscribes
// them, so that no polling depends on it.
constexpr Records kMirrors[] = {{kHotDrinks, 502}, {kZeth, 266, 7}, {kZeth, 266, 7}};

constexpr FormSetup kSetup = {
    .name = "FrmTemperatura", .title = 26, .opens_with = 16, .also_released = kMirrors};

constexpr BoardFrame kBoards[] = {
    {.name = "Frame1", .line = kHotDrinksLine, .node = kHotDrinks},
    {.name = "Frame2", .line = 246, .node = kZeth},
    {.name = "Frame3", .line = kZeth2Line, .node = kZeth2},
};

// Off is the end of the bar, behind the warmest temperature.
constexpr int kTankOff = 16;

QString TankText(double value) { return value >= kTankOff ? QStringLiteral("OFF") : WholeText(value); }

// Of the spellings of "off", "oFF" is a bad entry here.
std::optional<int> ParseTankTemperature(QStringView text, int min, int max) {
  const bool off = text == u"off" || text == u"Off" || text == u"OFF";
  return off ? std::optional(kTankOff) : ParseWhole(text, min, max);
}

// An offset of -5 to 5 is held as 0 to 10.
QString OffsetText(double value) { return WholeText(value - 5); }

constexpr FieldRow kBoiler[] = {WholeRow({.line = 245,
                                          .node = kHotDrinks,
                                          .record = 24,
                                          .mirror = 502,
                                          .min = 70,
                                          .max = 110,
                                          .large_change = 5,
                                          .length = 3})};

constexpr int kTankRowCount = 7;

constexpr std::array<FieldRow, kTankRowCount> TankRows(int node) {
  std::array<FieldRow, kTankRowCount> rows = {{
      {.record = 51,
       .mirror = 266,
       .min = 1,
       .max = kTankOff,
       .large_change = 3,
       .text = TankText,
       .parse = ParseTankTemperature,
       .low = 1,
       .limit = kTankOff - 1,
       .length = 3},
      {.record = 53,
       .mirror = 268,
       .min = 10,
       .max = 50,
       .large_change = 10,
       .text = TenthsText,
       .parse = ParseDelta,
       .low = 10,
       .limit = 50,
       .length = 3},
      WholeRow({.record = 54, .mirror = 269, .min = 5, .max = 50, .large_change = 3, .length = 2}),
      WholeRow({.record = 55, .mirror = 270, .min = 1, .max = 9, .large_change = 3, .length = 1}),
      WholeRow({.record = 56, .mirror = 271, .min = 1, .max = 12, .large_change = 3, .length = 2}),
      WholeRow({.record = 57, .mirror = 272, .min = 1, .max = 30, .large_change = 3, .length = 2}),
      {.record = kTankOffset,
       .mirror = 267,
       .max = 10,
       .large_change = 3,
       .text = OffsetText,
       .parse = ParseOffset,
       .length = 2},
  }};
  for (int n = 0; n < kTankRowCount; ++n) {
    rows[n].line = 247 + n;
    rows[n].node = node;
    rows[n].clamped = true;
  }
  return rows;
}

constexpr auto kTank2 = TankRows(kZeth);
constexpr auto kTank3 = TankRows(kZeth2);

// A gate that arrives while the form loads is only counted, so the frames open with the form and close at the
// next arrival of a gate that says so.
constexpr Gate kGate = {.stored = false};

// Takes two lines of the grid: three frames side by side leave little width to each.
void PlaceWithBarBelow(ValueRow& row, QGridLayout& grid, int line) {
  grid.addWidget(&row.caption(), line, 0);
  row.PlaceValueIn(grid, line, 1);
  grid.addWidget(&row.echo(), line, 2);
  grid.addWidget(&row.bar(), line + 1, 0, 1, 3);
}

}  // namespace

FrmTemperatura::FrmTemperatura() : BoardsForm(kSetup, kBoards, kGate) {
  FieldRows* const rows_of_boards[] = {&NewBoardRows({.caption = {"Label1s", kNoArray},
                                                      .value = {"Label1", kNoArray},
                                                      .box = {"Text1", kNoArray},
                                                      .bar = {"HScroll1", kNoArray}},
                                                     kBoiler),
                                       &NewBoardRows({.caption = {"Label2s"},
                                                      .value = {"Label2"},
                                                      .box = {"Text2"},
                                                      .bar = {"HScroll2"},
                                                      .opening_fills_box = true},
                                                     kTank2),
                                       &NewBoardRows({.caption = {"Label3s"},
                                                      .value = {"Label3"},
                                                      .box = {"Text3"},
                                                      .bar = {"HScroll3"},
                                                      .opening_fills_box = true},
                                                     kTank3)};
  auto* layout = new QHBoxLayout(Body());
  for (std::size_t board = 0; board < std::size(kBoards); ++board) {
    FieldRows& rows = *rows_of_boards[board];
    auto* grid = new QGridLayout(Frame(board));
    for (int n = 0; n < rows.size(); ++n) {
      PlaceWithBarBelow(rows[n], *grid, 2 * n);
    }
    grid->setRowStretch(2 * rows.size(), 1);
    layout->addWidget(Frame(board), 1);
  }
}

}  // namespace dosmara
