// SPDX-License-Identifier: GPL-3.0-or-later
// The painted controls: where their parts lie, and that their states look different.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "controls/echo_mark.h"
#include "controls/field_label.h"
#include "controls/keypad.h"
#include "controls/state_label.h"
#include "controls/tones.h"
#include "controls/two_position_switch.h"
#include "pictures.h"

namespace dosmara {
namespace {

TEST(SwitchGeometry, TheKnobLiesAtTheEndOfItsPosition) {
  const SwitchGeometry off = LayOutSwitch({120, 26}, 20, 30, 0);
  const SwitchGeometry on = LayOutSwitch({120, 26}, 20, 30, 1);
  EXPECT_EQ(off.track, on.track);
  EXPECT_TRUE(off.track.contains(off.knob));
  EXPECT_TRUE(on.track.contains(on.knob));
  EXPECT_LT(off.knob.right(), on.knob.left());
}

TEST(SwitchGeometry, TheKnobOfAnUnknownPositionLiesInTheMiddle) {
  const SwitchGeometry unknown = LayOutSwitch({120, 26}, 20, 30, kUnknownPosition);
  EXPECT_NEAR(unknown.knob.center().x(), unknown.track.center().x(), 1);
}

TEST(SwitchGeometry, TheWordsLieOnBothSidesOfTheTrack) {
  const SwitchGeometry geometry = LayOutSwitch({120, 26}, 20, 30, 0);
  EXPECT_LT(geometry.text[0].right(), geometry.track.left());
  EXPECT_GT(geometry.text[1].left(), geometry.track.right());
  EXPECT_EQ(geometry.text[0].width(), 20);
  EXPECT_EQ(geometry.text[1].width(), 30);
}

TEST(SwitchGeometry, WithoutWordsTheTrackLiesAtTheEdge) {
  EXPECT_LE(LayOutSwitch({60, 26}, 0, 0, 0).track.left(), 4);
}

class SwitchTest : public testing::Test {
 protected:
  SwitchTest() : switch_(&window_) {
    window_.show();
    QApplication::setActiveWindow(&window_);
    switch_.SetPositionTexts("No,Yes,");
    switch_.resize(switch_.sizeHint());
    QObject::connect(&switch_, &TwoPositionSwitch::Changed,
                     [this](int position) { changes_.push_back(position); });
  }

  QWidget window_;
  TwoPositionSwitch switch_;
  std::vector<int> changes_;
};

TEST_F(SwitchTest, ClickAndSpaceMoveIt) {
  QTest::mouseClick(&switch_, Qt::LeftButton);
  QTest::keyClick(&switch_, Qt::Key_Space);
  EXPECT_EQ(changes_, (std::vector<int>{1, 0}));
}

TEST_F(SwitchTest, LeftAndRightChooseAPosition) {
  switch_.SetPosition(0);
  QTest::keyClick(&switch_, Qt::Key_Left);
  QTest::keyClick(&switch_, Qt::Key_Right);
  QTest::keyClick(&switch_, Qt::Key_Right);
  QTest::keyClick(&switch_, Qt::Key_Left);
  EXPECT_EQ(changes_, (std::vector<int>{1, 0}));
}

TEST_F(SwitchTest, WhateverIsChosenWhileThePositionIsNotKnownIsAChange) {
  QTest::keyClick(&switch_, Qt::Key_Left);
  EXPECT_EQ(changes_, std::vector<int>{0});
  EXPECT_TRUE(switch_.IsKnown());
  switch_.SetKnown(false);
  QTest::keyClick(&switch_, Qt::Key_Right);
  EXPECT_EQ(changes_, (std::vector<int>{0, 1}));
}

TEST_F(SwitchTest, ThePositionThatItHasIsNoChange) {
  switch_.SetPosition(0);
  EXPECT_EQ(changes_, std::vector<int>{});
  switch_.SetPosition(4);
  EXPECT_EQ(changes_, std::vector<int>{1});
  EXPECT_EQ(switch_.Position(), 1);
}

TEST_F(SwitchTest, ItsPositionIsAProperty) {
  EXPECT_TRUE(switch_.setProperty("position", 1));
  EXPECT_EQ(changes_, std::vector<int>{1});
  QTest::mouseClick(&switch_, Qt::LeftButton);
  EXPECT_EQ(switch_.property("position"), 0);
}

TEST_F(SwitchTest, AScreenReaderHearsTheWordOfThePosition) {
  EXPECT_EQ(switch_.accessibleDescription(), "");
  switch_.SetPosition(0);
  EXPECT_EQ(switch_.accessibleDescription(), "No");
  switch_.SetPosition(1);
  EXPECT_EQ(switch_.accessibleDescription(), "Yes");
}

TEST_F(SwitchTest, IsSeenAsUnknownUntilAPositionComes) {
  EXPECT_FALSE(switch_.IsKnown());
  const QImage unknown = Picture(switch_);
  switch_.SetPosition(0);
  EXPECT_TRUE(switch_.IsKnown());
  EXPECT_NE(Picture(switch_), unknown);
  EXPECT_EQ(changes_, std::vector<int>{});
  switch_.setProperty("known", false);
  EXPECT_EQ(Picture(switch_), unknown);
  QTest::mouseClick(&switch_, Qt::LeftButton);
  EXPECT_TRUE(switch_.IsKnown());
}

TEST_F(SwitchTest, ALockedSwitchStillTellsItsPosition) {
  switch_.setEnabled(false);
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    switch_.setPalette(palette);
    for (const int position : {0, 1}) {
      switch_.SetPosition(position);
      const QFontMetrics metrics = switch_.fontMetrics();
      const SwitchGeometry geometry = LayOutSwitch(switch_.size(), metrics.horizontalAdvance("No"),
                                                   metrics.horizontalAdvance("Yes"), position);
      const QImage picture = Picture(switch_);
      const QPoint mirrored(geometry.track.left() + geometry.track.right() - geometry.knob.center().x(),
                            geometry.knob.center().y());
      EXPECT_GE(qGray(picture.pixel(geometry.knob.center())) - qGray(picture.pixel(mirrored)), 40);
    }
  }
}

TEST_F(SwitchTest, ItsStatesLookDifferent) {
  switch_.clearFocus();
  switch_.SetPosition(0);
  const QImage off = Picture(switch_);
  switch_.SetPosition(1);
  const QImage on = Picture(switch_);
  EXPECT_NE(on, off);
  switch_.setFocus();
  EXPECT_NE(Picture(switch_), on);
  switch_.setEnabled(false);
  EXPECT_NE(Picture(switch_), on);
}

TEST(KeypadGeometry, NoTwoKeysTouchAndAllLieOnThePanel) {
  const QSize size(220, 200);
  for (int a = 0; a < 22; ++a) {
    EXPECT_TRUE(QRect(QPoint(), size).contains(KeyRect(size, a))) << a;
    for (int b = 0; b < a; ++b) {
      EXPECT_FALSE(KeyRect(size, a).intersects(KeyRect(size, b))) << a << " " << b;
    }
  }
}

TEST(KeypadGeometry, FourKeysARowWithTheLowerSixApart) {
  const QSize size(400, 700);
  EXPECT_EQ(KeyRect(size, 0).top(), KeyRect(size, 3).top());
  EXPECT_EQ(KeyRect(size, 0).left(), KeyRect(size, 4).left());
  const int gap = KeyRect(size, 16).top() - KeyRect(size, 12).bottom();
  EXPECT_GT(gap, 2 * (KeyRect(size, 4).top() - KeyRect(size, 0).bottom()));
  EXPECT_EQ(KeyRect(size, 20).left(), KeyRect(size, 17).left());
}

TEST(SelectionNumber, SkipsSeventeenToTwenty) {
  EXPECT_EQ(SelectionNumber(0), 1);
  EXPECT_EQ(SelectionNumber(15), 16);
  EXPECT_EQ(SelectionNumber(16), 21);
  EXPECT_EQ(SelectionNumber(21), 26);
}

TEST(Keypad, AKeyTellsItsIndex) {
  Keypad keypad(nullptr);
  keypad.resize(keypad.sizeHint());
  std::vector<int> pressed;
  QObject::connect(&keypad, &Keypad::Pressed, [&](int index) { pressed.push_back(index); });
  QTest::mouseClick(&keypad.Key(0), Qt::LeftButton);
  QTest::mouseClick(&keypad.Key(21), Qt::LeftButton);
  keypad.Key(3).setEnabled(false);
  QTest::mouseClick(&keypad.Key(3), Qt::LeftButton);
  EXPECT_EQ(pressed, (std::vector<int>{0, 21}));
}

TEST(Keypad, LightsTheSelectionShown) {
  Keypad keypad(nullptr);
  keypad.resize(keypad.sizeHint());
  const QImage before = Picture(keypad.Key(5));
  keypad.SetSelection(5);
  const QImage lit = Picture(keypad.Key(5));
  EXPECT_NE(lit, before);
  keypad.SetSelection(6);
  EXPECT_EQ(Picture(keypad.Key(5)), before);
}

TEST(EchoMark, ItsStatesLookDifferent) {
  EchoMark mark(nullptr);
  mark.resize(mark.sizeHint());
  std::vector<QImage> pictures = {Picture(mark)};
  mark.Sent(7);
  pictures.push_back(Picture(mark));
  mark.Came(7);
  pictures.push_back(Picture(mark));
  mark.Came(6);
  pictures.push_back(Picture(mark));
  for (std::size_t a = 0; a < pictures.size(); ++a) {
    for (std::size_t b = 0; b < a; ++b) {
      EXPECT_NE(pictures[a].convertToFormat(QImage::Format_Grayscale8),
                pictures[b].convertToFormat(QImage::Format_Grayscale8))
          << a << " and " << b << " without their colours";
    }
  }
}

TEST(EchoMark, TellsWhatBecameOfAChange) {
  EchoMark mark(nullptr);
  mark.Came(3);
  EXPECT_EQ(mark.state(), EchoMark::State::kNone) << "nothing has been changed";
  mark.Sent(7);
  EXPECT_EQ(mark.state(), EchoMark::State::kOnItsWay);
  mark.Came(7);
  EXPECT_EQ(mark.state(), EchoMark::State::kTaken);
  mark.Came(7);
  EXPECT_EQ(mark.state(), EchoMark::State::kTaken);
  mark.Came(3);
  EXPECT_EQ(mark.state(), EchoMark::State::kNotTaken);
  mark.Came(7);
  EXPECT_EQ(mark.state(), EchoMark::State::kNotTaken) << "until the next change";
  mark.Sent(3);
  EXPECT_EQ(mark.state(), EchoMark::State::kOnItsWay);
  mark.Came(4);
  EXPECT_EQ(mark.state(), EchoMark::State::kNotTaken);
  mark.Clear();
  EXPECT_EQ(mark.state(), EchoMark::State::kNone);
}

TEST(EchoMark, SaysInWordsWhatItShows) {
  EchoMark mark(nullptr);
  EXPECT_EQ(mark.accessibleName(), "");
  mark.Sent(7);
  EXPECT_EQ(mark.accessibleName(), "On its way to the machine");
  EXPECT_EQ(mark.toolTip(), mark.accessibleName());
  mark.Came(7);
  EXPECT_EQ(mark.accessibleName(), "Taken by the machine");
  EXPECT_EQ(mark.toolTip(), mark.accessibleName());
  mark.Came(6);
  EXPECT_EQ(mark.accessibleName(), "Not taken: the machine holds another value");
  EXPECT_EQ(mark.toolTip(), mark.accessibleName());
}

// Contrast ratio of two colours, 1 to 21.
double Contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& colour) {
    const auto linear = [](double part) {
      return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  };
  const double light = std::max(luminance(a), luminance(b)) + 0.05;
  return light / (std::min(luminance(a), luminance(b)) + 0.05);
}

TEST(Tones, DisabledTextStaysReadableInLightAndDark) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    const QColor ground = palette.color(QPalette::Window);
    EXPECT_GE(Contrast(Ink(palette, false), ground), 4.5);
    EXPECT_GE(Contrast(Ink(palette, true), ground), 7);
    EXPECT_GE(Contrast(GoodTone(palette), ground), 3);
    EXPECT_GE(Contrast(WaitTone(palette), ground), 3);
    EXPECT_GE(Contrast(ChosenTone(palette), Qt::white), 4.5);
    EXPECT_NE(Ink(palette, false), Ink(palette, true));
  }
}

TEST(FieldLabel, ADisabledLabelLooksSofter) {
  FieldLabel label(nullptr, true);
  label.setText("12.5");
  label.resize(label.sizeHint());
  const QImage enabled = Picture(label);
  label.setEnabled(false);
  EXPECT_NE(Picture(label), enabled);
}

TEST(StateLabel, ShowsItsColourInADiscInFrontOfAReadableWord) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    StateLabel label(nullptr);
    label.setPalette(palette);
    label.setText("Running");
    label.resize(label.sizeHint());
    const QPoint disc(label.contentsMargins().left() / 2, label.height() / 2);
    label.SetColour(QColor(255, 0, 0));
    EXPECT_EQ(Picture(label).pixelColor(disc), QColor(255, 0, 0));
    label.SetColour(QColor(0, 255, 0));
    const QImage green = Picture(label);
    EXPECT_EQ(green.pixelColor(disc), QColor(0, 255, 0));
    EXPECT_EQ(label.property("colour"), QColor(0, 255, 0));
    const QRect word = label.contentsRect();
    EXPECT_GT(word.left(), disc.x());
    int ink = 0;
    for (int x = word.left(); x <= word.right(); ++x) {
      ink += green.pixelColor(x, word.center().y()) == palette.color(QPalette::WindowText) ? 1 : 0;
    }
    EXPECT_GT(ink, 5);
  }
}

TEST(StateLabel, AnotherColourIsPaintedAtOnce) {
  struct Counter : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      paintings += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
    int paintings = 0;
  };
  StateLabel label(nullptr);
  label.show();
  QApplication::processEvents();
  Counter counter;
  label.installEventFilter(&counter);
  label.SetColour(Qt::green);
  QApplication::processEvents();
  EXPECT_EQ(counter.paintings, 1);
}

}  // namespace
}  // namespace dosmara
