// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/tones.h"

namespace dosmara {

QColor Blend(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Window).lightness() < 128;
}

QColor Ink(const QPalette& palette, bool enabled) {
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  return enabled ? text : Blend(text, palette.color(QPalette::Active, QPalette::Window), 0.35);
}

QColor ChosenTone(const QPalette& palette) {
  return Blend(palette.color(QPalette::Active, QPalette::Highlight), Qt::black, 0.3);
}

QColor GoodTone(const QPalette& palette) {
  return IsDark(palette) ? QColor(92, 200, 120) : QColor(20, 125, 60);
}

QColor WaitTone(const QPalette& palette) {
  return IsDark(palette) ? QColor(240, 180, 70) : QColor(170, 95, 0);
}

QColor BadTone(const QPalette& palette) {
  return IsDark(palette) ? QColor(255, 120, 110) : QColor(190, 30, 30);
}

}  // namespace dosmara
