// SPDX-License-Identifier: GPL-3.0-or-later
// Lamps, switches with lamps, and panels of them.
#include "controls/led.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <cmath>
#include <vector>

#include "controls/led_switch.h"
#include "controls/matrix_pad.h"
#include "pictures.h"

namespace dosmara {
namespace {

TEST(LampText, IsTheWordOfTheState) {
  EXPECT_EQ(LampText("No, Yes,", LampState::kOff), "No");
  EXPECT_EQ(LampText("No, Yes,", LampState::kOn), "Yes");
  EXPECT_EQ(LampText("No, Yes", LampState::kUnknown), "");
  EXPECT_EQ(LampText("No, Yes, Perhaps", LampState::kUnknown), "Perhaps");
}

class LampTest : public testing::TestWithParam<LampShape> {};

// Lightness of the middle of a lamp that fills a picture.
double MiddleOf(LampShape shape, LampState state, bool enabled, const QPalette& palette) {
  QImage picture(18, 18, QImage::Format_RGB32);
  picture.fill(palette.color(QPalette::Window));
  QPainter painter(&picture);
  DrawLamp(painter, picture.rect(), shape, state, enabled, palette);
  return Lightness(picture, {6, 6, 6, 6});
}

TEST_P(LampTest, ItsStatesAreToldWithoutColour) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const bool enabled : {true, false}) {
      const double on = MiddleOf(GetParam(), LampState::kOn, enabled, palette);
      const double off = MiddleOf(GetParam(), LampState::kOff, enabled, palette);
      EXPECT_GT(on - off, 60) << enabled;
    }
  }
}

TEST_P(LampTest, AnUnknownLampIsEmpty) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    const double ground = qGray(palette.color(QPalette::Window).rgb());
    EXPECT_EQ(MiddleOf(GetParam(), LampState::kUnknown, true, palette), ground);
    EXPECT_GT(std::abs(MiddleOf(GetParam(), LampState::kOn, true, palette) - ground), 25);
  }
}

// How many pixels of a lamp stand out from its ground.
int Outstanding(LampShape shape, LampState state, bool enabled, const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Window);
  QImage picture(40, 40, QImage::Format_RGB32);
  picture.fill(ground);
  QPainter painter(&picture);
  DrawLamp(painter, picture.rect(), shape, state, enabled, palette);
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      count += std::abs(qGray(picture.pixel(x, y)) - qGray(ground.rgb())) > 40;
    }
  }
  return count;
}

TEST_P(LampTest, AnUnknownLampHasABrokenOutlineAndNotThatOfOneThatIsOff) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const bool enabled : {true, false}) {
      const int off = Outstanding(GetParam(), LampState::kOff, enabled, palette);
      const int unknown = Outstanding(GetParam(), LampState::kUnknown, enabled, palette);
      EXPECT_GT(unknown, 40) << enabled;
      EXPECT_LT(unknown, off * 3 / 4) << enabled;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, LampTest, testing::Values(LampShape::kRound, LampShape::kRectangular));

TEST(Led, IsUnknownUntilItIsTold) {
  Led led(nullptr);
  EXPECT_FALSE(led.IsKnown());
  EXPECT_FALSE(led.IsOn());
  const QImage unknown = Picture(led);
  led.SetOn(false);
  EXPECT_TRUE(led.IsKnown());
  const QImage off = Picture(led);
  led.SetOn(true);
  const QImage on = Picture(led);
  EXPECT_NE(unknown, off);
  EXPECT_NE(off, on);
  led.SetKnown(false);
  EXPECT_FALSE(led.IsOn());
  EXPECT_EQ(Picture(led), unknown);
  led.SetKnown(true);
  EXPECT_EQ(Picture(led), off);
}

TEST(Led, BeingKnownAlreadyChangesNothing) {
  Led led(nullptr);
  led.SetOn(true);
  led.SetKnown(true);
  EXPECT_TRUE(led.IsOn());
}

TEST(Led, ItsStateIsAProperty) {
  Led led(nullptr, LampShape::kRectangular);
  EXPECT_EQ(led.property("known"), false);
  EXPECT_TRUE(led.setProperty("on", true));
  EXPECT_TRUE(led.IsOn());
  EXPECT_EQ(led.property("on"), true);
  EXPECT_EQ(led.property("known"), true);
  led.setProperty("known", false);
  EXPECT_EQ(led.property("on"), false);
}

TEST(Led, AScreenReaderHearsItsState) {
  Led led(nullptr);
  EXPECT_EQ(led.accessibleDescription(), "");
  led.SetOn(true);
  EXPECT_EQ(led.accessibleDescription(), "on");
  led.SetStateTexts("spento,acceso");
  EXPECT_EQ(led.accessibleDescription(), "acceso");
  led.SetOn(false);
  EXPECT_EQ(led.accessibleDescription(), "spento");
  led.SetStateTexts("spento,acceso,non noto");
  led.SetKnown(false);
  EXPECT_EQ(led.accessibleDescription(), "non noto");
}

TEST(Led, ShapesDiffer) {
  const Led round(nullptr);
  const Led rectangular(nullptr, LampShape::kRectangular);
  EXPECT_EQ(round.sizeHint().width(), round.sizeHint().height());
  EXPECT_GT(rectangular.sizeHint().width(), rectangular.sizeHint().height());
}

TEST(LedSwitchGeometry, TheWordLiesBehindTheLampAndBothOnTheCap) {
  const LedSwitchGeometry geometry = LayOutLedSwitch(40, 16);
  EXPECT_GT(geometry.text.left(), geometry.lamp.right());
  EXPECT_EQ(geometry.text.width(), 40);
  EXPECT_TRUE(QRect(QPoint(), geometry.size).adjusted(4, 4, -4, -4).contains(geometry.lamp));
  EXPECT_TRUE(QRect(QPoint(), geometry.size).adjusted(4, 4, -4, -4).contains(geometry.text));
  EXPECT_LT(LayOutLedSwitch(0, 16).size.width(), geometry.size.width() - 40);
}

class LedSwitchTest : public testing::Test {
 protected:
  LedSwitchTest() : switch_(&window_) {
    window_.show();
    QApplication::setActiveWindow(&window_);
    switch_.resize(switch_.sizeHint());
    QObject::connect(&switch_, &LedSwitch::Wished, [this](bool on) { wishes_.push_back(on); });
  }

  QWidget window_;
  LedSwitch switch_;
  std::vector<bool> wishes_;
};

TEST_F(LedSwitchTest, APressIsAWishAndSwitchesNothing) {
  switch_.SetOn(false);
  QTest::mouseClick(&switch_, Qt::LeftButton);
  EXPECT_FALSE(switch_.IsOn());
  QTest::keyClick(&switch_, Qt::Key_Space);
  EXPECT_EQ(wishes_, (std::vector<bool>{true, true}));
}

TEST_F(LedSwitchTest, TheWishIsTheContraryOfWhatItShows) {
  switch_.SetOn(true);
  QTest::mouseClick(&switch_, Qt::LeftButton);
  EXPECT_TRUE(switch_.IsOn());
  EXPECT_EQ(wishes_, std::vector<bool>{false});
}

TEST_F(LedSwitchTest, ShowingAStateIsNoWish) {
  switch_.SetOn(true);
  switch_.SetKnown(false);
  EXPECT_EQ(wishes_, std::vector<bool>{});
}

TEST_F(LedSwitchTest, IsUnknownUntilItIsTold) {
  const QImage unknown = Picture(switch_);
  EXPECT_EQ(switch_.property("known"), false);
  switch_.SetOn(false);
  const QImage off = Picture(switch_);
  EXPECT_EQ(switch_.property("known"), true);
  EXPECT_TRUE(switch_.setProperty("on", true));
  const QImage on = Picture(switch_);
  EXPECT_EQ(switch_.property("on"), true);
  EXPECT_NE(unknown, off);
  EXPECT_NE(off, on);
  switch_.setProperty("known", false);
  EXPECT_EQ(switch_.property("on"), false);
  EXPECT_EQ(Picture(switch_), unknown);
}

TEST_F(LedSwitchTest, AScreenReaderHearsItsState) {
  EXPECT_EQ(switch_.accessibleDescription(), "");
  switch_.SetOn(true);
  EXPECT_EQ(switch_.accessibleDescription(), "on");
  EXPECT_TRUE(QAccessible::queryAccessibleInterface(&switch_)->state().checked);
  switch_.SetStateTexts("spento,acceso");
  switch_.SetOn(false);
  EXPECT_EQ(switch_.accessibleDescription(), "spento");
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(&switch_)->state().checked);
}

TEST_F(LedSwitchTest, FocusAndPressShow) {
  switch_.clearFocus();
  const QImage idle = Picture(switch_);
  switch_.setFocus();
  const QImage focused = Picture(switch_);
  EXPECT_NE(focused, idle);
  QTest::mousePress(&switch_, Qt::LeftButton);
  EXPECT_NE(Picture(switch_), focused);
}

// A matrix of 6 rows of 8 between two boxes.
class MatrixPadTest : public testing::Test {
 protected:
  MatrixPadTest() : before_(new QLineEdit), pad_(new MatrixPad(&window_, 6, 8)), behind_(new QLineEdit) {
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(before_);
    layout->addWidget(pad_);
    layout->addWidget(behind_);
    for (int n = 0; n < 48; ++n) {
      captions_.push_back(new QLabel("Settore 68"));
      pad_->PlaceBelow(n, captions_.back());
    }
    window_.show();
    QApplication::setActiveWindow(&window_);
    before_->setFocus();
    QWidget::setTabOrder(before_, &pad_->Switch(0));
    QWidget::setTabOrder(&pad_->Switch(47), behind_);
    QObject::connect(pad_, &MatrixPad::Wished,
                     [this](int index, bool on) { wishes_.emplace_back(index, on); });
  }

  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

  QWidget window_;
  QLineEdit* before_;
  MatrixPad* pad_;
  QLineEdit* behind_;
  std::vector<QLabel*> captions_;
  std::vector<std::pair<int, bool>> wishes_;
};

TEST_F(MatrixPadTest, NothingOverlapsAndAllLieOnThePad) {
  const QList<QWidget*> children = pad_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
  EXPECT_EQ(children.size(), 48 + 48 + 6 + 8);
  for (int a = 0; a < children.size(); ++a) {
    EXPECT_TRUE(pad_->rect().contains(children[a]->geometry())) << a;
    for (int b = 0; b < a; ++b) {
      EXPECT_FALSE(children[a]->geometry().intersects(children[b]->geometry())) << a << " " << b;
    }
  }
}

TEST_F(MatrixPadTest, LiesInSixRowsOfEightWithItsCaptionsBelow) {
  for (int n = 0; n < 48; ++n) {
    EXPECT_EQ(pad_->Switch(n).x(), pad_->Switch(n % 8).x()) << n;
    EXPECT_EQ(pad_->Switch(n).y(), pad_->Switch(n / 8 * 8).y()) << n;
    EXPECT_GT(captions_[n]->y(), pad_->Switch(n).geometry().bottom()) << n;
    EXPECT_NEAR(captions_[n]->geometry().center().x(), pad_->Switch(n).geometry().center().x(), 1) << n;
  }
}

TEST_F(MatrixPadTest, NumbersItsRowsAtTheLeftAndItsColumnsAtTheTop) {
  std::vector<int> rows(6);
  std::vector<int> columns(8);
  for (const QLabel* label : pad_->findChildren<QLabel*>()) {
    const QPoint place = label->geometry().center();
    for (int n = 0; n < 48; ++n) {
      const QRect each = pad_->Switch(n).geometry();
      if (place.x() < each.left() && place.y() >= each.top() && place.y() <= each.bottom()) {
        rows[n / 8] = label->text().toInt();
      }
      if (place.y() < pad_->Switch(0).y() && place.x() >= each.left() && place.x() <= each.right()) {
        columns[n % 8] = label->text().toInt();
      }
    }
  }
  EXPECT_EQ(rows, (std::vector<int>{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(columns, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(MatrixPadTest, IsOneStopOfTabWithArrowsInside) {
  Press(Qt::Key_Tab);
  EXPECT_TRUE(pad_->Switch(0).hasFocus());
  for (const Qt::Key arrow : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left}) {
    Press(arrow);
  }
  EXPECT_TRUE(pad_->Switch(17).hasFocus());
  Press(Qt::Key_Tab);
  EXPECT_TRUE(behind_->hasFocus());
}

TEST_F(MatrixPadTest, ArrowsStopAtTheEdges) {
  for (const Qt::Key arrow : {Qt::Key_Left, Qt::Key_Up}) {
    pad_->Switch(0).setFocus();
    Press(arrow);
    EXPECT_TRUE(pad_->Switch(0).hasFocus());
  }
  for (const Qt::Key arrow : {Qt::Key_Right, Qt::Key_Down}) {
    pad_->Switch(47).setFocus();
    Press(arrow);
    EXPECT_TRUE(pad_->Switch(47).hasFocus());
  }
}

TEST_F(MatrixPadTest, TellsWhichSwitchIsWished) {
  pad_->Switch(17).SetOn(true);
  QTest::mouseClick(&pad_->Switch(17), Qt::LeftButton);
  pad_->Switch(30).setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(wishes_, (std::vector<std::pair<int, bool>>{{17, false}, {30, true}}));
}

TEST_F(MatrixPadTest, KeepsTheOperatorsPlaceWhileItsSwitchesAreDisabled) {
  pad_->Switch(30).setFocus();
  for (int n = 0; n < 48; ++n) {
    pad_->Switch(n).setEnabled(false);
  }
  const QImage held = Picture(*pad_);
  for (int n = 0; n < 48; ++n) {
    pad_->Switch(n).setEnabled(true);
  }
  EXPECT_TRUE(pad_->Switch(30).hasFocus());
  behind_->setFocus();
  for (int n = 0; n < 48; ++n) {
    pad_->Switch(n).setEnabled(false);
  }
  EXPECT_NE(Picture(*pad_), held);
}

TEST(SwitchPad, ArrowsFollowTheLayoutOfItsOwner) {
  QWidget window;
  auto* pad = new SwitchPad(&window, 4);
  auto* grid = new QGridLayout(pad);
  for (int n = 0; n < 4; ++n) {
    grid->addWidget(&pad->Switch(n), n % 2, n / 2);
  }
  auto* layout = new QVBoxLayout(&window);
  layout->addWidget(pad);
  window.show();
  QApplication::setActiveWindow(&window);
  pad->Switch(0).setFocus();
  QTest::keyClick(&pad->Switch(0), Qt::Key_Right);
  EXPECT_TRUE(pad->Switch(2).hasFocus());
  QTest::keyClick(&pad->Switch(2), Qt::Key_Down);
  EXPECT_TRUE(pad->Switch(3).hasFocus());
}

}  // namespace
}  // namespace dosmara
