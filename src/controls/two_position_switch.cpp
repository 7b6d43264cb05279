// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/two_position_switch.h"

#include <QKeyEvent>
#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kGap = 6;     // between a word and the track
constexpr int kMargin = 3;  // room for the focus frame
constexpr double kHollowLine = 2;

}  // namespace

SwitchGeometry LayOutSwitch(QSize size, int width_of_text_0, int width_of_text_1, double position) {
  const int height = size.height() - 2 * kMargin;
  const int track_x = kMargin + (width_of_text_0 > 0 ? width_of_text_0 + kGap : 0);
  SwitchGeometry geometry;
  geometry.track = QRect(track_x, kMargin, 2 * height, height);
  geometry.knob = QRect(track_x + qRound(position * height), kMargin, height, height).adjusted(2, 2, -2, -2);
  geometry.text[0] = QRect(kMargin, 0, width_of_text_0, size.height());
  geometry.text[1] = QRect(geometry.track.right() + 1 + kGap, 0, width_of_text_1, size.height());
  return geometry;
}

TwoPositionSwitch::TwoPositionSwitch(QWidget* parent) : QAbstractButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QAbstractButton::toggled, this, [this] {
    known_ = true;
    Describe();
    emit Changed(Position());
  });
}

void TwoPositionSwitch::SetPosition(int position) {
  SetKnown(true);
  setChecked(position != 0);
}

void TwoPositionSwitch::SetKnown(bool known) {
  if (known != known_) {
    known_ = known;
    Describe();
    update();
  }
}

void TwoPositionSwitch::SetPositionTexts(const QString& texts) {
  text_[0] = texts.section(',', 0, 0);
  text_[1] = texts.section(',', 1, 1);
  Describe();
  updateGeometry();
  update();
}

// A screen reader tells the word of the position behind the name.
void TwoPositionSwitch::Describe() { setAccessibleDescription(known_ ? text_[Position()] : QString()); }

QSize TwoPositionSwitch::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  const int height = metrics.height() + 2 * kMargin;
  const SwitchGeometry geometry =
      LayOutSwitch({0, height}, metrics.horizontalAdvance(text_[0]), metrics.horizontalAdvance(text_[1]), 0);
  return {geometry.text[1].right() + 1 + kMargin, height};
}

void TwoPositionSwitch::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
    setChecked(event->key() == Qt::Key_Right);  // towards where it lies already makes nothing known
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void TwoPositionSwitch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QFontMetrics metrics = fontMetrics();
  const SwitchGeometry geometry =
      LayOutSwitch(size(), metrics.horizontalAdvance(text_[0]), metrics.horizontalAdvance(text_[1]),
                   known_ ? Position() : kUnknownPosition);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = Ink(palette(), true);
  const QColor off = Blend(ground, ink, 0.25);
  const QColor on = isEnabled() ? palette().color(QPalette::Highlight) : Blend(ground, ink, 0.4);

  painter.setPen(Qt::NoPen);
  painter.setBrush(known_ && Position() == 1 ? on : off);
  const double radius = geometry.track.height() / 2.0;
  painter.drawRoundedRect(geometry.track, radius, radius);
  if (known_) {
    painter.setBrush(isEnabled() ? Qt::white : Blend(ground, Qt::white, 0.8));
    painter.drawEllipse(geometry.knob);
  } else {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ground, kHollowLine));
    painter.drawEllipse(QRectF(geometry.knob).adjusted(1, 1, -1, -1));
  }

  for (int position = 0; position < 2; ++position) {
    painter.setPen(Ink(palette(), known_ && position == Position()));
    painter.drawText(geometry.text[position], Qt::AlignCenter, text_[position]);
  }
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1.5));
    painter.drawRoundedRect(QRectF(geometry.track).adjusted(-2, -2, 2, 2), radius + 2, radius + 2);
  }
}

}  // namespace dosmara
