// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/seven_segment.h"

#include <QPainter>
#include <QTime>
#include <algorithm>
#include <cmath>

#include "controls/tones.h"

namespace dosmara {

namespace {

const QColor kPanel(16, 20, 18);
const QColor kLit(70, 230, 105);
constexpr double kUnlitShare = 0.13;  // of the lit tone
constexpr double kPale = 0.4;         // of a display that is not enabled
constexpr double kDigitHeight = 1.7;  // in heights of the text
constexpr double kDigitWidth = 0.52;  // all the rest in heights of a digit
constexpr double kPointWidth = 0.22;
constexpr double kBorder = 0.22;
constexpr double kThickness = 0.12;
constexpr double kGap = 0.02;  // between two segments
constexpr double kCorner = 4;
constexpr int kSegments = 7;
constexpr int kClockPlaces = 4;
constexpr int kMiddleBar = 1 << 6;

double WidthOf(double digit_height, int places) {
  return digit_height * (places * (kDigitWidth + kPointWidth) - kPointWidth + 2 * kBorder);
}

bool IsPoint(QChar character) { return character == '.' || character == ':'; }

}  // namespace

QString SegmentText(double value, int digits, int decimals) {
  if (std::isnan(value)) {
    return {};
  }
  const double scale = std::pow(10, decimals);
  const double rounded = std::round(value * scale);
  if (std::abs(rounded) >= std::pow(10, digits)) {
    return decimals > 0 ? SegmentText(value, digits, 0) : QString(digits + 1, '-');
  }
  const QString text = QString::number(rounded / scale, 'f', decimals);
  return text.rightJustified(digits + 1 + (decimals > 0 ? 1 : 0));
}

int SegmentsOf(QChar character) {
  constexpr int kDigits[] = {0x3f, 0x06, 0x5b, 0x4f, 0x66, 0x6d, 0x7d, 0x07, 0x7f, 0x6f};
  if (character == '-') {
    return kMiddleBar;
  }
  return character.isDigit() ? kDigits[character.digitValue()] : 0;
}

// A segment is a bar with a point at each end.
QPolygonF SegmentShape(int segment, const QRectF& place) {
  const double thick = place.height() * kThickness;
  const double gap = place.height() * kGap;
  const QRectF axes = place.adjusted(thick / 2, thick / 2, -thick / 2, -thick / 2);
  const QPointF left_middle(axes.left(), axes.center().y());
  const QPointF right_middle(axes.right(), axes.center().y());
  const QLineF lines[kSegments] = {
      {axes.topLeft(), axes.topRight()},  {axes.topRight(), right_middle},
      {right_middle, axes.bottomRight()}, {axes.bottomLeft(), axes.bottomRight()},
      {left_middle, axes.bottomLeft()},   {axes.topLeft(), left_middle},
      {left_middle, right_middle},
  };
  const QLineF& line = lines[segment];
  const QPointF along = QPointF(line.dx(), line.dy()) / line.length();
  const QPointF aside = QPointF(-along.y(), along.x()) * thick / 2;
  const QPointF start = line.p1() + along * gap;
  const QPointF end = line.p2() - along * gap;
  const QPointF slope = along * thick / 2;
  return {
      {start, start + slope - aside, end - slope - aside, end, end - slope + aside, start + slope + aside}};
}

SegmentGeometry LayOutSegments(QSize size, int digits) {
  const double per_height = WidthOf(1, digits);
  const double height = std::min(size.height() / (1 + 2 * kBorder), size.width() / per_height);
  const double y = (size.height() - height) / 2;
  double x = (size.width() - per_height * height) / 2 + kBorder * height;
  SegmentGeometry geometry;
  for (int n = 0; n < digits; ++n) {
    geometry.digits.emplace_back(x, y, kDigitWidth * height, height);
    x += kDigitWidth * height;
    geometry.points.emplace_back(x, y, kPointWidth * height, height);
    x += kPointWidth * height;
  }
  return geometry;
}

SegmentPanel::SegmentPanel(QWidget* parent, int places) : Instrument(parent), places_(places) {}

void SegmentPanel::SetText(const QString& text) {
  if (text != text_) {
    text_ = text;
    setAccessibleDescription(text.trimmed());
    update();
  }
}

QSize SegmentPanel::sizeHint() const {
  const double digit_height = fontMetrics().height() * kDigitHeight;
  return {static_cast<int>(std::ceil(WidthOf(digit_height, places_))),
          static_cast<int>(std::ceil(digit_height * (1 + 2 * kBorder)))};
}

// Unlit segments stay faintly in sight, so that an empty display is seen to be a display.
void SegmentPanel::paintEvent(QPaintEvent*) {
  const SegmentGeometry geometry = LayOutSegments(size(), places_);
  const QColor lit = Blend(kLit, kPanel, isEnabled() ? 0 : kPale);
  const QColor unlit = Blend(kPanel, kLit, kUnlitShare);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Blend(palette().color(QPalette::Window), Ink(palette(), true), 0.4));
  painter.setBrush(kPanel);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  painter.setPen(Qt::NoPen);
  int place = 0;
  for (const QChar character : text_.isEmpty() ? QString(places_, ' ') : text_) {
    if (IsPoint(character)) {
      const QRectF room = geometry.points[place - 1];
      const double side = room.height() * kThickness;
      painter.setBrush(lit);
      const double x = room.center().x() - side / 2;
      if (character == '.') {
        painter.drawEllipse(QRectF(x, room.bottom() - side, side, side));
      } else {
        painter.drawEllipse(QRectF(x, room.top() + room.height() * 0.3 - side / 2, side, side));
        painter.drawEllipse(QRectF(x, room.top() + room.height() * 0.7 - side / 2, side, side));
      }
      continue;
    }
    const int lit_segments = SegmentsOf(character);
    for (int segment = 0; segment < kSegments; ++segment) {
      painter.setBrush((lit_segments & 1 << segment) != 0 ? lit : unlit);
      painter.drawPolygon(SegmentShape(segment, geometry.digits[place]));
    }
    ++place;
  }
}

SevenSegment::SevenSegment(QWidget* parent, int digits, int decimals)
    : SegmentPanel(parent, digits + 1), digits_(digits), decimals_(decimals) {}

void SevenSegment::SetValue(double value) { Show(true, value); }

void SevenSegment::SetKnown(bool known) {
  if (known != known_) {
    Show(known, 0);
  }
}

void SevenSegment::Show(bool known, double value) {
  known_ = known;
  value_ = value;
  SetText(known ? SegmentText(value, digits_, decimals_) : QString());
}

SegmentClock::SegmentClock(QWidget* parent) : SegmentPanel(parent, kClockPlaces) {}

void SegmentClock::SetTime(const QString& time) {
  if (time.isEmpty() || QTime::fromString(time, "hh:mm").isValid()) {
    time_ = time;
    SetText(time);
  }
}

}  // namespace dosmara
