// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of FrmDosi and how they lie on it.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <array>

#include "controls/keypad.h"
#include "controls/two_position_switch.h"
#include "forms/beverage/dosi_tables.h"

namespace dosmara {

// Everything on the form but the timers: on the left the keypad and the tests of the whole drink, on the
// right the rows in their groups with the tests of single parts, below them the properties. The widgets
// belong to `body`; the form connects them.
struct DosiControls {
  DosiControls(QWidget* body, const bool& in_arrival, QString* saved_text);

  // Sets all captions from the language, with `selection` as the one shown.
  void SetCaptions(int selection);

  // Tells which selection is shown.
  void ShowSelection(int selection);

  // Enables or disables what belongs to no row.
  void SetCommonEnabled(bool enabled);

  FieldRows rows;
  QLabel* label7;                                                           // the selection shown
  Keypad* keypad;                                                           // Label11(0..21)
  Bar* selection;                                                           // HScroll7
  std::array<QPushButton*, std::size(dosi::kDrinkTestCodes)> drink_tests;   // Command1
  std::array<QPushButton*, std::size(dosi::kPartTests)> part_tests;         // cmdProva
  std::array<FieldLabel*, std::size(dosi::kProperties)> property_captions;  // Label8
  std::array<TwoPositionSwitch*, std::size(dosi::kProperties)> properties;  // SwitchX1

 private:
  QLayout* LayOutSelection();
  QLayout* LayOutRows();
  QLayout* LayOutProperties();
};

}  // namespace dosmara
