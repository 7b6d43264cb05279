// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_bar.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QToolButton>

namespace dosmara {
namespace {

// What the mark paints that stands out from its ground.
int PixelsThatStandOut(QWidget& mark) {
  const QImage image = mark.grab().toImage();
  const int ground = image.pixelColor(0, 0).lightness();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      count += std::abs(image.pixelColor(x, y).lightness() - ground) > 120 ? 1 : 0;
    }
  }
  return count;
}

TEST(MenuBar, ShowsThatThereAreMoreMenusInLightAndDark) {
  for (const QColor window : {QColor(239, 239, 239), QColor(42, 46, 50)}) {
    MenuBar bar;
    bar.setPalette(QPalette(window, window));
    for (int i = 0; i < 10; ++i) {
      bar.addMenu("Temperatura");
    }
    bar.resize(300, 24);
    bar.show();
    auto* mark = bar.findChild<QToolButton*>("qt_menubar_ext_button");
    ASSERT_NE(mark, nullptr);
    EXPECT_TRUE(mark->isVisible());
    EXPECT_GT(PixelsThatStandOut(*mark), 5) << window.name().toStdString();
  }
}

}  // namespace
}  // namespace dosmara
