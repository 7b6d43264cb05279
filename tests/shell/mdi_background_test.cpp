// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mdi_background.h"

#include <gtest/gtest.h>

#include <QImage>

namespace dosmara {
namespace {

// The drawing is 1600 x 900 units large, and its wall is plain to the left of the cup.
constexpr QRgb kTop = qRgb(0x3d, 0x4c, 0x5b);
constexpr QRgb kBottom = qRgb(0x27, 0x32, 0x3d);

QImage Shown(QSize size) {
  MdiBackground area;
  area.resize(size);
  return area.viewport()->grab().toImage();
}

void ExpectNear(QRgb pixel, QRgb tone) {
  EXPECT_NEAR(qRed(pixel), qRed(tone), 2);
  EXPECT_NEAR(qGreen(pixel), qGreen(tone), 2);
  EXPECT_NEAR(qBlue(pixel), qBlue(tone), 2);
}

TEST(MdiBackground, CoversTheAreaFromEdgeToEdge) {
  for (const QSize size : {QSize(1600, 900), QSize(400, 900)}) {
    const QImage shown = Shown(size);
    ExpectNear(shown.pixel(2, 2), kTop);
    ExpectNear(shown.pixel(shown.width() - 3, 2), kTop);
    ExpectNear(shown.pixel(2, shown.height() - 3), kBottom);
    ExpectNear(shown.pixel(shown.width() - 3, shown.height() - 3), kBottom);
  }
}

TEST(MdiBackground, ShowsTheMiddleOfItsPictureWhereTheAreaHasAnotherShape) {
  const QImage whole = Shown({1600, 900});
  for (const QRect middle : {QRect(600, 0, 400, 900), QRect(0, 350, 1600, 200)}) {
    const QImage shown = Shown(middle.size());
    for (int x = 5; x < middle.width(); x += 20) {
      for (int y = 5; y < middle.height(); y += 20) {
        ExpectNear(shown.pixel(x, y), whole.pixel(middle.topLeft() + QPoint(x, y)));
      }
    }
  }
}

}  // namespace
}  // namespace dosmara
