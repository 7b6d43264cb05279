// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/schema_drawing.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "controls/tones.h"
#include "shell/picture.h"

namespace dosmara {

namespace {

constexpr double kLetterHeight = 14;  // in units of the drawing where it is at its smallest
constexpr int kMargin = 2;
constexpr double kGap = 3;            // between a text and what it stands beside
constexpr double kLampGrowth = 1.18;  // lamps are a little larger than in other forms
constexpr double kEndRadius = 2;
constexpr double kLeaderShare = 0.65;  // of the ink
constexpr double kPlateMargin = 2;     // around a lamp and its caption
constexpr double kPlateCorner = 4;
constexpr double kPlateRim = 1.5;
constexpr double kPlateShare = 0.4;  // of the tone of "on"

// A text of `size` beside the point `at`.
QRectF TextPlace(QPointF at, Beside side, QSizeF size) {
  const double w = size.width();
  const double h = size.height();
  switch (side) {
    case kRightOf:
      return {at - QPointF(0, h / 2), size};
    case kLeftOf:
      return {at - QPointF(w, h / 2), size};
    case kAbove:
      return {at - QPointF(w / 2, h), size};
    default:
      return {at - QPointF(w / 2, 0), size};
  }
}

// The middle of that side of a lamp's place.
QPointF MiddleOf(const QRectF& place, Beside side) {
  switch (side) {
    case kRightOf:
      return {place.right() + kGap, place.center().y()};
    case kLeftOf:
      return {place.left() - kGap, place.center().y()};
    case kAbove:
      return {place.center().x(), place.top() - kGap};
    default:
      return {place.center().x(), place.bottom() + kGap};
  }
}

Qt::Alignment AlignmentOf(Beside side) {
  if (side == kRightOf) {
    return Qt::AlignLeft | Qt::AlignVCenter;
  }
  return (side == kLeftOf ? Qt::AlignRight : Qt::AlignHCenter) | Qt::AlignVCenter;
}

}  // namespace

SchemaDrawing::SchemaDrawing(QWidget* parent) : QWidget(parent), machine_(Drawing(":/art/machine.svg")) {}

void SchemaDrawing::Add(Led* lamp, QLabel* caption, const LampPlace& place) {
  lamp->setParent(this);
  caption->setParent(this);
  caption->setWordWrap(true);
  caption->setAlignment(AlignmentOf(place.caption));
  lamps_.push_back({lamp, caption, &place});
}

void SchemaDrawing::Add(QLabel* word, const LegendPlace& place) {
  word->setParent(this);
  word->setWordWrap(true);
  word->setAlignment(AlignmentOf(place.word));
  QFont bold = word->font();
  bold.setBold(true);
  word->setFont(bold);
  words_.push_back({word, &place});
}

void SchemaDrawing::Add(QWidget* instrument, QPointF place) {
  instrument->setParent(this);
  instruments_.push_back({instrument, place});
}

// The plate lies behind lamp and caption and is the drawing's to paint.
void SchemaDrawing::SetOn(int n, bool on) {
  const Lamp& lamp = lamps_[n];
  const bool was_on = lamp.lamp->IsOn();
  lamp.lamp->SetOn(on);
  if (on != was_on) {
    update(Plate(lamp));
  }
}

QRect SchemaDrawing::Plate(const Lamp& lamp) const {
  const int margin = qRound(kPlateMargin * Scale());
  return lamp.lamp->geometry().united(lamp.caption->geometry()).adjusted(-margin, -margin, margin, margin);
}

QSize SchemaDrawing::sizeHint() const {
  const QSizeF smallest = kSchemaSize * (fontMetrics().height() / kLetterHeight);
  return smallest.toSize() + QSize(2 * kMargin, 2 * kMargin);
}

double SchemaDrawing::Scale() const {
  return std::min((width() - 2 * kMargin) / kSchemaSize.width(),
                  (height() - 2 * kMargin) / kSchemaSize.height());
}

QPoint SchemaDrawing::Origin() const {
  const QSizeF room = QSizeF(size()) - kSchemaSize * Scale();
  return QPointF(room.width() / 2, room.height() / 2).toPoint();
}

bool SchemaDrawing::event(QEvent* event) {
  const bool done = QWidget::event(event);
  if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
    LayOut();
  }
  if (event->type() == QEvent::FontChange) {
    updateGeometry();
  }
  return done;
}

void SchemaDrawing::LayOutText(QLabel& label, QPointF at, Beside side, double width) {
  const QRect text = label.fontMetrics().boundingRect(QRect(0, 0, static_cast<int>(width), QWIDGETSIZE_MAX),
                                                      Qt::TextWordWrap, label.text());
  label.setGeometry(TextPlace(at, side, text.size()).toAlignedRect());
}

void SchemaDrawing::LayOut() {
  const double scale = Scale();
  const QPointF origin = Origin();
  const double growth = scale * kLetterHeight / fontMetrics().height();
  for (const Lamp& each : lamps_) {
    QRectF place(QPointF(), QSizeF(each.lamp->sizeHint()) * growth * kLampGrowth);
    place.moveCenter(origin + each.place->centre * scale);
    each.lamp->setGeometry(place.toRect());
    const Beside side = each.place->caption;
    LayOutText(*each.caption, MiddleOf(place, side), side, each.place->width * scale);
  }
  for (const Word& each : words_) {
    const QRectF start(origin + each.place->from * scale, QSizeF());
    LayOutText(*each.word, MiddleOf(start, each.place->word), each.place->word, each.place->width * scale);
  }
  for (const Instrument& each : instruments_) {
    each.widget->setGeometry(
        {(origin + each.place * scale).toPoint(), (QSizeF(each.widget->sizeHint()) * growth).toSize()});
  }
  update();  // plates go with their captions
}

void SchemaDrawing::PaintPlates(QPainter& painter) const {
  const QColor rim = GoodTone(palette());
  const double scale = Scale();
  const double half = kPlateRim * scale / 2;
  painter.setPen(QPen(rim, 2 * half));
  painter.setBrush(Blend(palette().color(QPalette::Window), rim, kPlateShare));
  for (const Lamp& each : lamps_) {
    if (each.lamp->IsOn() && each.lamp->isVisible()) {
      const QRectF inside = QRectF(Plate(each)).adjusted(half, half, -half, -half);
      painter.drawRoundedRect(inside, kPlateCorner * scale, kPlateCorner * scale);
    }
  }
}

void SchemaDrawing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  machine_->render(&painter, QRectF(Origin(), kSchemaSize * Scale()));
  PaintPlates(painter);
  painter.translate(Origin());
  painter.scale(Scale(), Scale());
  const QColor ink = Blend(palette().color(QPalette::Window), Ink(palette(), true), kLeaderShare);
  for (const Word& each : words_) {
    painter.setPen(QPen(ink, 1));
    painter.drawLine(each.place->from, each.place->to);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    painter.drawEllipse(each.place->to, kEndRadius, kEndRadius);
  }
}

}  // namespace dosmara
