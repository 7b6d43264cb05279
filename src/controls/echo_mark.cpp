// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/echo_mark.h"

#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

EchoMark::EchoMark(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void EchoMark::SetState(State state) {
  if (state != state_) {
    state_ = state;
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
  if (state_ == State::kWaiting) {
    painter.setPen(QPen(WaitTone(palette()), stroke));
    painter.drawEllipse(QRectF(side * 0.25, side * 0.25, side * 0.5, side * 0.5));
  } else {
    painter.setPen(QPen(GoodTone(palette()), stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF tick[] = {
        {side * 0.2, side * 0.55}, {side * 0.42, side * 0.77}, {side * 0.82, side * 0.25}};
    painter.drawPolyline(tick, 3);
  }
}

}  // namespace dosmara
