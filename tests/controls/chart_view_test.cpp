// SPDX-License-Identifier: GPL-3.0-or-later
// Which stretch of time a chart shows, and where its ticks are.
#include "controls/chart_view.h"

#include <gtest/gtest.h>

namespace dosmara {
namespace {

void ExpectView(const ChartView& view, double from, double to) {
  EXPECT_NEAR(view.from, from, 1e-9);
  EXPECT_NEAR(view.to, to, 1e-9);
}

TEST(ChartView, StaysAtTheBeginningUntilTheSamplesFillIt) {
  ExpectView(NewestView(0, 60), -0.5, 59.5);
  ExpectView(NewestView(59, 60), -0.5, 59.5);
  ExpectView(NewestView(64, 60), 4.5, 64.5);
}

TEST(ChartView, ShowsAllSamplesInOne) {
  ExpectView(WholeView(20, 60), -0.5, 59.5);
  ExpectView(WholeView(118, 60), -1, 119);
  ExpectView(WholeView(118000, 60), -1000, 119000);
}

TEST(ChartView, IsTenSecondsToAnHourWideOrAsWideAsAllSamples) {
  EXPECT_EQ(NearestSpan(9, 500), 10);
  EXPECT_EQ(NearestSpan(11, 500), 11);
  EXPECT_EQ(NearestSpan(4000, 500), 3600);
  EXPECT_NEAR(NearestSpan(9000, 7080), 7200, 1e-9);
}

TEST(ChartView, LiesWhereSamplesAre) {
  ExpectView(NearestView({100, 160}, 500), 100, 160);
  ExpectView(NearestView({-40, 20}, 500), -0.5, 59.5);
  ExpectView(NearestView({480, 540}, 500), 440.5, 500.5);
  ExpectView(NearestView({10, 70}, 20), -0.5, 59.5);
  ExpectView(NearestView({100, 104}, 500), 97, 107);
}

TEST(ChartView, ZoomLeavesTheTimeUnderThePointerWhereItIs) {
  ExpectView(ZoomedView({100, 160}, 0.5, 130, 500), 115, 145);
  ExpectView(ZoomedView({100, 160}, 0.5, 100, 500), 100, 130);
  ExpectView(ZoomedView({100, 160}, 2, 160, 500), 40, 160);
  ExpectView(ZoomedView({100, 112}, 0.5, 100, 500), 100, 110);
  ExpectView(ZoomedView({100, 110}, 0.5, 110, 500), 100, 110);
}

TEST(TickStep, IsTheRoundTimeThatGivesTheTicks) {
  EXPECT_EQ(TickStep(60.048, 12), 5);
  EXPECT_EQ(TickStep(10, 12), 1);
  EXPECT_EQ(TickStep(120, 12), 10);
  EXPECT_EQ(TickStep(600, 12), 60);
  EXPECT_EQ(TickStep(600, 5), 120);
  EXPECT_EQ(TickStep(3600, 12), 300);
  EXPECT_EQ(TickStep(36 * 3600.0, 12), 3 * 3600);
  EXPECT_EQ(TickStep(30 * 86400.0, 12), 3 * 86400);
}

TEST(TickStep, NeverGivesTwoTicksMoreThanWanted) {
  for (const int most : {1, 5, 12}) {
    for (double span = 10; span < 1e7; span *= 1.07) {
      EXPECT_LT(span / TickStep(span, most), most + 1) << span;
    }
  }
}

}  // namespace
}  // namespace dosmara
