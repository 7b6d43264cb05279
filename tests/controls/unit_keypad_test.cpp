// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/unit_keypad.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

#include "pictures.h"

namespace dosmara {
namespace {

TEST(UnitKeypadGeometry, ThreeRowsOfThreeFromTheTopLeft) {
  const QSize size(300, 300);
  for (int a = 0; a < 9; ++a) {
    EXPECT_TRUE(QRect(QPoint(), size).contains(UnitKeyRect(size, a))) << a;
    EXPECT_EQ(UnitKeyRect(size, a).left(), UnitKeyRect(size, a % 3).left()) << a;
    EXPECT_EQ(UnitKeyRect(size, a).top(), UnitKeyRect(size, a / 3 * 3).top()) << a;
    for (int b = 0; b < a; ++b) {
      EXPECT_FALSE(UnitKeyRect(size, a).intersects(UnitKeyRect(size, b))) << a << " " << b;
    }
  }
  EXPECT_LT(UnitKeyRect(size, 0).left(), UnitKeyRect(size, 1).left());
  EXPECT_LT(UnitKeyRect(size, 1).left(), UnitKeyRect(size, 2).left());
  EXPECT_LT(UnitKeyRect(size, 0).top(), UnitKeyRect(size, 3).top());
  EXPECT_LT(UnitKeyRect(size, 3).top(), UnitKeyRect(size, 6).top());
}

// A keypad between two buttons.
class UnitKeypadTest : public testing::Test {
 protected:
  UnitKeypadTest() : before_(new QPushButton), keypad_(new UnitKeypad(&window_)), behind_(new QPushButton) {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(before_);
    layout->addWidget(keypad_);
    layout->addWidget(behind_);
    QWidget::setTabOrder(before_, keypad_);
    QWidget::setTabOrder(&keypad_->Key(8), behind_);
    window_.show();
    QApplication::setActiveWindow(&window_);
    keypad_->Key(0).setFocus();
    QObject::connect(keypad_, &UnitKeypad::Pressed, [this](int key) { pressed_.push_back(key); });
  }

  static void Press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, with);
  }
  static void SendKey(QEvent::Type type, Qt::Key key, bool again = false) {
    QKeyEvent event(type, key, Qt::NoModifier, QString(), again);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  std::vector<int> KeysDown() {
    std::vector<int> down;
    for (int key = 0; key < 9; ++key) {
      if (keypad_->Key(key).isDown()) {
        down.push_back(key);
      }
    }
    return down;
  }
  QImage KeyPicture(int key) {
    return Picture(*keypad_).copy(keypad_->Key(key).geometry()).convertToFormat(QImage::Format_Grayscale8);
  }

  QWidget window_;
  QPushButton* before_;
  UnitKeypad* keypad_;
  QPushButton* behind_;
  std::vector<int> pressed_;
};

using Keys = std::vector<int>;

TEST_F(UnitKeypadTest, AKeyTellsItsIndexAndBearsItsDigit) {
  Keys all;
  for (int key = 0; key < 9; ++key) {
    EXPECT_EQ(keypad_->Key(key).text(), QString::number(key + 1));
    QTest::mouseClick(&keypad_->Key(key), Qt::LeftButton);
    all.push_back(key);
  }
  EXPECT_EQ(pressed_, all);
}

TEST_F(UnitKeypadTest, DigitsPressTheirKeysAndLeaveTheFocusWhereItIs) {
  for (const Qt::Key digit : {Qt::Key_1, Qt::Key_9, Qt::Key_5, Qt::Key_5}) {
    Press(digit);
  }
  Press(Qt::Key_4, Qt::KeypadModifier);
  EXPECT_EQ(pressed_, (Keys{0, 8, 4, 4, 3}));
  EXPECT_TRUE(keypad_->Key(0).hasFocus());
}

TEST_F(UnitKeypadTest, OtherKeysPressNothing) {
  Press(Qt::Key_0);
  Press(Qt::Key_A);
  Press(Qt::Key_3, Qt::AltModifier);
  Press(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(pressed_, Keys{});
}

TEST_F(UnitKeypadTest, AKeyPressesOnceHoweverLongItIsHeldAndShowsDownMeanwhile) {
  const QImage up = KeyPicture(2);
  SendKey(QEvent::KeyPress, Qt::Key_3);
  for (int n = 0; n < 3; ++n) {
    SendKey(QEvent::KeyRelease, Qt::Key_3, true);
    SendKey(QEvent::KeyPress, Qt::Key_3, true);
  }
  EXPECT_EQ(KeysDown(), Keys{2});
  EXPECT_NE(KeyPicture(2), up);
  SendKey(QEvent::KeyRelease, Qt::Key_3);
  EXPECT_EQ(KeysDown(), Keys{});
  EXPECT_EQ(KeyPicture(2), up);
  EXPECT_EQ(pressed_, Keys{2});
}

TEST_F(UnitKeypadTest, DigitsThatOverlapComeInTheirOrder) {
  SendKey(QEvent::KeyPress, Qt::Key_3);
  SendKey(QEvent::KeyPress, Qt::Key_5);
  EXPECT_EQ(KeysDown(), (Keys{2, 4}));
  SendKey(QEvent::KeyRelease, Qt::Key_5);
  SendKey(QEvent::KeyRelease, Qt::Key_3);
  EXPECT_EQ(pressed_, (Keys{2, 4}));
}

TEST_F(UnitKeypadTest, AKeyThatIsHeldWhileTheFocusLeavesComesUp) {
  SendKey(QEvent::KeyPress, Qt::Key_3);
  before_->setFocus();
  EXPECT_EQ(KeysDown(), Keys{});
  EXPECT_EQ(pressed_, Keys{2});
}

TEST_F(UnitKeypadTest, SpaceAndEnterPressTheKeyWithTheFocusAndShowIt) {
  keypad_->Key(7).setFocus();
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    SendKey(QEvent::KeyPress, key);
    EXPECT_EQ(KeysDown(), Keys{7});
    SendKey(QEvent::KeyRelease, key);
    EXPECT_EQ(KeysDown(), Keys{});
  }
  EXPECT_EQ(pressed_, (Keys{7, 7, 7}));
}

TEST_F(UnitKeypadTest, ArrowsMoveAsTheKeysLie) {
  const std::pair<Qt::Key, int> steps[] = {{Qt::Key_Right, 1}, {Qt::Key_Down, 4}, {Qt::Key_Right, 5},
                                           {Qt::Key_Right, 5}, {Qt::Key_Down, 8}, {Qt::Key_Down, 8},
                                           {Qt::Key_Left, 7},  {Qt::Key_Up, 4},   {Qt::Key_Up, 1},
                                           {Qt::Key_Up, 1},    {Qt::Key_Left, 0}, {Qt::Key_Left, 0}};
  for (const auto& [arrow, key] : steps) {
    Press(arrow);
    EXPECT_TRUE(keypad_->Key(key).hasFocus()) << key;
  }
  EXPECT_EQ(pressed_, Keys{});
}

TEST_F(UnitKeypadTest, IsOneStopOfTab) {
  before_->setFocus();
  Press(Qt::Key_Tab);
  EXPECT_TRUE(keypad_->Key(0).hasFocus());
  Press(Qt::Key_Down);
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
  Press(Qt::Key_Backtab);
  EXPECT_TRUE(keypad_->Key(0).hasFocus());
  Press(Qt::Key_Backtab);
  EXPECT_TRUE(before_->hasFocus());
}

TEST_F(UnitKeypadTest, ClosedItDoesNotAnswerAndKeepsTheOperatorsPlace) {
  keypad_->Key(4).setFocus();
  keypad_->SetOpen(false);
  for (const Qt::Key key : {Qt::Key_5, Qt::Key_Space, Qt::Key_Return}) {
    Press(key);
  }
  QTest::mouseClick(&keypad_->Key(4), Qt::LeftButton);
  EXPECT_EQ(pressed_, Keys{});
  keypad_->SetOpen(true);
  EXPECT_TRUE(keypad_->Key(4).hasFocus());
  Press(Qt::Key_5);
  EXPECT_EQ(pressed_, Keys{4});
}

TEST_F(UnitKeypadTest, AKeyWhosePressClosesTheKeypadIsNotDownWhenItOpens) {
  QObject::connect(keypad_, &UnitKeypad::Pressed, [this] { keypad_->SetOpen(false); });
  SendKey(QEvent::KeyPress, Qt::Key_3);
  keypad_->SetOpen(true);
  EXPECT_EQ(KeysDown(), Keys{});
}

TEST_F(UnitKeypadTest, OpenPressedAndClosedTellApartWithoutTheirColours) {
  before_->setFocus();
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    window_.setPalette(palette);
    const QImage open = KeyPicture(4);
    keypad_->Key(4).setDown(true);
    const QImage down = KeyPicture(4);
    keypad_->SetOpen(false);
    const QImage closed = KeyPicture(4);
    keypad_->SetOpen(true);
    const QRect cap(6, 6, 4, 4);  // beside the digit
    EXPECT_GT(Lightness(open, cap) - Lightness(closed, cap), 100);
    EXPECT_GT(Lightness(open, cap) - Lightness(down, cap), 30);
    EXPECT_GT(Lightness(down, cap) - Lightness(closed, cap), 60);
  }
}

TEST_F(UnitKeypadTest, TheDigitOfAClosedKeyStaysReadable) {
  keypad_->SetOpen(false);
  const QImage key = KeyPicture(8);
  int lightest = 0;
  for (int y = key.height() / 4; y < key.height() * 3 / 4; ++y) {
    for (int x = key.width() / 4; x < key.width() * 3 / 4; ++x) {
      lightest = std::max(lightest, qGray(key.pixel(x, y)));
    }
  }
  EXPECT_GT(lightest, 150);
}

TEST_F(UnitKeypadTest, AScreenReaderHearsDigitsAndWhetherTheyAnswer) {
  const auto* key = QAccessible::queryAccessibleInterface(&keypad_->Key(5));
  EXPECT_EQ(key->text(QAccessible::Name), "6");
  EXPECT_FALSE(key->state().disabled);
  keypad_->SetOpen(false);
  EXPECT_TRUE(key->state().disabled);
}

}  // namespace
}  // namespace dosmara
