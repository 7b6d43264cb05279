// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/bar.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <vector>

namespace dosmara {
namespace {

using Changes = std::vector<int>;

// A bar from 0 to 100 at 50 in a window with something else that can have the focus.
class BarTest : public testing::Test {
 protected:
  BarTest() : bar_(new Bar(&window_)), other_(new Bar(&window_)) {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(bar_);
    layout->addWidget(other_);
    bar_->SetSpan(0, 100, 10);
    bar_->SetValue(50);
    window_.resize(400, 100);
    window_.show();
    QApplication::setActiveWindow(&window_);
    bar_->setFocus();
    QObject::connect(bar_, &Bar::Changed, [this](int value) { changes_.push_back(value); });
  }

  QRect Part(QStyle::SubControl part) {
    struct Probe : Bar {
      using QScrollBar::initStyleOption;
    };
    QStyleOptionSlider option;
    (bar_->*(&Probe::initStyleOption))(&option);
    return bar_->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar_);
  }

  void Press() { QTest::mousePress(bar_, Qt::LeftButton, {}, Handle()); }
  void DragBy(int pixels) {
    QMouseEvent move(QEvent::MouseMove, Handle() + QPoint(pixels, 0), bar_->mapToGlobal(Handle()),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(bar_, &move);
  }
  void Release() { QTest::mouseRelease(bar_, Qt::LeftButton, {}, Handle()); }
  QPoint Handle() {
    if (handle_.isNull()) {
      handle_ = Part(QStyle::SC_ScrollBarSlider).center();
    }
    return handle_;
  }

  void Wheel(QWidget* over, int delta) {
    QWheelEvent event(QPointF(5, 5), over->mapToGlobal(QPointF(5, 5)), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(over, &event);
  }

  QWidget window_;
  Bar* bar_;
  Bar* other_;
  QPoint handle_;
  Changes changes_;
};

TEST_F(BarTest, AChangeByTheProgramIsToldOnce) {
  EXPECT_TRUE(bar_->SetValue(60));
  EXPECT_EQ(changes_, Changes{60});
}

TEST_F(BarTest, TheValueItHasIsNoChange) {
  EXPECT_TRUE(bar_->SetValue(50));
  EXPECT_EQ(changes_, Changes{});
}

TEST_F(BarTest, AValueOutsideTheSpanIsRefused) {
  EXPECT_FALSE(bar_->SetValue(101));
  EXPECT_FALSE(bar_->SetValue(-1));
  EXPECT_EQ(bar_->Value(), 50);
  EXPECT_EQ(bar_->sliderPosition(), 50);
  EXPECT_EQ(changes_, Changes{});
  EXPECT_TRUE(bar_->SetValue(0));
  EXPECT_TRUE(bar_->SetValue(100));
}

TEST_F(BarTest, ClampsToItsSpan) {
  EXPECT_EQ(bar_->Clamped(-5), 0);
  EXPECT_EQ(bar_->Clamped(55), 55);
  EXPECT_EQ(bar_->Clamped(1e12), 100);
}

TEST_F(BarTest, KeysMoveByTheSmallAndTheLargeChange) {
  struct Step {
    Qt::Key key;
    int value;
  };
  for (const Step& step : {Step{Qt::Key_Right, 51}, Step{Qt::Key_Left, 50}, Step{Qt::Key_Down, 51},
                           Step{Qt::Key_Up, 50}, Step{Qt::Key_PageDown, 60}, Step{Qt::Key_PageUp, 50},
                           Step{Qt::Key_End, 100}, Step{Qt::Key_Home, 0}}) {
    changes_.clear();
    QTest::keyClick(bar_, step.key);
    EXPECT_EQ(changes_, Changes{step.value}) << step.key;
  }
}

TEST_F(BarTest, AKeyAtTheEndIsNoChange) {
  bar_->SetValue(100);
  changes_.clear();
  QTest::keyClick(bar_, Qt::Key_Right);
  EXPECT_EQ(changes_, Changes{});
}

TEST_F(BarTest, ClicksMoveByTheSmallAndTheLargeChange) {
  QTest::mouseClick(bar_, Qt::LeftButton, {}, Part(QStyle::SC_ScrollBarAddLine).center());
  QTest::mouseClick(bar_, Qt::LeftButton, {}, Part(QStyle::SC_ScrollBarAddPage).center());
  QTest::mouseClick(bar_, Qt::LeftButton, {}, Part(QStyle::SC_ScrollBarSubLine).center());
  EXPECT_EQ(changes_, (Changes{51, 61, 60}));
}

TEST_F(BarTest, ADragIsOneChangeAtItsEnd) {
  Press();
  DragBy(20);
  DragBy(40);
  DragBy(60);
  EXPECT_EQ(changes_, Changes{});
  EXPECT_EQ(bar_->Value(), 50);
  Release();
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_GT(changes_[0], 50);
  EXPECT_EQ(bar_->Value(), changes_[0]);
}

TEST_F(BarTest, AnArrivalDuringADragLeavesTheHandleInTheHand) {
  Press();
  DragBy(60);
  const int held = bar_->sliderPosition();
  EXPECT_TRUE(bar_->SetValue(7));
  EXPECT_EQ(bar_->Value(), 7);
  EXPECT_EQ(bar_->sliderPosition(), held);
  EXPECT_EQ(changes_, Changes{7});
  Release();
  EXPECT_EQ(changes_, (Changes{7, held}));
  EXPECT_EQ(bar_->Value(), held);
}

TEST_F(BarTest, AHandleThatWasNotMovedFollowsTheArrival) {
  Press();
  bar_->SetValue(7);
  Release();
  EXPECT_EQ(changes_, Changes{7});
  EXPECT_EQ(bar_->Value(), 7);
  EXPECT_EQ(bar_->sliderPosition(), 7);
}

TEST_F(BarTest, TheWheelTurnsTheBarThatHasTheFocus) {
  Wheel(bar_, 120);
  Wheel(bar_, -240);
  EXPECT_EQ(changes_, (Changes{51, 50, 49}));
}

TEST_F(BarTest, TheWheelLeavesABarWithoutFocusAlone) {
  other_->setFocus();
  Wheel(bar_, 120);
  EXPECT_EQ(changes_, Changes{});
}

TEST_F(BarTest, SmallTurnsOfTheWheelAddUp) {
  Wheel(bar_, 60);
  EXPECT_EQ(changes_, Changes{});
  Wheel(bar_, 60);
  EXPECT_EQ(changes_, Changes{51});
}

TEST_F(BarTest, ABarWithoutAValueCannotBeMovedByTheOperator) {
  bar_->SetKnown(false);
  QTest::keyClick(bar_, Qt::Key_Right);
  QTest::mouseClick(bar_, Qt::LeftButton, {}, Part(QStyle::SC_ScrollBarAddLine).center());
  Wheel(bar_, 120);
  EXPECT_EQ(bar_->Value(), 50);
  EXPECT_EQ(changes_, Changes{});
  bar_->SetValue(50);
  EXPECT_TRUE(bar_->IsKnown());
  QTest::keyClick(bar_, Qt::Key_Right);
  EXPECT_EQ(changes_, Changes{51});
}

TEST_F(BarTest, ABarWithoutAValueShowsNone) {
  const QImage shown = bar_->grab().toImage();
  bar_->SetKnown(false);
  const QImage unknown = bar_->grab().toImage();
  EXPECT_NE(shown, unknown);
  EXPECT_EQ(unknown.pixelColor(Part(QStyle::SC_ScrollBarSlider).left() + 1, bar_->height() / 4),
            unknown.pixelColor(Part(QStyle::SC_ScrollBarSlider).left() - 3, bar_->height() / 4));
}

TEST_F(BarTest, CanBeReachedByTabAndNotByTheWheel) { EXPECT_EQ(bar_->focusPolicy(), Qt::StrongFocus); }

TEST_F(BarTest, ShrinksWhereThereIsLittleRoomButNotToNothing) {
  window_.resize(10, 100);
  QApplication::processEvents();
  EXPECT_LT(bar_->width(), bar_->sizeHint().width());
  EXPECT_GE(bar_->width(), 80);
}

TEST_F(BarTest, ItsGrooveShowsOnAnyGround) {
  const QPalette dark(QColor(60, 60, 64), QColor(45, 45, 48));
  bar_->setPalette(dark);
  QPalette page = dark;
  for (int grey = 40; grey <= 110; ++grey) {
    page.setColor(QPalette::Window, QColor(grey, grey, grey));
    window_.setPalette(page);
    const QImage picture = window_.grab().toImage();
    const QRect groove = Part(QStyle::SC_ScrollBarGroove);
    const QPoint behind_handle(groove.right() - 10, groove.center().y());
    const int seen = picture.pixelColor(bar_->mapTo(&window_, behind_handle)).lightness();
    EXPECT_GE(seen - grey, 15) << grey;
  }
}

TEST_F(BarTest, AScreenReaderHearsItsValue) {
  auto* accessible = QAccessible::queryAccessibleInterface(bar_);
  ASSERT_NE(accessible->valueInterface(), nullptr);
  EXPECT_EQ(accessible->valueInterface()->currentValue(), 50);
}

TEST_F(BarTest, SpansTheWholeSignedRange) {
  bar_->SetSpan(-32768, 32767, 100);
  EXPECT_TRUE(bar_->SetValue(-32768));
  EXPECT_TRUE(bar_->SetValue(32767));
  EXPECT_FALSE(bar_->SetValue(32768));
}

}  // namespace
}  // namespace dosmara
