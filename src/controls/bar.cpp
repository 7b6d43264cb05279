// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/bar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "controls/tones.h"

namespace dosmara {

namespace {

// Lengths in widths of the letter x: the usual one, and the least that a small screen leaves, in which there
// is still room for both arrows, the handle, and dragging it.
constexpr int kUsualLength = 24;
constexpr int kLeastLength = 13;
// What the wheel reports for one notch.
constexpr int kWheelNotch = 120;
constexpr int kFocusRoom = 3;
constexpr double kCorner = 3;

// The arrow in an end of the bar: pointing right for a `direction` of 1, left for -1.
QPolygonF Arrow(const QRectF& end, int direction) {
  const QPointF centre = end.center();
  const double reach = end.height() / 4;
  return {{centre + QPointF(direction * reach, 0), centre + QPointF(-direction * reach, -reach),
           centre + QPointF(-direction * reach, reach)}};
}

}  // namespace

Bar::Bar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
  setFocusPolicy(Qt::StrongFocus);
  setTracking(false);
  setMinimumSize(kLeastLength * fontMetrics().horizontalAdvance('x'), sizeHint().height());
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
  SetKnown(true);
  if (isSliderDown()) {
    Take(value);
  } else {
    setValue(value);
  }
  return true;
}

void Bar::SetKnown(bool known) {
  if (known != known_) {
    known_ = known;
    update();
  }
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

// A drag that has moved the handle raises its change event by itself, after this. If the handle is back where
// the drag began, it goes to the value that may have arrived during the drag.
void Bar::EndDrag() {
  if (sliderPosition() == value()) {
    setValue(value_);
  }
}

void Bar::keyPressEvent(QKeyEvent* event) {
  if (!known_) {
    event->ignore();
    return;
  }
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

void Bar::mousePressEvent(QMouseEvent* event) {
  if (known_) {
    QScrollBar::mousePressEvent(event);
  }
}

void Bar::wheelEvent(QWheelEvent* event) {
  if (!hasFocus() || !known_) {
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

QSize Bar::sizeHint() const {
  return {kUsualLength * fontMetrics().horizontalAdvance('x'), fontMetrics().height() + 2 * kFocusRoom};
}

// The groove is filled up to the handle, so that the value can be judged from afar.
void Bar::paintEvent(QPaintEvent*) {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const auto part = [&](QStyle::SubControl control) {
    return QRectF(style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this))
        .adjusted(1, kFocusRoom, -1, -kFocusRoom);
  };
  const QRectF groove = part(QStyle::SC_ScrollBarGroove);
  const QRectF handle = part(QStyle::SC_ScrollBarSlider);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = Ink(palette(), true);
  const QColor line = Blend(ground, ink, isEnabled() ? 0.55 : 0.3);
  const double thickness = groove.height() / 3;

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const QRectF track(groove.left(), groove.center().y() - thickness / 2, groove.width(), thickness);
  QColor shade = ink;
  shade.setAlphaF(0.2);  // shows on any ground: a tab has another one than a window
  painter.setBrush(shade);
  painter.drawRoundedRect(track, thickness / 2, thickness / 2);
  if (known_) {
    QRectF filled = track;
    filled.setRight(handle.center().x());
    painter.setBrush(isEnabled() ? palette().color(QPalette::Highlight) : line);
    painter.drawRoundedRect(filled, thickness / 2, thickness / 2);
  }

  painter.setBrush(line);
  painter.drawPolygon(Arrow(part(QStyle::SC_ScrollBarSubLine), -1));
  painter.drawPolygon(Arrow(part(QStyle::SC_ScrollBarAddLine), 1));

  if (known_) {
    painter.setPen(line);
    painter.setBrush(Blend(palette().color(QPalette::Button), ink, isSliderDown() ? 0.2 : 0));
    painter.drawRoundedRect(handle, kCorner, kCorner);
  }
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCorner, kCorner);
  }
}

}  // namespace dosmara
