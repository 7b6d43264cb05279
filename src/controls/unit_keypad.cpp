// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/unit_keypad.h"

#include "controls/scaled_font.h"

namespace dosmara {

namespace {

constexpr int kSide = 3;         // keys in a row or column
constexpr double kRim = 0.15;    // around all keys, in pitches of a key
constexpr double kInset = 0.08;  // of a key within its pitch, on each side
constexpr double kDigitScale = 1.5;
constexpr double kPitch = 2.4;  // in heights of the text

QStringList Digits() {
  QStringList digits;
  for (int index = 0; index < kUnitKeys; ++index) {
    digits.append(QString::number(index + 1));
  }
  return digits;
}

}  // namespace

QRect UnitKeyRect(QSize size, int index) {
  const double pitch_x = size.width() / (kSide + 2 * kRim);
  const double pitch_y = size.height() / (kSide + 2 * kRim);
  const int column = index % kSide;
  const int row = index / kSide;
  const double x = (kRim + column + kInset) * pitch_x;
  const double y = (kRim + row + kInset) * pitch_y;
  return QRectF(x, y, pitch_x * (1 - 2 * kInset), pitch_y * (1 - 2 * kInset)).toRect();
}

UnitKeypad::UnitKeypad(QWidget* parent) : KeyPanel(parent, Digits()) {
  setFont(ScaledFont(font(), kDigitScale));
}

void UnitKeypad::SetOpen(bool open) {
  for (int index = 0; index < kUnitKeys; ++index) {
    Key(index).setEnabled(open);
  }
}

QSize UnitKeypad::sizeHint() const {
  const int side = qRound(fontMetrics().height() * kPitch * (kSide + 2 * kRim));
  return {side, side};
}

// The index of the keypad's key that a key of the keyboard stands for; -1 for none.
int UnitKeypad::KeyMeant(const QObject* focused, const QKeyEvent& event) {
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  for (int index = 0; index < kUnitKeys; ++index) {
    if (enter ? &Key(index) == focused : plain && event.key() == Qt::Key_1 + index) {
      return index;
    }
  }
  return -1;
}

void UnitKeypad::SetAllUp() {
  for (int index = 0; index < kUnitKeys; ++index) {
    Key(index).setDown(false);
  }
}

// A key of the keyboard presses as it goes down, not as it comes up, so that two presses that overlap come in
// their order. The key that it has pressed stays down until the finger leaves the keyboard's.
bool UnitKeypad::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    SetAllUp();
  }
  const bool goes_down = event->type() == QEvent::KeyPress;
  if (goes_down || event->type() == QEvent::KeyRelease) {
    const auto& key_event = *static_cast<QKeyEvent*>(event);
    const int index = KeyMeant(watched, key_event);
    if (index >= 0 && !key_event.isAutoRepeat()) {
      if (goes_down) {
        Key(index).click();
      }
      Key(index).setDown(goes_down && Key(index).isEnabled());
    }
    if (index >= 0) {
      return true;
    }
  }
  return KeyPanel::eventFilter(watched, event);
}

}  // namespace dosmara
