// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/progress_line.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QLabel>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>
#include <utility>

#include "pictures.h"
#include "support/wait_until.h"

namespace dosmara {
namespace {

TEST(FilledLength, GrowsWithWhatHasComeAndVanishesWithTheLast) {
  EXPECT_EQ(FilledLength(100, 0, 4), 0);
  EXPECT_EQ(FilledLength(100, 1, 4), 25);
  EXPECT_EQ(FilledLength(100, 3, 4), 75);
  EXPECT_EQ(FilledLength(100, 4, 4), 0);
  EXPECT_EQ(FilledLength(100, 5, 4), 0);
  EXPECT_EQ(FilledLength(100, 0, 0), 0);
  EXPECT_EQ(FilledLength(4000, 999'999, 1'000'000), 3999);
}

// A line of 100 pixels above a label.
class ProgressLineTest : public testing::Test {
 protected:
  ProgressLineTest() : line_(new ProgressLine(&window_)), below_(new QLabel("below")) {
    auto* layout = new QVBoxLayout(&window_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(line_);
    layout->addWidget(below_);
    window_.resize(100, 60);
    window_.show();
    EXPECT_TRUE(WaitUntil([this] { return window_.windowHandle()->isExposed(); }));
    line_->installEventFilter(&counter_);
    while (Paintings() > 0) {
    }
  }

  // How often the line has been painted since the last call.
  int Paintings() {
    QApplication::processEvents();
    return std::exchange(counter_.paintings, 0);
  }

  struct Counter : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      paintings += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
    int paintings = 0;
  };

  QWidget window_;
  ProgressLine* line_;
  QLabel* below_;
  Counter counter_;
};

TEST_F(ProgressLineTest, IsPaintedOnlyWhenItsLengthChanges) {
  line_->SetShare(0, 1000);
  EXPECT_EQ(Paintings(), 1);
  for (int arrived = 1; arrived < 10; ++arrived) {
    line_->SetShare(arrived, 1000);
  }
  EXPECT_EQ(Paintings(), 0);
  line_->SetShare(10, 1000);
  EXPECT_EQ(Paintings(), 1);
  line_->SetShare(1000, 1000);
  EXPECT_EQ(Paintings(), 1);
  line_->SetShare(1000, 1000);
  EXPECT_EQ(Paintings(), 0);
}

TEST_F(ProgressLineTest, ShowsNothingBeforeAndAfterAndMovesNothing) {
  const QImage empty = Picture(*line_);
  const QRect below = below_->geometry();
  line_->SetShare(0, 4);
  const QImage none = Picture(*line_);
  line_->SetShare(1, 4);
  const QImage quarter = Picture(*line_);
  EXPECT_NE(none, empty);
  EXPECT_NE(quarter, none);
  line_->SetShare(4, 4);
  EXPECT_EQ(Picture(*line_), empty);
  QApplication::processEvents();
  EXPECT_EQ(below_->geometry(), below);
  EXPECT_GE(line_->height(), 3);
}

TEST_F(ProgressLineTest, IsReadWithoutColour) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    line_->setPalette(palette);
    line_->SetShare(2, 4);
    const QImage picture = Picture(*line_);
    EXPECT_GT(std::abs(Lightness(picture, {5, 0, 40, 3}) - Lightness(picture, {55, 0, 40, 3})), 15);
  }
}

TEST_F(ProgressLineTest, TellsItsShare) {
  line_->SetShare(12, 49);
  EXPECT_EQ(line_->accessibleDescription(), "12 of 49");
  EXPECT_DOUBLE_EQ(line_->property("share").toDouble(), 12.0 / 49);
  line_->SetShare(60, 49);
  EXPECT_EQ(line_->accessibleDescription(), "49 of 49");
  EXPECT_EQ(line_->property("share"), 1);
  line_->SetShare(0, 0);
  EXPECT_EQ(line_->property("share"), 1);
}

TEST_F(ProgressLineTest, TakesNoFocus) { EXPECT_EQ(line_->focusPolicy(), Qt::NoFocus); }

}  // namespace
}  // namespace dosmara
