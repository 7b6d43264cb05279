// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/keypad.h"

namespace dosmara {

namespace {

constexpr int kColumns = 4;
constexpr int kUpperKeys = 16;
// The panel in key pitches: six rows and half a pitch of gap between the upper and the lower keys.
constexpr double kRowPitches = 6.5;
constexpr double kGapPitches = 0.5;
constexpr double kRim = 0.15;   // around all keys
constexpr double kInset = 0.1;  // of a key within its pitch, on each side

QStringList Numbers() {
  QStringList numbers;
  for (int index = 0; index < kSelections; ++index) {
    numbers.append(QString::number(SelectionNumber(index)));
  }
  return numbers;
}

}  // namespace

QRect KeyRect(QSize size, int index) {
  const double pitch_x = size.width() / (kColumns + 2 * kRim);
  const double pitch_y = size.height() / (kRowPitches + 2 * kRim);
  const bool lower = index >= kUpperKeys;
  const int row = index / kColumns;
  const bool last_row = index >= 20;
  const double x = (kRim + index % kColumns + (last_row ? 1 : 0) + kInset) * pitch_x;
  const double y = (kRim + row + (lower ? kGapPitches : 0) + kInset) * pitch_y;
  return QRectF(x, y, pitch_x * (1 - 2 * kInset), pitch_y * (1 - 2 * kInset)).toRect();
}

Keypad::Keypad(QWidget* parent) : KeyPanel(parent, Numbers()) {}

void Keypad::SetSelection(int index) {
  for (int key = 0; key < Count(); ++key) {
    Key(key).setChecked(key == index);
  }
  SetEntry(index);
}

QSize Keypad::sizeHint() const {
  const double pitch_x = fontMetrics().horizontalAdvance('0') * 6.5;
  const double pitch_y = fontMetrics().height() * 2.1;
  return QSizeF(pitch_x * (kColumns + 2 * kRim), pitch_y * (kRowPitches + 2 * kRim)).toSize();
}

}  // namespace dosmara
