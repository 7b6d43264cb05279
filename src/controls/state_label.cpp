// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/state_label.h"

#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr double kRim = 1.5;

}  // namespace

StateLabel::StateLabel(QWidget* parent) : FieldLabel(parent) {
  QFont bold;
  bold.setBold(true);
  setFont(bold);
  setContentsMargins(fontMetrics().height(), 0, 0, 0);
}

void StateLabel::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

void StateLabel::paintEvent(QPaintEvent* event) {
  FieldLabel::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Ink(palette(), true), kRim));
  painter.setBrush(colour_);
  const double side = contentsMargins().left() - 2 * kRim;
  painter.drawEllipse(QRectF(kRim, (height() - side) / 2, side, side));
}

}  // namespace dosmara
