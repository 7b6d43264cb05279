// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/field_label.h"

#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kPadding = 4;
constexpr double kCorner = 3;

}  // namespace

FieldLabel::FieldLabel(QWidget* parent, bool framed) : QLabel(parent), framed_(framed) {
  setAlignment(framed ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

void FieldLabel::SetQuiet(bool quiet) {
  if (quiet != quiet_) {
    quiet_ = quiet;
    update();
  }
}

QSize FieldLabel::sizeHint() const {
  const QSize text = fontMetrics().size(0, this->text());
  const QMargins margins = contentsMargins();
  return {text.width() + margins.left() + margins.right() + 2 * kPadding, text.height() + 2 * kPadding};
}

QRect FieldLabel::TextRect() const { return contentsRect().adjusted(kPadding, 0, -kPadding, 0); }

void FieldLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (framed_) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Blend(palette().color(QPalette::Window), Ink(palette(), true), 0.25));
    painter.setBrush(Blend(palette().color(QPalette::Window), Ink(palette(), true), 0.05));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  }
  painter.setPen(Ink(palette(), isEnabled() && !quiet_));
  painter.drawText(TextRect(), static_cast<int>(alignment()), text());
}

}  // namespace dosmara
