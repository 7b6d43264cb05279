// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader hears of the instruments.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>

#include "controls/instrument.h"
#include "controls/led.h"
#include "controls/led_bar.h"
#include "controls/led_switch.h"
#include "controls/seven_segment.h"
#include "controls/thermometer.h"

namespace dosmara {
namespace {

QString Heard(QWidget& instrument, QAccessible::Text kind) {
  return QAccessible::queryAccessibleInterface(&instrument)->text(kind);
}

// An instrument is a text with a name, and has a value.
void ExpectReading(QWidget& instrument, const QString& value) {
  instrument.setAccessibleName("Pompa");
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&instrument)->role(), QAccessible::StaticText);
  EXPECT_EQ(Heard(instrument, QAccessible::Name), "Pompa");
  EXPECT_EQ(Heard(instrument, QAccessible::Value), value);
  EXPECT_EQ(Heard(instrument, QAccessible::Description), value);
}

TEST(Reading, ALampIsReadAsOnOrOff) {
  for (const LampShape shape : {LampShape::kRound, LampShape::kRectangular}) {
    Led led(nullptr, shape);
    led.SetStateTexts("spento,acceso");
    ExpectReading(led, "");
    led.SetOn(true);
    ExpectReading(led, "acceso");
    led.SetOn(false);
    ExpectReading(led, "spento");
    led.SetKnown(false);
    ExpectReading(led, "");
  }
}

TEST(Reading, ADisplayIsReadAsItsNumberOrTime) {
  SevenSegment display(nullptr, 3, 1);
  ExpectReading(display, "");
  display.SetValue(-12.5);
  ExpectReading(display, "-12.5");
  display.SetKnown(false);
  ExpectReading(display, "");
  SegmentClock clock(nullptr);
  ExpectReading(clock, "");
  clock.SetTime("23:59");
  ExpectReading(clock, "23:59");
}

TEST(Reading, AThermometerIsReadAsItsDegrees) {
  Thermometer thermometer(nullptr);
  ExpectReading(thermometer, "");
  thermometer.SetValue(92);
  ExpectReading(thermometer, "92");
}

TEST(Reading, ARowOfLampsIsReadAsItsPosition) {
  LedBar bar(nullptr);
  bar.SetPosition(7);
  ExpectReading(bar, "7 of 20");
}

TEST(Reading, ALabelThatHasAnInstrumentForItsBuddyNamesIt) {
  QWidget window;
  QLabel label("&Pompa", &window);
  auto* led = new Led(&window);
  label.setBuddy(led);
  EXPECT_EQ(Heard(*led, QAccessible::Name), "Pompa");
}

TEST(Reading, ASwitchIsABoxThatIsCheckedOrNot) {
  LedSwitch each(nullptr);
  each.setText("Pompa");
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&each);
  EXPECT_EQ(heard->role(), QAccessible::CheckBox);
  EXPECT_EQ(heard->text(QAccessible::Name), "Pompa");
  EXPECT_EQ(heard->text(QAccessible::Description), "") << "not known";
  EXPECT_TRUE(heard->state().checkable);
  each.SetOn(true);
  EXPECT_TRUE(heard->state().checked);
  EXPECT_EQ(heard->text(QAccessible::Description), "on");
  each.SetKnown(false);
  EXPECT_FALSE(heard->state().checked);
  EXPECT_EQ(heard->text(QAccessible::Description), "");
}

TEST(Reading, OtherWidgetsAreReadAsBefore) {
  const Led led(nullptr);
  QWidget plain;
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&plain)->role(), QAccessible::Client);
}

}  // namespace
}  // namespace dosmara
