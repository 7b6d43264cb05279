// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/echo_mark.h"

#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

// What a mark says in words, to a screen reader and under the mouse.
const char* Words(EchoMark::State state) {
  switch (state) {
    case EchoMark::State::kOnItsWay:
      return "On its way to the machine";
    case EchoMark::State::kTaken:
      return "Taken by the machine";
    case EchoMark::State::kNotTaken:
      return "Not taken: the machine holds another value";
    case EchoMark::State::kNone:
      break;
  }
  return "";
}

}  // namespace

EchoMark::EchoMark(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void EchoMark::Sent(double value) {
  sent_ = value;
  SetState(State::kOnItsWay);
}

void EchoMark::Came(double value) {
  if (state_ == State::kOnItsWay || state_ == State::kTaken) {
    SetState(value == sent_ ? State::kTaken : State::kNotTaken);
  }
}

void EchoMark::SetState(State state) {
  if (state != state_) {
    state_ = state;
    setToolTip(Words(state));
    setAccessibleName(Words(state));
    update();
  }
}

QSize EchoMark::sizeHint() const {
  const int side = fontMetrics().height();
  return {side, side};
}

void EchoMark::paintEvent(QPaintEvent*) {
  if (state_ == State::kNone) {
    return;
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = width();
  const double stroke = side / 8;
  const QRectF disc(side * 0.15, side * 0.15, side * 0.7, side * 0.7);
  if (state_ == State::kOnItsWay) {
    painter.setPen(QPen(WaitTone(palette()), stroke));
    painter.drawEllipse(QRectF(side * 0.25, side * 0.25, side * 0.5, side * 0.5));
  } else if (state_ == State::kTaken) {
    painter.setPen(QPen(GoodTone(palette()), stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tick[] = {
        {side * 0.2, side * 0.55}, {side * 0.42, side * 0.77}, {side * 0.82, side * 0.25}};
    painter.drawPolyline(tick, 3);
  } else {
    painter.setPen(Qt::NoPen);
    painter.setBrush(BadTone(palette()));
    painter.drawEllipse(disc);
    painter.setPen(QPen(palette().color(QPalette::Window), stroke, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(side * 0.36, side * 0.36), QPointF(side * 0.64, side * 0.64));
    painter.drawLine(QPointF(side * 0.64, side * 0.36), QPointF(side * 0.36, side * 0.64));
  }
}

}  // namespace dosmara
