// SPDX-License-Identifier: GPL-3.0-or-later
// What tests of painted controls share: pictures, and how light they are.
#pragma once

#include <QApplication>
#include <QImage>
#include <QPalette>
#include <QWidget>

namespace dosmara {

inline QImage Picture(QWidget& widget) { return widget.grab().toImage(); }

// The palettes that the tool meets, with the style's highlight.
inline QPalette WithHighlight(QPalette palette) {
  palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
  return palette;
}
inline QPalette LightPalette() { return WithHighlight(QColor(239, 239, 239)); }
inline QPalette DarkPalette() { return WithHighlight({QColor(53, 53, 56), QColor(45, 45, 48)}); }

// Mean lightness of a part of a picture without its colour, 0 to 255.
inline double Lightness(const QImage& picture, const QRect& part) {
  double sum = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      sum += qGray(picture.pixel(x, y));
    }
  }
  return sum / (part.width() * part.height());
}

}  // namespace dosmara
