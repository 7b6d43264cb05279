// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of FrmDosi and how they lie on it.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <array>

#include "controls/keypad.h"
#include "forms/beverage/dosi_tables.h"

namespace dosmara {

// Everything on the form but the timers: on the left the keypad and the tests of the whole drink, on the
// right the rows in their groups with the tests of single parts, below them the properties. The widgets
// belong to `body`; the form connects them.
struct DosiControls {
  DosiControls(QWidget* body, FieldRows& rows, BitRows& properties);

  // Sets the captions of what the form does not caption by itself, with `shown` as the selection shown.
  void SetCaptions(int shown);

  // Tells which selection is shown.
  void ShowSelection(int shown);

  // Enables or disables what belongs to no row.
  void SetCommonEnabled(bool enabled);

  FieldRows& rows;
  BitRows& properties;                                                     // Label8, SwitchX1
  QLabel* label7;                                                          // the selection shown
  Keypad* keypad;                                                          // Label11(0..21)
  Bar* selection;                                                          // HScroll7
  std::array<QPushButton*, std::size(dosi::kDrinkTestCodes)> drink_tests;  // Command1
  std::array<QPushButton*, std::size(dosi::kPartTests)> part_tests;        // cmdProva

 private:
  QLayout* LayOutSelection();
  QLayout* LayOutRows();
  QLayout* LayOutProperties();
};

}  // namespace dosmara
