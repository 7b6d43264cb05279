// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/lamp.h"

#include <algorithm>

#include "controls/tones.h"

namespace dosmara {

namespace {

const QColor kLit(35, 205, 70);
const QColor kShine(165, 250, 175);
const QColor kDarkGlass(52, 66, 58);
constexpr double kPale = 0.45;  // of a lamp that is not enabled
constexpr double kRim = 1.5;
constexpr double kShineShare = 0.4;  // of the lamp's shorter side
constexpr double kCornerShare = 0.2;

void DrawShape(QPainter& painter, const QRectF& place, LampShape shape) {
  if (shape == LampShape::kRound) {
    painter.drawEllipse(place);
  } else {
    const double corner = std::min(place.width(), place.height()) * kCornerShare;
    painter.drawRoundedRect(place, corner, corner);
  }
}

}  // namespace

void DrawLamp(QPainter& painter, const QRectF& place, LampShape shape, LampState state, bool enabled,
              const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Window);
  const QColor rim = Blend(ground, Ink(palette, true), enabled ? 0.7 : 0.45);
  const double pale = enabled ? 0 : kPale;
  const QRectF body = place.adjusted(kRim, kRim, -kRim, -kRim);
  painter.setRenderHint(QPainter::Antialiasing);
  if (state == LampState::kUnknown) {
    QPen broken(rim, kRim);
    broken.setCapStyle(Qt::FlatCap);  // a square one would all but fill the gaps
    broken.setDashPattern({1.8, 1.8});
    painter.setPen(broken);
    painter.setBrush(Qt::NoBrush);
    DrawShape(painter, body, shape);
    return;
  }
  painter.setPen(QPen(rim, kRim));
  painter.setBrush(Blend(state == LampState::kOn ? kLit : kDarkGlass, ground, pale));
  DrawShape(painter, body, shape);
  if (state == LampState::kOn) {
    const double inset = std::min(body.width(), body.height()) * (1 - kShineShare) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Blend(kShine, ground, pale));
    DrawShape(painter, body.adjusted(inset, inset, -inset, -inset), shape);
  }
}

QString LampText(const QString& words, LampState state) {
  constexpr LampState kOrder[] = {LampState::kOff, LampState::kOn, LampState::kUnknown};
  const auto word = static_cast<int>(std::ranges::find(kOrder, state) - kOrder);
  return words.section(',', word, word).trimmed();
}

}  // namespace dosmara
