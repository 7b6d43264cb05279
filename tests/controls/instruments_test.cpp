// SPDX-License-Identifier: GPL-3.0-or-later
// Displays, thermometer and led bar: what they show for a value, and where.
#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <cmath>
#include <limits>

#include "controls/led.h"
#include "controls/led_bar.h"
#include "controls/seven_segment.h"
#include "controls/thermometer.h"
#include "pictures.h"

namespace dosmara {
namespace {

TEST(SegmentText, AlignsNumbersRight) {
  EXPECT_EQ(SegmentText(0, 3, 0), "   0");
  EXPECT_EQ(SegmentText(7, 3, 0), "   7");
  EXPECT_EQ(SegmentText(92, 3, 0), "  92");
  EXPECT_EQ(SegmentText(-128, 3, 0), "-128");
  EXPECT_EQ(SegmentText(0, 3, 1), "  0.0");
  EXPECT_EQ(SegmentText(7.3, 3, 1), "  7.3");
  EXPECT_EQ(SegmentText(-12.5, 3, 1), "-12.5");
  EXPECT_EQ(SegmentText(99.9, 3, 1), " 99.9");
}

TEST(SegmentText, RoundsToTheLastDecimal) {
  EXPECT_EQ(SegmentText(7.26, 3, 1), "  7.3");
  EXPECT_EQ(SegmentText(99.94, 3, 1), " 99.9");
  EXPECT_EQ(SegmentText(-0.04, 3, 1), "  0.0");
  EXPECT_EQ(SegmentText(-0.4, 3, 0), "   0");
}

TEST(SegmentText, GivesUpDecimalsThatDoNotFit) {
  EXPECT_EQ(SegmentText(99.96, 3, 1), " 100");
  EXPECT_EQ(SegmentText(-100, 3, 1), "-100");
  EXPECT_EQ(SegmentText(-128, 3, 1), "-128");
  EXPECT_EQ(SegmentText(123.4, 3, 2), " 123");
}

TEST(SegmentText, IsDashesForWhatDoesNotFit) {
  for (const double value : {1000.0, -1000.0, 999.6, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(SegmentText(value, 3, 0), "----") << value;
  }
  EXPECT_EQ(SegmentText(1000, 3, 1), "----");
  EXPECT_EQ(SegmentText(-999.6, 3, 1), "----");
  EXPECT_EQ(SegmentText(std::nan(""), 3, 1), "");
}

TEST(SegmentsOf, DrawsEachDigitInItsWay) {
  // a to g: top, upper right, lower right, bottom, lower left, upper left, middle
  const int expected[] = {0b0111111, 0b0000110, 0b1011011, 0b1001111, 0b1100110,
                          0b1101101, 0b1111101, 0b0000111, 0b1111111, 0b1101111};
  for (int digit = 0; digit < 10; ++digit) {
    EXPECT_EQ(SegmentsOf(QChar('0' + digit)), expected[digit]) << digit;
  }
  EXPECT_EQ(SegmentsOf('-'), 0b1000000);
  EXPECT_EQ(SegmentsOf(' '), 0);
}

TEST(SegmentShape, LiesInItsPlaceInTheDigit) {
  const QRectF place(10, 20, 20, 40);
  QPointF centres[7];
  for (int segment = 0; segment < 7; ++segment) {
    const QRectF shape = SegmentShape(segment, place).boundingRect();
    EXPECT_TRUE(place.adjusted(-0.1, -0.1, 0.1, 0.1).contains(shape)) << segment;
    centres[segment] = shape.center();
  }
  EXPECT_LT(centres[0].y(), centres[6].y());
  EXPECT_LT(centres[6].y(), centres[3].y());
  EXPECT_NEAR(centres[6].y(), 40, 0.1);
  EXPECT_GT(centres[1].x(), centres[5].x());
  EXPECT_GT(centres[2].x(), centres[4].x());
  EXPECT_LT(centres[1].y(), centres[2].y());
  EXPECT_LT(centres[5].y(), centres[4].y());
}

TEST(SegmentGeometry, NothingOverlapsAndAllLiesOnThePanel) {
  for (const QSize size : {QSize(100, 40), QSize(300, 60), QSize(60, 100)}) {
    const SegmentGeometry geometry = LayOutSegments(size, 4);
    ASSERT_EQ(geometry.digits.size(), 4u);
    for (int n = 0; n < 4; ++n) {
      EXPECT_TRUE(QRectF(QPointF(), size).contains(geometry.digits[n])) << n;
      EXPECT_LE(geometry.digits[n].right(), geometry.points[n].left() + 0.01) << n;
      const double next = n < 3 ? geometry.digits[n + 1].left() : geometry.points[n].right();
      EXPECT_LE(geometry.points[n].right(), next + 0.01) << n;
    }
  }
}

TEST(SevenSegment, IsBlankUntilAValueComes) {
  SevenSegment display(nullptr, 3, 1);
  EXPECT_FALSE(display.IsKnown());
  EXPECT_EQ(display.accessibleDescription(), "");
  const QImage blank = Picture(display);
  display.SetValue(0);
  EXPECT_TRUE(display.IsKnown());
  const QImage zero = Picture(display);
  EXPECT_NE(zero, blank);
  display.SetValue(1000);
  EXPECT_NE(Picture(display), blank);
  EXPECT_NE(Picture(display), zero);
  display.SetKnown(false);
  EXPECT_EQ(Picture(display), blank);
  display.SetKnown(true);
  EXPECT_EQ(Picture(display), zero);
}

TEST(SevenSegment, ItsValueIsAPropertyAndTold) {
  SevenSegment display(nullptr, 3, 1);
  EXPECT_TRUE(display.setProperty("value", -12.5));
  EXPECT_EQ(display.property("value"), -12.5);
  EXPECT_EQ(display.property("known"), true);
  EXPECT_EQ(display.accessibleDescription(), "-12.5");
  display.setProperty("value", 2500);
  EXPECT_EQ(display.property("value"), 2500);
  EXPECT_EQ(display.accessibleDescription(), "----");
  display.setProperty("known", false);
  EXPECT_EQ(display.accessibleDescription(), "");
}

// Middle of a segment of the last of four digits on a display.
double LastDigitSegment(QWidget& display, int segment) {
  const QImage picture = Picture(display);
  const QRectF place = LayOutSegments(display.size(), 4).digits[3];
  const QPoint centre = SegmentShape(segment, place).boundingRect().center().toPoint();
  return qGray(picture.pixel(centre));
}

TEST(SevenSegment, ALitSegmentIsToldFromAnUnlitOneWithoutColour) {
  SevenSegment display(nullptr, 3, 0);
  display.resize(display.sizeHint());
  for (const bool enabled : {true, false}) {
    display.setEnabled(enabled);
    display.SetValue(8);
    const double lit = LastDigitSegment(display, 6);
    display.SetValue(0);
    const double unlit = LastDigitSegment(display, 6);
    EXPECT_GT(lit - unlit, 50) << enabled;
    EXPECT_GT(unlit, 25) << enabled;
  }
}

TEST(SegmentClock, ShowsATimeOfDay) {
  SegmentClock clock(nullptr);
  EXPECT_EQ(clock.property("time"), "");
  const QImage blank = Picture(clock);
  EXPECT_TRUE(clock.setProperty("time", "23:59"));
  EXPECT_EQ(clock.property("time"), "23:59");
  EXPECT_EQ(clock.accessibleDescription(), "23:59");
  EXPECT_NE(Picture(clock), blank);
  clock.SetTime("");
  EXPECT_EQ(Picture(clock), blank);
}

TEST(SegmentClock, IgnoresWhatIsNoTimeOfDay) {
  SegmentClock clock(nullptr);
  clock.SetTime("00:07");
  for (const char* text : {"24:00", "12:60", "7:5", "12-30", "later"}) {
    clock.SetTime(text);
    EXPECT_EQ(clock.Time(), "00:07") << text;
  }
}

constexpr QSize kThermometerSize(80, 300);

TEST(ThermometerGeometry, HasThirteenLinesAtEqualDistances) {
  const ThermometerGeometry geometry = LayOutThermometer(kThermometerSize, 16, 50);
  ASSERT_EQ(geometry.ticks.size(), 13u);
  const double distance = geometry.ticks[0] - geometry.ticks[1];
  EXPECT_GE(distance, 16);  // room for a number at each
  for (int n = 1; n < 13; ++n) {
    EXPECT_NEAR(geometry.ticks[n - 1] - geometry.ticks[n], distance, 0.01) << n;
  }
}

TEST(ThermometerGeometry, TheColumnEndsAtItsValue) {
  for (int n = 0; n < 13; ++n) {
    const ThermometerGeometry geometry = LayOutThermometer(kThermometerSize, 16, 10 * n);
    EXPECT_NEAR(geometry.column.top(), geometry.ticks[n], 0.01) << n;
  }
}

TEST(ThermometerGeometry, AValueOffTheScaleIsSeenToBe) {
  const ThermometerGeometry hot = LayOutThermometer(kThermometerSize, 16, 500);
  EXPECT_LT(hot.column.top(), hot.ticks[12] - 2);
  EXPECT_GE(hot.column.top(), hot.tube.top() - 0.01);
  const ThermometerGeometry cold = LayOutThermometer(kThermometerSize, 16, -500);
  EXPECT_GT(cold.column.top(), cold.ticks[0] + 2);
  EXPECT_LT(cold.column.top(), cold.bulb.top());
}

TEST(ThermometerGeometry, AllLiesOnTheControlAndTheScaleBesideTheTube) {
  const ThermometerGeometry geometry = LayOutThermometer(kThermometerSize, 16, 50);
  const QRectF all(QPointF(), kThermometerSize);
  EXPECT_TRUE(all.contains(geometry.bulb));
  EXPECT_TRUE(all.contains(geometry.tube));
  EXPECT_GT(geometry.tick_left, geometry.tube.right());
  EXPECT_GT(geometry.number_left, geometry.tick_left);
  EXPECT_GE(geometry.ticks[12], 8);  // half a number
  EXPECT_LT(geometry.ticks[0], geometry.bulb.top());
}

TEST(Thermometer, IsEmptyUntilAValueComes) {
  Thermometer thermometer(nullptr);
  EXPECT_EQ(thermometer.property("known"), false);
  const QImage empty = Picture(thermometer);
  thermometer.SetValue(0);
  const QImage zero = Picture(thermometer);
  EXPECT_NE(zero, empty);
  thermometer.SetValue(90);
  EXPECT_NE(Picture(thermometer), zero);
  thermometer.setProperty("known", false);
  EXPECT_EQ(Picture(thermometer), empty);
  thermometer.SetKnown(true);
  EXPECT_EQ(Picture(thermometer), zero);
}

TEST(Thermometer, ItsValueIsAPropertyAndTold) {
  Thermometer thermometer(nullptr);
  EXPECT_EQ(thermometer.accessibleDescription(), "");
  EXPECT_TRUE(thermometer.setProperty("value", 94));
  EXPECT_EQ(thermometer.property("value"), 94);
  EXPECT_EQ(thermometer.accessibleDescription(), "94");
  thermometer.setProperty("value", 300);
  EXPECT_EQ(thermometer.property("value"), 300);
  thermometer.SetKnown(false);
  EXPECT_EQ(thermometer.accessibleDescription(), "");
}

TEST(Thermometer, ItsColumnIsReadWithoutColour) {
  Thermometer thermometer(nullptr);
  thermometer.resize(thermometer.sizeHint());
  const int em = thermometer.fontMetrics().height();
  const QPoint middle = LayOutThermometer(thermometer.size(), em, 0).tube.center().toPoint();
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    for (const bool enabled : {true, false}) {
      thermometer.setPalette(palette);
      thermometer.setEnabled(enabled);
      thermometer.SetValue(120);
      const int full = qGray(Picture(thermometer).pixel(middle));
      thermometer.SetValue(0);
      EXPECT_GT(std::abs(full - qGray(Picture(thermometer).pixel(middle))), 25) << enabled;
    }
  }
}

TEST(Thermometer, ItsLinesAreSharpAtEveryScale) {
  Thermometer thermometer(nullptr);
  thermometer.setPalette(LightPalette());
  thermometer.resize(thermometer.sizeHint());
  const ThermometerGeometry geometry =
      LayOutThermometer(thermometer.size(), thermometer.fontMetrics().height(), 0);
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    QImage picture((QSizeF(thermometer.size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    thermometer.render(&picture);
    const int ground = qGray(thermometer.palette().color(QPalette::Window).rgb());
    const int x = qRound((geometry.tick_left + geometry.number_left) / 2 * scale - 3 * scale);
    int dark_rows = 0;
    for (int y = 0; y < qRound(geometry.bulb.top() * scale); ++y) {
      const int seen = qGray(picture.pixel(x, y));
      EXPECT_TRUE(seen == ground || seen < 10) << scale << " " << y;
      dark_rows += seen < 10;
    }
    EXPECT_EQ(dark_rows, scale < 1.5 ? 13 : 26) << scale << ": all as thick";
  }
}

TEST(LedBarGeometry, HasTwentyLampsInARowThatDoNotTouch) {
  const QSize size(305, 24);
  for (int n = 0; n < 20; ++n) {
    EXPECT_TRUE(QRect(QPoint(), size).contains(LedBarLamp(size, n))) << n;
    const int before = n > 0 ? LedBarLamp(size, n - 1).right() : -2;
    EXPECT_GT(LedBarLamp(size, n).left(), before + 1) << n;
    EXPECT_GE(LedBarLamp(size, n).width(), 12) << n;
  }
}

TEST(LedBar, LightsAsManyAsItsPosition) {
  LedBar bar(nullptr);
  bar.resize(bar.sizeHint());
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    bar.setPalette(palette);
    for (const int position : {0, 7, 20}) {
      bar.SetPosition(position);
      const QImage picture = Picture(bar);
      for (int n = 0; n < 20; ++n) {
        EXPECT_EQ(qGray(picture.pixel(LedBarLamp(bar.size(), n).center())) > 130, n < position) << n;
      }
    }
  }
}

TEST(LedBar, ItsPositionIsAPropertyAndTold) {
  LedBar bar(nullptr);
  EXPECT_EQ(bar.accessibleDescription(), "0 of 20");
  EXPECT_TRUE(bar.setProperty("position", 20));
  EXPECT_EQ(bar.property("position"), 20);
  EXPECT_EQ(bar.accessibleDescription(), "20 of 20");
  bar.SetPosition(21);
  bar.SetPosition(-1);
  EXPECT_EQ(bar.Position(), 20);
}

TEST(Instruments, KeepTheirSizeInALargerWindow) {
  QWidget window;
  auto* layout = new QHBoxLayout(&window);
  for (QWidget* instrument :
       {static_cast<QWidget*>(new Thermometer(&window)),
        static_cast<QWidget*>(new SevenSegment(&window, 3, 0)), static_cast<QWidget*>(new LedBar(&window)),
        static_cast<QWidget*>(new Led(&window))}) {
    layout->addWidget(instrument);
  }
  for (const QSize size : {QSize(2000, 1000), QSize(1, 1)}) {
    window.resize(size);
    layout->activate();
    for (int n = 0; n < layout->count(); ++n) {
      EXPECT_EQ(layout->itemAt(n)->widget()->size(), layout->itemAt(n)->widget()->sizeHint()) << n;
    }
  }
}

TEST(Instruments, GrowWithTheirFont) {
  Thermometer thermometer(nullptr);
  SevenSegment display(nullptr, 3, 0);
  LedBar bar(nullptr);
  for (QWidget* instrument :
       {static_cast<QWidget*>(&thermometer), static_cast<QWidget*>(&display), static_cast<QWidget*>(&bar)}) {
    const QSize before = instrument->sizeHint();
    QFont large = instrument->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    instrument->setFont(large);
    EXPECT_GT(instrument->sizeHint().height(), before.height() * 3 / 2);
    EXPECT_GT(instrument->sizeHint().width(), before.width() * 3 / 2);
  }
}

}  // namespace
}  // namespace dosmara
