// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/dosi_tables.h"

#include "shell/field_helpers.h"

namespace dosmara::dosi {

void ShowWater(QLabel& text, Bar& bar, double value) {
  BindScrollText(text, bar, value);
  if (value <= 1) {
    text.setText(value == 0 ? "OFF" : "0");
  }
}

void ShowSugar(QLabel& text, Bar& bar, double value) {
  BindScrollTenths(text, bar, value);
  if (value <= 1) {
    text.setText(value == 0 ? "OFF" : FormatDecimals(0, 1));
  }
}

}  // namespace dosmara::dosi
