// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/application.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace dosmara {
namespace {

double Luminance(const QColor& color) {
  const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

TEST(ReadablePalette, KeepsGreyedMenusReadableInLightAndDark) {
  for (const QColor window : {QColor(239, 239, 239), QColor(42, 46, 50)}) {
    QPalette faint(window, window);
    faint.setColor(QPalette::Disabled, QPalette::ButtonText, window.lighter(110));
    faint.setColor(QPalette::Disabled, QPalette::Window, window.darker(110));
    const QPalette palette = ReadablePalette(faint);
    const auto color = [&](QPalette::ColorRole role) { return palette.color(QPalette::Disabled, role); };
    EXPECT_GE(Contrast(color(QPalette::ButtonText), color(QPalette::Window)), 3);
    EXPECT_GE(Contrast(color(QPalette::Text), color(QPalette::Base).lighter(108)), 3);
    EXPECT_EQ(color(QPalette::Window), window);
  }
}

TEST(ReadablePalette, KeepsTheValueBehindAnEntryReadableInLightAndDark) {
  for (const QColor window : {QColor(239, 239, 239), QColor(42, 46, 50)}) {
    QPalette faint(window, window);
    faint.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    const QPalette palette = ReadablePalette(faint);
    EXPECT_GE(Contrast(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Base)), 4.5);
    EXPECT_EQ(palette.color(QPalette::PlaceholderText).alpha(), 255);
    EXPECT_NE(palette.color(QPalette::PlaceholderText), palette.color(QPalette::Text));
  }
}

TEST(DressApplication, KeepsTheValuesOfAClosedFormReadable) {
  const QPalette before = QApplication::palette();
  DressApplication();
  const QPalette palette = QApplication::palette();
  QApplication::setPalette(before);
  EXPECT_GE(Contrast(palette.color(QPalette::Disabled, QPalette::Text),
                     palette.color(QPalette::Disabled, QPalette::Base)),
            4.5);
  EXPECT_GE(Contrast(palette.color(QPalette::Disabled, QPalette::WindowText),
                     palette.color(QPalette::Disabled, QPalette::Window)),
            4.5);
  EXPECT_GE(Contrast(palette.color(QPalette::Disabled, QPalette::ButtonText),
                     palette.color(QPalette::Disabled, QPalette::Window)),
            3);
  EXPECT_NE(palette.color(QPalette::Disabled, QPalette::Text),
            palette.color(QPalette::Active, QPalette::Text));
}

}  // namespace
}  // namespace dosmara
