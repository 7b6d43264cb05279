// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/thermometer.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr double kTop = 120;
constexpr double kTickStep = kTop / (kThermometerTicks - 1);
constexpr double kBeyond = 4;       // degrees that the tube reaches beyond the scale
constexpr double kTubeWidth = 0.7;  // all lengths in heights of the text
constexpr double kBulbWidth = 1.5;
constexpr double kTickDistance = 0.35;
constexpr double kTickLength = 0.5;
constexpr double kWidth = 4.6;
constexpr double kHeight = 18;
constexpr double kGlass = 1.5;  // width of the outline
const QColor kFluid(205, 45, 40);

}  // namespace

ThermometerGeometry LayOutThermometer(QSize size, int height_of_text, double value) {
  const double em = height_of_text;
  ThermometerGeometry geometry;
  geometry.bulb = QRectF(kGlass, size.height() - kGlass - kBulbWidth * em, kBulbWidth * em, kBulbWidth * em);
  const double centre = geometry.bulb.center().x();
  const double top = em / 2;  // room for half a number
  geometry.tube = QRectF(QPointF(centre - kTubeWidth * em / 2, top),
                         QPointF(centre + kTubeWidth * em / 2, geometry.bulb.center().y()));
  const double bottom = geometry.bulb.top() - em / 4;  // of the tube's part that measures
  const double degree = (bottom - top) / (kTop + 2 * kBeyond);
  const auto height_of = [&](double degrees) { return bottom - (degrees + kBeyond) * degree; };
  for (int n = 0; n < kThermometerTicks; ++n) {
    geometry.ticks.push_back(height_of(n * kTickStep));
  }
  geometry.column = geometry.tube;
  geometry.column.setTop(height_of(std::clamp(value, -kBeyond, kTop + kBeyond)));
  geometry.tick_left = geometry.tube.right() + kTickDistance * em;
  geometry.number_left = geometry.tick_left + (kTickLength + kTickDistance) * em;
  return geometry;
}

Thermometer::Thermometer(QWidget* parent) : Instrument(parent) {}

void Thermometer::SetValue(double value) { Show(true, value); }

void Thermometer::SetKnown(bool known) {
  if (known != known_) {
    Show(known, 0);
  }
}

void Thermometer::Show(bool known, double value) {
  if (known == known_ && value == value_) {
    return;
  }
  known_ = known;
  value_ = value;
  setAccessibleDescription(known ? QString::number(value) : QString());
  update();
}

QSize Thermometer::sizeHint() const {
  const double em = fontMetrics().height();
  return QSizeF(kWidth * em, kHeight * em).toSize();
}

void Thermometer::paintEvent(QPaintEvent*) {
  const int em = fontMetrics().height();
  const ThermometerGeometry geometry = LayOutThermometer(size(), em, value_);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = Ink(palette(), isEnabled());
  const double corner = geometry.tube.width() / 2;
  QPainterPath tube;
  tube.addRoundedRect(geometry.tube, corner, corner);
  QPainterPath bulb;
  bulb.addEllipse(geometry.bulb);
  const QPainterPath glass = tube.united(bulb);

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(glass, Blend(ground, Ink(palette(), true), 0.06));
  if (known_) {
    QPainterPath column;
    column.addRect(geometry.column);
    painter.fillPath(tube.intersected(column).united(bulb), isEnabled() ? kFluid : Blend(ground, ink, 0.5));
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(ink, kGlass));
  painter.drawPath(glass);

  // Lines of whole pixels, all alike: one that lies between two rows would be smeared over both.
  painter.setRenderHint(QPainter::Antialiasing, false);
  QPen line(ink, qRound(painter.deviceTransform().m11()));
  line.setCosmetic(true);
  painter.setPen(line);
  for (int n = 0; n < kThermometerTicks; ++n) {
    const double y = geometry.ticks[n];
    painter.drawLine(QPointF(geometry.tick_left, y), QPointF(geometry.tick_left + kTickLength * em, y));
    painter.drawText(QRectF(geometry.number_left, y - em / 2.0, width() - geometry.number_left, em),
                     Qt::AlignLeft | Qt::AlignVCenter, QString::number(n * kTickStep));
  }
}

}  // namespace dosmara
