// SPDX-License-Identifier: GPL-3.0-or-later
// A chart of two channels on a window of its own, and the hand of its operator.
#pragma once

#include <gtest/gtest.h>
#include <qcustomplot.h>

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <vector>

#include "controls/strip_chart.h"

namespace dosmara {

inline constexpr QColor kRedAndBlue[] = {{255, 0, 0}, {0, 0, 255}};
inline constexpr StripChartSetup kTwoChannels = {.colours = kRedAndBlue,
                                                 .span = std::chrono::seconds(60),
                                                 .time_ticks = 12,
                                                 .low = -10,
                                                 .high = 120,
                                                 .value_ticks = 14,
                                                 .minor_ticks = 4};

class StripChartTest : public testing::Test {
 protected:
  using Value = std::optional<double>;
  static constexpr std::nullopt_t kAbsent = std::nullopt;

  StripChartTest() : chart_(nullptr, kTwoChannels) {
    chart_.SetCaptions({"Graph",
                        "Temperature",
                        {"Boiler", "Tank"},
                        {"Follow", "Earlier", "Later", "Zoom in", "Zoom out", "Everything"}});
    chart_.resize(860, 540);
    chart_.show();
    QApplication::setActiveWindow(&chart_);
    Draw();
  }

  // The next sample, four seconds after the one before.
  void Add(Value boiler, Value tank) {
    const Value values[] = {boiler, tank};
    chart_.AddSample(number_++, time_, values);
    time_ += std::chrono::seconds(4);
  }
  // So many more samples of the same values.
  void AddMany(int count, Value boiler = 90, Value tank = 5) {
    while (count-- > 0) {
      Add(boiler, tank);
    }
    Draw();
  }

  // Lets the chart draw what it has been given.
  static void Draw() {
    for (int i = 0; i < 3; ++i) {
      QApplication::processEvents();
    }
  }

  void Press(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
    Draw();
  }
  void Click(const char* button) {
    QTest::mouseClick(chart_.findChild<QAbstractButton*>(button), Qt::LeftButton);
    Draw();
  }
  // Draws the strip so many pixels to the right.
  void Drag(int pixels) {
    const QPoint from = plot().axisRect()->center();
    QTest::mousePress(&plot(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&plot(), from + QPoint(pixels / 2, 0));
    QTest::mouseMove(&plot(), from + QPoint(pixels, 3));
    QTest::mouseRelease(&plot(), Qt::LeftButton, {}, from + QPoint(pixels, 3));
    Draw();
  }
  // Turns the wheel away from the operator by so many steps.
  void Turn(int steps, QPointF at) {
    QWheelEvent event(at, plot().mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&plot(), &event);
    Draw();
  }
  double Pixel(double time) { return plot().xAxis->coordToPixel(time); }

  void ExpectView(double from, double to) {
    EXPECT_NEAR(chart_.View().from, from, 1e-6);
    EXPECT_NEAR(chart_.View().to, to, 1e-6);
  }

  // How many pixels have exactly the colour, between two times.
  int PixelsOf(const QColor& colour, double from, double to) {
    const QImage picture = plot().grab().toImage();
    const QRect samples = plot().axisRect()->rect();
    const int first = static_cast<int>(std::max<double>(Pixel(from), samples.left()));
    const int last = static_cast<int>(std::min<double>(Pixel(to), samples.right()));
    int count = 0;
    for (int x = first; x <= last; ++x) {
      for (int y = samples.top(); y <= samples.bottom(); ++y) {
        count += picture.pixelColor(x, y) == colour ? 1 : 0;
      }
    }
    return count;
  }

  QCustomPlot& plot() { return *chart_.findChild<QCustomPlot*>(); }

  StripChart chart_;
  std::int16_t number_ = 0;
  std::chrono::seconds time_{0};
};

}  // namespace dosmara
