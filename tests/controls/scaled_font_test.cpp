// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scaled_font.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "controls/report_list.h"
#include "controls/unit_keypad.h"

namespace dosmara {
namespace {

TEST(ScaledFont, ScalesPointsWithTheirFractions) {
  QFont font;
  font.setPointSizeF(9);
  EXPECT_EQ(ScaledFont(font, 2.5).pointSizeF(), 22.5);
}

TEST(ScaledFont, ScalesPixelsToWholeOnes) {
  QFont font;
  font.setPixelSize(13);
  EXPECT_EQ(ScaledFont(font, 1.5).pixelSize(), 20);
}

TEST(ScaledFont, KeepsAllElse) {
  QFont font("Sans");
  font.setBold(true);
  font.setPointSizeF(10);
  QFont scaled = ScaledFont(font, 3);
  EXPECT_NE(scaled, font);
  scaled.setPointSizeF(10);
  EXPECT_EQ(scaled, font);
}

TEST(ScaledFont, WidgetsGrowInAnApplicationWhoseFontIsGivenInPixels) {
  const QFont before = QApplication::font();
  QFont pixels = before;
  pixels.setPixelSize(20);
  QApplication::setFont(pixels);
  EXPECT_EQ(UnitKeypad(nullptr).font().pixelSize(), 30);
  EXPECT_EQ(ReportList(nullptr, 1).font().pixelSize(), 28);
  QApplication::setFont(before);
}

}  // namespace
}  // namespace dosmara
