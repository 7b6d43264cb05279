// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_temperatura.h"

#include <QHBoxLayout>
#include <array>

#include "shell/caption_table.h"

namespace dosmara {

namespace {

constexpr int kLoadThreshold = 15;

constexpr BoardFrame kBoards[] = {
    {.name = "Frame1", .line = 244, .node = 1},
    {.name = "Frame2", .line = 246, .node = 2},
    {.name = "Frame3", .line = 254, .node = 3},
};

// Off is the end of the bar, behind the warmest temperature.
constexpr int kTankOff = 16;

void ShowTankTemperature(QLabel& text, Bar& bar, double value) {
  BindScrollText(text, bar, value);
  if (value >= kTankOff) {
    text.setText(QStringLiteral("OFF"));
  }
}

// "oFF" is not known here.
std::optional<int> ParseTankTemperature(QStringView text, int min, int max) {
  const bool off = text == u"off" || text == u"Off" || text == u"OFF";
  return off ? std::optional(kTankOff) : ParseWhole(text, min, max);
}

// An offset of -5 to 5 is held as 0 to 10.
void ShowOffset(QLabel& text, Bar& bar, double value) {
  BindScrollText(text, bar, value);
  text.setText(QString::number(value - 5));
}

constexpr FieldRow kBoiler[] = {WholeRow({.line = 245,
                                          .node = 1,
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
       .show = ShowTankTemperature,
       .parse = ParseTankTemperature,
       .low = 1,
       .limit = kTankOff - 1,
       .length = 3},
      {.record = 53,
       .mirror = 268,
       .min = 10,
       .max = 50,
       .large_change = 10,
       .show = BindScrollTenths,
       .parse = ParseDelta,
       .low = 10,
       .limit = 50,
       .length = 3,
       .restore_from_label = true},
      WholeRow({.record = 54, .mirror = 269, .min = 5, .max = 50, .large_change = 3, .length = 2}),
      WholeRow({.record = 55, .mirror = 270, .min = 1, .max = 9, .large_change = 3, .length = 1}),
      WholeRow({.record = 56, .mirror = 271, .min = 1, .max = 12, .large_change = 3, .length = 2}),
      WholeRow({.record = 57, .mirror = 272, .min = 1, .max = 30, .large_change = 3, .length = 2}),
      {.record = 52,
       .mirror = 267,
       .max = 10,
       .large_change = 3,
       .show = ShowOffset,
       .parse = ParseOffset,
       .length = 2,
       .restore_from_label = true},
  }};
  for (int n = 0; n < kTankRowCount; ++n) {
    rows[n].line = 247 + n;
    rows[n].node = node;
    rows[n].clamped = true;
  }
  return rows;
}

constexpr auto kTank2 = TankRows(2);
constexpr auto kTank3 = TankRows(3);

// A gate that arrives while the form loads is only counted, so the frames open with the form and close at the
// next arrival of a gate that says so.
constexpr Gate kGate = {.while_loading = Gate::WhileLoading::kIgnored};

}  // namespace

FrmTemperatura::FrmTemperatura()
    : BoardsForm("FrmTemperatura", kLoadThreshold, kBoards, kGate),
      boiler_(NewRows(
          {.caption = "Label1s", .value = "Label1", .box = "Text1", .bar = "HScroll1", .first = kNoArray},
          kBoiler)),
      tank2_(NewRows({.caption = "Label2s",
                      .value = "Label2",
                      .box = "Text2",
                      .bar = "HScroll2",
                      .opening_fills_box = true},
                     kTank2)),
      tank3_(NewRows({.caption = "Label3s",
                      .value = "Label3",
                      .box = "Text3",
                      .bar = "HScroll3",
                      .opening_fills_box = true},
                     kTank3)) {
  auto* layout = new QHBoxLayout(Body());
  FieldRows* const rows_of_boards[] = {&boiler_, &tank2_, &tank3_};
  for (std::size_t board = 0; board < std::size(kBoards); ++board) {
    FieldRows& rows = *rows_of_boards[board];
    auto* grid = new QGridLayout(Frame(board));
    for (int n = 0; n < rows.size(); ++n) {
      rows[n].PlaceStackedIn(*grid, 2 * n);
    }
    grid->setRowStretch(2 * rows.size(), 1);
    layout->addWidget(Frame(board), 1);
  }
}

void FrmTemperatura::InitMessaggi() {
  BoardsForm::InitMessaggi();
  setWindowTitle(Caption(26));
}

// The mirrors of the first tank are released twice and those of the second not at all. Nobody subscribes
// them, so that no polling depends on it.
void FrmTemperatura::Unload() {
  BoardsForm::Unload();
  boiler_.UnsubscribeMirrors();
  tank2_.UnsubscribeMirrors();
  tank2_.UnsubscribeMirrors();
}

}  // namespace dosmara
