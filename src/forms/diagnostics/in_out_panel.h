// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of FrmInOut: how they lie and what they say.
#pragma once

#include <vector>

#include "controls/led.h"
#include "controls/state_label.h"
#include "forms/diagnostics/board_under_test.h"
#include "forms/diagnostics/wish_mark.h"

namespace dosmara {

// The test and the main board at the left, beside them the hot drinks unit, below them both Zeth units. The
// form derives from it and lets the controls do something; what only shows is done here.
class InOutPanel : public DataForm {
 public:
  InOutPanel();

  void InitMessaggi() override;

 protected:
  // Tells whether the test is on.
  void ShowState();

  bool TestAttivo = false;  // all boards that are there report test mode

  DrinksUnderTest drinks_;
  ZethUnderTest zeth_;
  ZethUnderTest zeth2_;
  QPushButton* button_;  // Command1
  WishMark* mark_;

 private:
  // What shows or switches something, and the label that says what.
  struct Instrument {
    QWidget* control;
    FieldLabel* caption;
  };

  QLayout* LayOutTest();
  QGroupBox* LayOutDrinks();
  QGroupBox* LayOutZeth(ZethUnderTest& unit, const in_out::ZethControls& controls);
  void PlaceInputs(QGridLayout& grid, int first, int end);
  FieldLabel* NewCaption(QWidget* control, const QString& name, const QString& caption, int line,
                         int number = 0);

  BitRows& inputs_;
  SevenSegment* boiler_;  // iAnalogX1
  StateLabel* state_;     // Label7
  std::vector<Instrument> instruments_;
};

}  // namespace dosmara
