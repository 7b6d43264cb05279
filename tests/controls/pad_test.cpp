// SPDX-License-Identifier: GPL-3.0-or-later
// How the keyboard moves on a panel of buttons, seen on the keypad.
#include "controls/pad.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <vector>

#include "controls/keypad.h"

namespace dosmara {
namespace {

TEST(NeighbourOf, PassesOverEmptyPlaces) {
  EXPECT_EQ(NeighbourOf({QRect(), QRect(0, 50, 20, 20)}, 1, Qt::Key_Up), 1);
  EXPECT_EQ(NeighbourOf({QRect(0, 0, 20, 20), QRect(), QRect(0, 50, 20, 20)}, 2, Qt::Key_Up), 0);
}

TEST(NeighbourOf, PrefersTheNearestRowAndInItTheNearestButton) {
  const std::vector<QRect> buttons = {QRect(0, 0, 20, 20), QRect(40, 30, 20, 20), QRect(20, 30, 20, 20),
                                      QRect(0, 60, 20, 20)};
  EXPECT_EQ(NeighbourOf(buttons, 0, Qt::Key_Down), 2);
  EXPECT_EQ(NeighbourOf(buttons, 0, Qt::Key_Right), 0);
}

TEST(NeighbourOf, TakesNoButtonOfItsOwnRowForTheNextOne) {
  const std::vector<QRect> buttons = {QRect(0, 0, 20, 20), QRect(40, 3, 20, 20)};
  EXPECT_EQ(NeighbourOf(buttons, 0, Qt::Key_Down), 0);
  EXPECT_EQ(NeighbourOf(buttons, 0, Qt::Key_Right), 1);
}

// A keypad between two boxes.
class KeypadKeysTest : public testing::Test {
 protected:
  KeypadKeysTest() : before_(new QLineEdit), keypad_(new Keypad(&window_)), behind_(new QLineEdit) {
    auto* layout = new QVBoxLayout(&window_);
    for (QWidget* widget :
         {static_cast<QWidget*>(before_), static_cast<QWidget*>(keypad_), static_cast<QWidget*>(behind_)}) {
      layout->addWidget(widget);
    }
    QWidget::setTabOrder(before_, keypad_);
    QWidget::setTabOrder(&keypad_->Key(21), behind_);
    window_.show();
    QApplication::setActiveWindow(&window_);
    before_->setFocus();
    QObject::connect(keypad_, &Keypad::Pressed, [this](int index) { pressed_.push_back(index); });
  }

  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

  // Index of the key that has the focus; -1 for none.
  int Focused() {
    for (int n = 0; n < 22; ++n) {
      if (keypad_->Key(n).hasFocus()) {
        return n;
      }
    }
    return -1;
  }

  void SetAllEnabled(bool enabled) {
    for (int n = 0; n < 22; ++n) {
      keypad_->Key(n).setEnabled(enabled);
    }
  }

  QWidget window_;
  QLineEdit* before_;
  Keypad* keypad_;
  QLineEdit* behind_;
  std::vector<int> pressed_;
};

TEST_F(KeypadKeysTest, TabEntersOnceOnTheFirstKey) {
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), 0);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Focused(), 0);
  Press(Qt::Key_Backtab);
  EXPECT_TRUE(before_->hasFocus());
}

TEST_F(KeypadKeysTest, TabEntersOnTheLitKey) {
  keypad_->SetSelection(17);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), 17);
}

TEST_F(KeypadKeysTest, TabPassesOverALitKeyThatIsDisabled) {
  keypad_->SetSelection(17);
  keypad_->Key(17).setEnabled(false);
  keypad_->Key(0).setEnabled(false);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Focused(), 1);
}

TEST_F(KeypadKeysTest, TabPassesOverAKeypadWithoutEnabledKeys) {
  SetAllEnabled(false);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
}

TEST_F(KeypadKeysTest, TabLeavesFromWhereTheArrowsLedAndComesBackToTheLitKey) {
  keypad_->SetSelection(2);
  Press(Qt::Key_Tab);
  Press(Qt::Key_Down);
  EXPECT_EQ(Focused(), 6);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
  Press(Qt::Key_Backtab);
  EXPECT_EQ(Focused(), 2);
}

TEST_F(KeypadKeysTest, TabLeavesToBothSidesPastTheLitKey) {
  keypad_->SetSelection(2);
  Press(Qt::Key_Tab);
  Press(Qt::Key_Left);
  EXPECT_EQ(Focused(), 1);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
  Press(Qt::Key_Backtab);
  Press(Qt::Key_Right);
  EXPECT_EQ(Focused(), 3);
  Press(Qt::Key_Backtab);
  EXPECT_TRUE(before_->hasFocus());
}

TEST_F(KeypadKeysTest, ArrowsMoveAsTheKeysLie) {
  struct Step {
    int from;
    Qt::Key arrow;
    int to;
  };
  for (const Step& step :
       {Step{0, Qt::Key_Right, 1}, Step{1, Qt::Key_Left, 0}, Step{0, Qt::Key_Down, 4}, Step{4, Qt::Key_Up, 0},
        Step{15, Qt::Key_Down, 19}, Step{16, Qt::Key_Up, 12}, Step{17, Qt::Key_Down, 20},
        Step{18, Qt::Key_Down, 21}, Step{16, Qt::Key_Down, 20}, Step{19, Qt::Key_Down, 21},
        Step{20, Qt::Key_Up, 17}, Step{21, Qt::Key_Left, 20},
        // at the edges nothing moves
        Step{0, Qt::Key_Left, 0}, Step{3, Qt::Key_Right, 3}, Step{2, Qt::Key_Up, 2},
        Step{20, Qt::Key_Left, 20}, Step{21, Qt::Key_Right, 21}, Step{21, Qt::Key_Down, 21}}) {
    keypad_->Key(step.from).setFocus();
    Press(step.arrow);
    EXPECT_EQ(Focused(), step.to) << step.from;
  }
}

TEST_F(KeypadKeysTest, ArrowsPassOverDisabledKeys) {
  keypad_->Key(5).setEnabled(false);
  keypad_->Key(4).setFocus();
  Press(Qt::Key_Right);
  EXPECT_EQ(Focused(), 6);
}

TEST_F(KeypadKeysTest, SpaceAndEnterPress) {
  keypad_->Key(3).setFocus();
  Press(Qt::Key_Space);
  Press(Qt::Key_Return);
  Press(Qt::Key_Right);
  Press(Qt::Key_Enter);
  EXPECT_EQ(pressed_, (std::vector<int>{3, 3, 3}));
}

TEST_F(KeypadKeysTest, ArrowsScrollToWhereTheyLead) {
  QScrollArea area;
  auto* keypad = new Keypad(&area);
  area.setWidget(keypad);
  area.resize(120, 120);
  area.show();
  QApplication::setActiveWindow(&area);
  keypad->Key(0).setFocus();
  for (const Qt::Key arrow : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down}) {
    Press(arrow);
    const QWidget& key = *QApplication::focusWidget();
    EXPECT_EQ(key.visibleRegion().boundingRect(), key.rect());
  }
  EXPECT_TRUE(keypad->Key(11).hasFocus());
}

TEST_F(KeypadKeysTest, EnterPressesOnceHoweverLongItIsHeld) {
  keypad_->Key(3).setFocus();
  for (const bool again : {false, true, true}) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), again);
    QCoreApplication::sendEvent(&keypad_->Key(3), &event);
  }
  EXPECT_EQ(pressed_, std::vector<int>{3});
}

TEST_F(KeypadKeysTest, AnArrowPressesNothing) {
  keypad_->Key(3).setFocus();
  Press(Qt::Key_Left);
  EXPECT_EQ(pressed_, std::vector<int>{});
}

TEST_F(KeypadKeysTest, KeysThatAreDisabledForAWhileKeepTheOperatorsPlace) {
  keypad_->Key(9).setFocus();
  const QImage with_focus = keypad_->grab().toImage();
  SetAllEnabled(false);
  EXPECT_TRUE(keypad_->hasFocus());
  const QImage held = keypad_->grab().toImage();
  Press(Qt::Key_Space);
  EXPECT_EQ(pressed_, std::vector<int>{});
  SetAllEnabled(true);
  EXPECT_EQ(Focused(), 9);
  EXPECT_EQ(keypad_->grab().toImage(), with_focus);
  before_->setFocus();
  SetAllEnabled(false);
  EXPECT_NE(keypad_->grab().toImage(), held);
}

TEST_F(KeypadKeysTest, TabLeavesKeysThatAreDisabledForAWhile) {
  keypad_->Key(9).setFocus();
  SetAllEnabled(false);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
  SetAllEnabled(true);
  EXPECT_TRUE(behind_->hasFocus());
}

TEST_F(KeypadKeysTest, FocusShowsAsALightRing) {
  const QRect key = keypad_->Key(9).geometry();
  const auto edge = [&] { return qGray(keypad_->grab().toImage().pixel(key.center().x(), key.top())); };
  EXPECT_LT(edge(), 150);
  keypad_->Key(9).setFocus();
  EXPECT_GT(edge(), 200);
}

TEST_F(KeypadKeysTest, AScreenReaderHearsWhichKeyIsLit) {
  keypad_->SetSelection(4);
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&keypad_->Key(4))->state().checked);
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(&keypad_->Key(5))->state().checked);
}

TEST_F(KeypadKeysTest, APressLightsNothingByItself) {
  keypad_->SetSelection(4);
  QTest::mouseClick(&keypad_->Key(5), Qt::LeftButton);
  EXPECT_TRUE(keypad_->Key(4).isChecked());
  EXPECT_FALSE(keypad_->Key(5).isChecked());
}

}  // namespace
}  // namespace dosmara
