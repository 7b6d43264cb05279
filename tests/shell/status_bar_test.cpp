// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_bar.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QWindow>

#include "support/wait_until.h"

namespace dosmara {
namespace {

class StatusBarTest : public testing::Test {
 protected:
  void SetUp() override {
    bar_.MakePanels();
    bar_.resize(600, bar_.sizeHint().height());
    bar_.show();
  }
  QLabel* Panel(int n) { return bar_.findChild<QLabel*>(QString("Panels(%1)").arg(n)); }
  QImage Image(int n) { return Panel(n)->pixmap().toImage(); }

  StatusBar bar_;
};

TEST_F(StatusBarTest, StartsWithThreeLampsOff) {
  EXPECT_EQ(bar_.objectName(), "StatusBar1");
  EXPECT_EQ(Panel(1)->text(), "");
  for (int n = 2; n <= 4; ++n) {
    EXPECT_EQ(Panel(n)->property("Tag").toInt(), n - 1);
  }
}

TEST_F(StatusBarTest, GivesEachLamp255TwipsAndTheTextTheRest) {
  for (int n = 2; n <= 4; ++n) {
    EXPECT_EQ(Panel(n)->width(), 17);
    EXPECT_GT(Panel(n)->x(), Panel(n - 1)->x());
  }
  EXPECT_GT(Panel(1)->width(), 450);
}

TEST_F(StatusBarTest, ShowsSixPicturesThatDiffer) {
  std::vector<QImage> pictures;
  for (int image = 1; image <= 6; ++image) {
    const int panel = image > 3 ? image - 2 : image + 1;
    bar_.ShowLamp(panel, image);
    EXPECT_EQ(Panel(panel)->property("Tag").toInt(), image);
    const QImage picture = Image(panel);
    EXPECT_EQ(picture.size(), QSize(16, 16));
    for (const QImage& other : pictures) {
      EXPECT_NE(picture, other) << image;
    }
    pictures.push_back(picture);
  }
}

TEST_F(StatusBarTest, SaysWhatTheLampsShow) {
  const char* texts[] = {"Transmit lamp: off", "Receive lamp: off", "Error lamp: off",
                         "Transmit lamp: on",  "Receive lamp: on",  "Error lamp: on"};
  for (int image = 1; image <= 6; ++image) {
    const int panel = image > 3 ? image - 2 : image + 1;
    bar_.ShowLamp(panel, image);
    EXPECT_EQ(Panel(panel)->toolTip(), texts[image - 1]);
    EXPECT_EQ(Panel(panel)->accessibleName(), texts[image - 1]);
  }
}

// Counts the paintings of a widget.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* /*widget*/, QEvent* event) override {
    paintings += event->type() == QEvent::Paint;
    return false;
  }
  int paintings = 0;
};

TEST_F(StatusBarTest, PaintsItsTextWithoutAnEvent) {
  ASSERT_TRUE(WaitUntil([&] { return bar_.windowHandle()->isExposed(); }));
  PaintWatch watch(*Panel(1));
  bar_.SetText("Trying Com1");
  EXPECT_EQ(watch.paintings, 1);
  EXPECT_GT(Panel(1)->width(), 450);
}

TEST_F(StatusBarTest, ClearsItsText) {
  bar_.SetText("Reading");
  EXPECT_EQ(Panel(1)->text(), "Reading");
  bar_.ClearText();
  EXPECT_EQ(Panel(1)->text(), "");
}

}  // namespace
}  // namespace dosmara
