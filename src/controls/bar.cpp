// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/bar.h"

#include <QKeyEvent>
#include <QStyleOptionSlider>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace dosmara {

namespace {

// Smallest usable length, in widths of the letter x: both arrows, a handle and room to drag it.
constexpr int kLeastLength = 18;
// What the wheel reports for one notch.
constexpr int kWheelNotch = 120;

}  // namespace

Bar::Bar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setTracking(false);
  setMinimumWidth(kLeastLength * fontMetrics().horizontalAdvance('x'));
  connect(this, &QScrollBar::valueChanged, this, &Bar::Take);
  connect(this, &QScrollBar::sliderReleased, this, &Bar::EndDrag);
}

void Bar::SetSpan(int min, int max, int large_change) {
  setRange(min, max);
  setPageStep(large_change);
}

bool Bar::SetValue(int value) {
  if (value < minimum() || value > maximum()) {
    return false;
  }
  if (isSliderDown()) {
    Take(value);
  } else {
    setValue(value);
  }
  return true;
}

int Bar::Clamped(double value) const {
  return static_cast<int>(std::clamp<double>(std::round(value), minimum(), maximum()));
}

void Bar::Take(int value) {
  if (value != value_) {
    value_ = value;
    emit Changed(value);
  }
}

// A handle that has been moved has its change event still to come. One that is where it was follows the
// value that may have come in meanwhile.
void Bar::EndDrag() {
  if (sliderPosition() == value()) {
    setValue(value_);
  }
}

void Bar::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Down:
      triggerAction(SliderSingleStepAdd);
      break;
    case Qt::Key_Left:
    case Qt::Key_Up:
      triggerAction(SliderSingleStepSub);
      break;
    case Qt::Key_PageDown:
      triggerAction(SliderPageStepAdd);
      break;
    case Qt::Key_PageUp:
      triggerAction(SliderPageStepSub);
      break;
    default:
      QScrollBar::keyPressEvent(event);
  }
}

void Bar::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) {
    event->ignore();
    return;
  }
  wheel_ += event->angleDelta().y();
  for (; wheel_ >= kWheelNotch; wheel_ -= kWheelNotch) {
    triggerAction(SliderSingleStepAdd);
  }
  for (; wheel_ <= -kWheelNotch; wheel_ += kWheelNotch) {
    triggerAction(SliderSingleStepSub);
  }
  event->accept();
}

void Bar::paintEvent(QPaintEvent* event) {
  QScrollBar::paintEvent(event);
  if (hasFocus()) {
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
  }
}

}  // namespace dosmara
