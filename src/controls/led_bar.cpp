// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/led_bar.h"

#include "controls/lamp.h"

namespace dosmara {

namespace {

constexpr int kDistance = 2;
constexpr double kLampWidth = 0.75;  // in heights of the text

}  // namespace

QRect LedBarLamp(QSize size, int index) {
  const int left = index * size.width() / kLedBarLamps;
  const int right = (index + 1) * size.width() / kLedBarLamps;
  return {left, 0, right - left - kDistance, size.height()};
}

LedBar::LedBar(QWidget* parent) : Instrument(parent) { Describe(); }

void LedBar::SetPosition(int position) {
  if (position >= 0 && position <= kLedBarLamps && position != position_) {
    position_ = position;
    Describe();
    update();
  }
}

void LedBar::Describe() { setAccessibleDescription(QString("%1 of %2").arg(position_).arg(kLedBarLamps)); }

QSize LedBar::sizeHint() const {
  const int height = fontMetrics().height();
  return {kLedBarLamps * (qRound(kLampWidth * height) + kDistance), height * 3 / 2};
}

void LedBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (int n = 0; n < kLedBarLamps; ++n) {
    DrawLamp(painter, LedBarLamp(size(), n), LampShape::kRectangular,
             n < position_ ? LampState::kOn : LampState::kOff, isEnabled(), palette());
  }
}

}  // namespace dosmara
