// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/led.h"

namespace dosmara {

namespace {

constexpr double kRectangleWidth = 1.7;  // in heights of the text
constexpr double kRectangleHeight = 0.8;

}  // namespace

Led::Led(QWidget* parent, LampShape shape) : Instrument(parent), shape_(shape) {}

void Led::SetKnown(bool known) {
  if (known != IsKnown()) {
    SetState(known ? LampState::kOff : LampState::kUnknown);
  }
}

void Led::SetState(LampState state) {
  if (state != state_) {
    state_ = state;
    setAccessibleDescription(LampText(state_texts_, state));
    update();
  }
}

void Led::SetStateTexts(const QString& words) {
  state_texts_ = words;
  setAccessibleDescription(LampText(state_texts_, state_));
}

QSize Led::sizeHint() const {
  const int height = fontMetrics().height() + 2;
  return shape_ == LampShape::kRound ? QSize(height, height)
                                     : QSizeF(height * kRectangleWidth, height * kRectangleHeight).toSize();
}

void Led::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawLamp(painter, rect(), shape_, state_, isEnabled(), palette());
}

}  // namespace dosmara
