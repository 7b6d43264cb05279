// SPDX-License-Identifier: GPL-3.0-or-later
// How an operator stops a strip chart, looks back and returns.
#include "controls/chart_plot.h"
#include "strip_chart_fixture.h"

namespace dosmara {
namespace {

TEST_F(StripChartTest, FollowsTheNewestSample) {
  ExpectView(-0.5, 59.5);
  AddMany(15);
  ExpectView(-0.5, 59.5);
  AddMany(1);
  ExpectView(0.5, 60.5);
  AddMany(100);
  ExpectView(400.5, 460.5);
  EXPECT_TRUE(chart_.IsFollowing());
}

// What the operator does to look at something else than the newest samples.
struct Glance {
  const char* button;
  Qt::Key key;
  double from;
  double to;
};
constexpr Glance kGlances[] = {
    {"Earlier", Qt::Key_Left, 370.5, 430.5},
    {"Everything", Qt::Key_Home, -460.0 / 118, 460 + 460.0 / 118},
};

TEST_F(StripChartTest, LookingElsewhereStopsFollowing) {
  AddMany(116);
  for (const Glance& glance : kGlances) {
    for (const bool by_key : {false, true}) {
      chart_.SetFollowing(true);
      chart_.setFocus();
      by_key ? Press(glance.key) : Click(glance.button);
      EXPECT_FALSE(chart_.IsFollowing()) << glance.button;
      EXPECT_FALSE(chart_.findChild<QAbstractButton*>("Follow")->isChecked());
      ExpectView(glance.from, glance.to);
    }
  }
}

TEST_F(StripChartTest, EverythingIsAMinuteAtLeast) {
  AddMany(3);
  Press(Qt::Key_Plus);
  Press(Qt::Key_Home);
  ExpectView(-0.5, 59.5);
}

TEST_F(StripChartTest, NewSamplesLeaveAViewAloneThatDoesNotFollow) {
  AddMany(116);
  Press(Qt::Key_Left);
  AddMany(50);
  ExpectView(370.5, 430.5);
}

TEST_F(StripChartTest, LaterComesBackToTheNewestSampleAndNoFurther) {
  AddMany(116);
  Press(Qt::Key_Left);
  Press(Qt::Key_Left);
  ExpectView(340.5, 400.5);
  Press(Qt::Key_Right);
  ExpectView(370.5, 430.5);
  Click("Later");
  Click("Later");
  ExpectView(400.5, 460.5);
  EXPECT_FALSE(chart_.IsFollowing()) << "nobody has asked for it";
}

TEST_F(StripChartTest, LaterChangesNothingWhileItFollows) {
  AddMany(116);
  Press(Qt::Key_Right);
  EXPECT_TRUE(chart_.IsFollowing());
  ExpectView(400.5, 460.5);
}

TEST_F(StripChartTest, EarlierEndsAtTheFirstSample) {
  AddMany(20);
  for (int i = 0; i < 5; ++i) {
    Press(Qt::Key_Left);
  }
  ExpectView(-0.5, 59.5);
}

TEST_F(StripChartTest, SpaceAndItsBoxStopItAndSetItGoing) {
  AddMany(116);
  chart_.setFocus();
  Press(Qt::Key_Space);
  EXPECT_FALSE(chart_.IsFollowing());
  AddMany(10);
  ExpectView(400.5, 460.5);
  Press(Qt::Key_Space);
  EXPECT_TRUE(chart_.IsFollowing());
  ExpectView(440.5, 500.5);
  Click("Follow");
  EXPECT_FALSE(chart_.IsFollowing());
  Click("Follow");
  EXPECT_TRUE(chart_.IsFollowing());
}

TEST_F(StripChartTest, SpacePressesTheButtonThatHasTheFocus) {
  AddMany(116);
  chart_.findChild<QWidget*>("Earlier")->setFocus();
  Press(Qt::Key_Space);
  ExpectView(370.5, 430.5);
  Press(Qt::Key_Right);
  ExpectView(400.5, 460.5);
}

TEST_F(StripChartTest, EndReturnsToTheNewestMinute) {
  AddMany(116);
  Press(Qt::Key_Home);
  Press(Qt::Key_End);
  EXPECT_TRUE(chart_.IsFollowing());
  EXPECT_TRUE(chart_.findChild<QAbstractButton*>("Follow")->isChecked());
  ExpectView(400.5, 460.5);
  Press(Qt::Key_Plus);
  Press(Qt::Key_End);
  ExpectView(400.5, 460.5);
}

TEST_F(StripChartTest, ZoomGoesOnFollowing) {
  AddMany(116);
  Press(Qt::Key_Minus);
  EXPECT_TRUE(chart_.IsFollowing());
  ExpectView(461 - 120, 461);
  AddMany(1);
  ExpectView(465 - 120, 465);
  Click("ZoomIn");
  Click("ZoomIn");
  ExpectView(464.25 - 30, 464.25);
  Click("ZoomOut");
  Press(Qt::Key_Plus);
  ExpectView(464.25 - 30, 464.25);
  for (int i = 0; i < 5; ++i) {
    Press(Qt::Key_Plus);
  }
  EXPECT_NEAR(chart_.View().Span(), 10, 1e-6);
}

TEST_F(StripChartTest, ZoomKeepsTheMiddleOfAViewThatDoesNotFollow) {
  AddMany(116);
  Press(Qt::Key_Left);
  Press(Qt::Key_Plus);
  ExpectView(385.5, 415.5);
  Press(Qt::Key_Minus);
  ExpectView(370.5, 430.5);
  EXPECT_FALSE(chart_.IsFollowing());
}

TEST_F(StripChartTest, TheMouseDrawsTheStrip) {
  AddMany(116);
  const double second = Pixel(421) - Pixel(420);
  Drag(static_cast<int>(20 * second));
  EXPECT_FALSE(chart_.IsFollowing());
  EXPECT_NEAR(chart_.View().from, 380.5, 1 / second);
  EXPECT_NEAR(chart_.View().Span(), 60, 1e-6);
  EXPECT_EQ(plot().yAxis->range(), QCPRange(-10, 120));
  for (int i = 0; i < 3; ++i) {
    Drag(-300);
  }
  ExpectView(400.5, 460.5);
}

TEST_F(StripChartTest, WhatMovesTheViewOtherwiseIsNotTakenForTheMouse) {
  int dragged = 0;
  QObject::connect(chart_.findChild<ChartPlot*>(), &ChartPlot::Dragged, &chart_, [&] { ++dragged; });
  AddMany(116);
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Plus, Qt::Key_Home, Qt::Key_End}) {
    Press(key);
  }
  EXPECT_EQ(dragged, 0);
  Drag(30);
  EXPECT_GT(dragged, 0);
}

TEST_F(StripChartTest, DrawingBeyondTheNewestSampleGoesOnFollowing) {
  AddMany(116);
  Drag(-200);
  EXPECT_TRUE(chart_.IsFollowing());
  ExpectView(400.5, 460.5);
}

TEST_F(StripChartTest, TheWheelZoomsAroundThePointer) {
  AddMany(116);
  Press(Qt::Key_Left);
  const QPointF at(Pixel(390.5), plot().axisRect()->center().y());
  Turn(1, at);
  ExpectView(390.5 - 16, 390.5 + 32);
  Turn(-1, at);
  ExpectView(370.5, 430.5);
  EXPECT_EQ(plot().yAxis->range(), QCPRange(-10, 120));
}

TEST_F(StripChartTest, TheWheelGoesOnFollowing) {
  AddMany(116);
  Turn(-1, {200, 200});
  EXPECT_TRUE(chart_.IsFollowing());
  ExpectView(460.625 - 75, 460.625);
}

TEST_F(StripChartTest, ItsControlsTellTheirKeys) {
  const char* const keys[][2] = {{"Follow", "[Space, End]"}, {"Earlier", "[\u2190]"},
                                 {"Later", "[\u2192]"},      {"ZoomIn", "[+]"},
                                 {"ZoomOut", "[-]"},         {"Everything", "[Home]"}};
  for (const auto& [name, key] : keys) {
    const auto* control = chart_.findChild<QAbstractButton*>(name);
    EXPECT_TRUE(control->toolTip().startsWith(control->text())) << name;
    EXPECT_TRUE(control->toolTip().endsWith(key)) << name;
    EXPECT_FALSE(control->text().isEmpty()) << name;
  }
}

TEST_F(StripChartTest, TabGoesFromItsControlsToTheSamples) {
  chart_.findChild<QWidget*>("Follow")->setFocus();
  QStringList names;
  for (int i = 0; i < 6; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    names.append(QApplication::focusWidget()->objectName());
  }
  EXPECT_EQ(names, QStringList({"Earlier", "Later", "ZoomIn", "ZoomOut", "Everything", ""}));
  EXPECT_TRUE(chart_.hasFocus());
}

}  // namespace
}  // namespace dosmara
