// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/dosi_tables.h"

#include "shell/field_helpers.h"

namespace dosmara::dosi {

void ShowWater(QLabel& text, Bar& bar, double value) {
  const int count = bar.Clamped(value);
  bar.SetValue(count);
  text.setText(count == 0 ? QStringLiteral("OFF") : QString::number(count == 1 ? 0 : count));
}

void ShowTime(QLabel& text, Bar& bar, double value) { BindScrollTenths(text, bar, bar.Clamped(value)); }

void ShowSugar(QLabel& text, Bar& bar, double value) {
  const int tenths = bar.Clamped(value);
  bar.SetValue(tenths);
  text.setText(tenths == 0 ? QStringLiteral("OFF") : FormatDecimals(tenths == 1 ? 0 : tenths / 10.0, 1));
}

}  // namespace dosmara::dosi
