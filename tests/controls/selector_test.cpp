// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/selector.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <vector>

#include "pictures.h"

namespace dosmara {
namespace {

constexpr int kHeight = 16;  // of a word

// Which rows the segments lie in: the number of segments in each.
std::vector<int> Rows(const SelectorGeometry& geometry) {
  std::vector<int> rows;
  int y = -1;
  for (const QRect& segment : geometry.segments) {
    if (segment.y() != y) {
      rows.push_back(0);
    }
    y = segment.y();
    ++rows.back();
  }
  return rows;
}

TEST(SelectorGeometry, FewShortWordsLieInARow) {
  EXPECT_EQ(Rows(LayOutSelector({50, 45}, kHeight)), std::vector<int>{2});
  EXPECT_EQ(Rows(LayOutSelector({40, 45, 50, 45}, kHeight)), std::vector<int>{4});
  EXPECT_EQ(Rows(LayOutSelector({60, 120, 95}, kHeight)), std::vector<int>{3});
  EXPECT_EQ(Rows(LayOutSelector(std::vector<int>(8, 8), kHeight)), std::vector<int>{8});
}

TEST(SelectorGeometry, SixteenNumbersLieInTwoEqualRows) {
  const SelectorGeometry geometry = LayOutSelector(std::vector<int>(16, 18), kHeight);
  EXPECT_EQ(Rows(geometry), (std::vector<int>{8, 8}));
  EXPECT_EQ(geometry.segments[0].x(), geometry.segments[8].x());
  EXPECT_EQ(geometry.segments[7].size(), geometry.segments[8].size());
}

TEST(SelectorGeometry, LongWordsLieInAColumn) {
  EXPECT_EQ(Rows(LayOutSelector({160, 200, 150}, kHeight)), (std::vector<int>{1, 1, 1}));
  EXPECT_EQ(Rows(LayOutSelector(std::vector<int>(6, 200), kHeight)), (std::vector<int>(6, 1)));
}

TEST(SelectorGeometry, EachWordHasRoomAndNoTwoSegmentsOverlap) {
  for (const std::vector<int>& words :
       {std::vector<int>{60, 120, 95}, std::vector<int>(16, 18), std::vector<int>{160, 200, 150}}) {
    const SelectorGeometry geometry = LayOutSelector(words, kHeight);
    ASSERT_EQ(geometry.segments.size(), words.size());
    for (std::size_t a = 0; a < words.size(); ++a) {
      EXPECT_GE(geometry.segments[a].width(), words[a] + 8) << a;
      EXPECT_GE(geometry.segments[a].height(), kHeight) << a;
      EXPECT_TRUE(QRect(QPoint(), geometry.size).adjusted(3, 3, -3, -3).contains(geometry.segments[a])) << a;
      for (std::size_t b = 0; b < a; ++b) {
        EXPECT_FALSE(geometry.segments[a].intersects(geometry.segments[b])) << a << " " << b;
      }
    }
  }
}

TEST(SelectorGeometry, WithoutWordsThereIsNothing) {
  EXPECT_TRUE(LayOutSelector({}, kHeight).segments.empty());
}

// A selector of three positions in a window with something else that can have the focus.
class SelectorTest : public testing::Test {
 protected:
  SelectorTest() : selector_(new Selector(&window_)), other_(new QLineEdit) {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(selector_);
    layout->addWidget(other_);
    selector_->SetPositionTexts("Normale, ECS differenziato, Price holding");
    window_.show();
    QApplication::setActiveWindow(&window_);
    selector_->setFocus();
    QObject::connect(selector_, &Selector::Changed, [this](int position) { changes_.push_back(position); });
  }

  QPoint CentreOf(int position) {
    std::vector<int> widths;
    QFont bold = selector_->font();
    bold.setBold(true);
    for (const char* word : {"Normale", "ECS differenziato", "Price holding"}) {
      widths.push_back(QFontMetrics(bold).horizontalAdvance(word));
    }
    return LayOutSelector(widths, QFontMetrics(bold).height()).segments[position].center();
  }

  void Wheel(int delta) {
    QWheelEvent event(QPointF(5, 5), selector_->mapToGlobal(QPointF(5, 5)), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(selector_, &event);
  }

  QWidget window_;
  Selector* selector_;
  QLineEdit* other_;
  std::vector<int> changes_;
};

TEST_F(SelectorTest, KeysMoveByOneAndToTheEnds) {
  struct Step {
    Qt::Key key;
    int position;
  };
  for (const Step& step : {Step{Qt::Key_Right, 1}, Step{Qt::Key_Down, 2}, Step{Qt::Key_Left, 1},
                           Step{Qt::Key_Up, 0}, Step{Qt::Key_End, 2}, Step{Qt::Key_Home, 0}}) {
    changes_.clear();
    QTest::keyClick(selector_, step.key);
    EXPECT_EQ(changes_, std::vector<int>{step.position}) << step.key;
  }
}

TEST_F(SelectorTest, StopsAtTheEnds) {
  selector_->SetPosition(0);
  QTest::keyClick(selector_, Qt::Key_Left);
  EXPECT_EQ(selector_->Position(), 0);
  selector_->SetPosition(2);
  QTest::keyClick(selector_, Qt::Key_Right);
  EXPECT_EQ(changes_, std::vector<int>{2});
}

TEST_F(SelectorTest, AClickChoosesThePositionUnderIt) {
  QTest::mouseClick(selector_, Qt::LeftButton, {}, CentreOf(2));
  QTest::mouseClick(selector_, Qt::LeftButton, {}, CentreOf(1));
  QTest::mouseClick(selector_, Qt::LeftButton, {}, CentreOf(1));
  QTest::mouseClick(selector_, Qt::RightButton, {}, CentreOf(0));
  QTest::mouseClick(selector_, Qt::LeftButton, {}, {1, 1});
  EXPECT_EQ(changes_, (std::vector<int>{2, 1}));
}

TEST_F(SelectorTest, APressThatSlidesOffChoosesNothing) {
  QTest::mousePress(selector_, Qt::LeftButton, {}, CentreOf(2));
  QTest::mouseRelease(selector_, Qt::LeftButton, {}, CentreOf(1));
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(SelectorTest, TheWheelTurnsItOnlyWithTheFocus) {
  Wheel(-120);
  Wheel(-60);
  Wheel(-60);
  Wheel(120);
  EXPECT_EQ(changes_, (std::vector<int>{1, 2, 1}));
  other_->setFocus();
  Wheel(120);
  EXPECT_EQ(selector_->Position(), 1);
}

TEST_F(SelectorTest, IsOneStopOfTab) {
  QTest::keyClick(selector_, Qt::Key_Tab);
  EXPECT_TRUE(other_->hasFocus());
  EXPECT_EQ(selector_->focusPolicy(), Qt::StrongFocus);
}

TEST_F(SelectorTest, WhateverIsChosenWhileThePositionIsNotKnownIsAChange) {
  QTest::mouseClick(selector_, Qt::LeftButton, {}, CentreOf(0));
  EXPECT_TRUE(selector_->IsKnown());
  selector_->SetKnown(false);
  QTest::keyClick(selector_, Qt::Key_Home);
  QTest::keyClick(selector_, Qt::Key_Home);
  EXPECT_EQ(changes_, (std::vector<int>{0, 0}));
}

TEST_F(SelectorTest, ThePositionThatItHasIsNoChange) {
  selector_->SetPosition(0);
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(SelectorTest, APositionThatDoesNotExistIsIgnored) {
  selector_->SetPosition(1);
  selector_->SetPosition(3);
  selector_->SetPosition(-1);
  EXPECT_EQ(changes_, std::vector<int>{1});
  EXPECT_EQ(selector_->Position(), 1);
}

TEST_F(SelectorTest, APositionThatIsNoMoreBecomesTheFirst) {
  selector_->SetPosition(2);
  selector_->SetPositionTexts("a,b,c");
  EXPECT_EQ(selector_->Position(), 2);
  selector_->SetPositionTexts("Snack, Pan");
  EXPECT_EQ(changes_, (std::vector<int>{2, 0}));
  EXPECT_EQ(selector_->PositionCount(), 2);
}

TEST_F(SelectorTest, ACommaBehindTheLastWordAddsNoPosition) {
  selector_->SetPositionTexts("No, Yes,");
  EXPECT_EQ(selector_->PositionCount(), 2);
  selector_->SetPositionTexts("");
  EXPECT_EQ(selector_->PositionCount(), 0);
  selector_->SetPosition(0);
  QTest::keyClick(selector_, Qt::Key_Right);
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(SelectorTest, ItsPositionIsAProperty) {
  EXPECT_TRUE(selector_->setProperty("position", 2));
  EXPECT_EQ(changes_, std::vector<int>{2});
  QTest::keyClick(selector_, Qt::Key_Left);
  EXPECT_EQ(selector_->property("position"), 1);
}

TEST_F(SelectorTest, AScreenReaderHearsTheWordOfThePosition) {
  EXPECT_EQ(selector_->accessibleDescription(), "");
  selector_->SetPosition(0);
  EXPECT_EQ(selector_->accessibleDescription(), "Normale");
  selector_->SetPosition(1);
  EXPECT_EQ(selector_->accessibleDescription(), "ECS differenziato");
  selector_->SetPositionTexts("Normal, ECS differentiated, Price holding");
  EXPECT_EQ(selector_->accessibleDescription(), "ECS differentiated");
}

TEST_F(SelectorTest, IsSeenAsUnknownUntilAPositionComes) {
  EXPECT_FALSE(selector_->IsKnown());
  const QImage unknown = selector_->grab().toImage();
  selector_->SetPosition(0);
  EXPECT_TRUE(selector_->IsKnown());
  EXPECT_NE(selector_->grab().toImage(), unknown);
  selector_->setProperty("known", false);
  EXPECT_EQ(selector_->grab().toImage(), unknown);
}

TEST_F(SelectorTest, TheChosenPositionIsToldWithoutColour) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const bool enabled : {true, false}) {
      selector_->setPalette(palette);
      selector_->setEnabled(enabled);
      const QRect word(CentreOf(1) - QPoint(20, 8), QSize(40, 16));
      selector_->SetPosition(0);
      const double other = Lightness(selector_->grab().toImage(), word);
      selector_->SetPosition(1);
      EXPECT_GT(std::abs(Lightness(selector_->grab().toImage(), word) - other), 12);
    }
  }
}

TEST_F(SelectorTest, FocusAndStateShow) {
  selector_->SetPosition(1);
  const QImage focused = selector_->grab().toImage();
  other_->setFocus();
  const QImage idle = selector_->grab().toImage();
  EXPECT_NE(idle, focused);
  selector_->setEnabled(false);
  EXPECT_NE(selector_->grab().toImage(), idle);
}

TEST_F(SelectorTest, GrowsWithItsFont) {
  const QSize before = selector_->sizeHint();
  QFont large = selector_->font();
  large.setPointSizeF(large.pointSizeF() * 2);
  selector_->setFont(large);
  EXPECT_GT(selector_->sizeHint().height(), before.height() * 3 / 2);
}

}  // namespace
}  // namespace dosmara
