// SPDX-License-Identifier: GPL-3.0-or-later
// What a strip chart draws.
#include "controls/strip_chart.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "pictures.h"
#include "strip_chart_fixture.h"

namespace dosmara {
namespace {

using Lines = std::vector<std::vector<QPointF>>;

TEST_F(StripChartTest, DrawsItsChannelsOnBlackWithALimeGrid) {
  Add(90, 5);
  AddMany(10);
  EXPECT_GT(PixelsOf({255, 0, 0}, 0, 40), 40);
  EXPECT_GT(PixelsOf({0, 0, 255}, 0, 40), 40);
  EXPECT_GT(PixelsOf({0, 255, 0}, 0, 59), 1000);
  EXPECT_GT(PixelsOf({0, 0, 0}, 0, 59), 200'000);
  EXPECT_EQ(plot().yAxis->grid()->zeroLinePen().style(), Qt::NoPen) << "its grid has one colour";
  EXPECT_GE(plot().graph(1)->pen().widthF(), 2) << "blue on black is faint";
}

TEST_F(StripChartTest, TicksTheTimeEveryFiveSeconds) {
  Draw();
  EXPECT_EQ(plot().xAxis->tickVectorLabels(),
            QVector<QString>({"00:00", "00:05", "00:10", "00:15", "00:20", "00:25", "00:30", "00:35", "00:40",
                              "00:45", "00:50", "00:55"}));
}

TEST_F(StripChartTest, HasTwelveTicksOfTimeWheneverItFollows) {
  for (int n = 0; n < 60; ++n) {
    AddMany(1);
    EXPECT_EQ(plot().xAxis->tickVector().size(), 12) << n;
  }
}

TEST_F(StripChartTest, HasNoMoreThanTwelveTicksOfTimeHoweverWideItIs) {
  chart_.resize(2500, 540);
  Draw();
  EXPECT_EQ(plot().xAxis->tickVector().size(), 12);
}

TEST_F(StripChartTest, TicksTheValuesEveryTenFromEndToEnd) {
  EXPECT_EQ(plot().yAxis->tickVectorLabels(),
            QVector<QString>(
                {"-10", "0", "10", "20", "30", "40", "50", "60", "70", "80", "90", "100", "110", "120"}));
}

TEST_F(StripChartTest, HasFourTicksBetweenTwoOnBothAxes) {
  for (const QCPAxis* axis : {plot().xAxis, plot().yAxis}) {
    for (const double share : {1.0, 0.4}) {
      QVector<double> ticks;
      QVector<double> minor;
      const QCPRange range(axis->range().lower, axis->range().lower + share * axis->range().size());
      axis->ticker()->generate(range, {}, 'f', 0, ticks, &minor, nullptr);
      EXPECT_EQ(std::ranges::count_if(minor, [&](double t) { return t > ticks[1] && t < ticks[2]; }), 4);
    }
  }
}

TEST_F(StripChartTest, CountsMinutesOnBeyondTheHour) {
  const Value values[] = {90, 5};
  chart_.AddSample(0, std::chrono::minutes(61), values);
  Draw();
  EXPECT_EQ(plot().xAxis->tickVectorLabels().first(), "60:05");
  EXPECT_EQ(plot().xAxis->tickVectorLabels().last(), "61:00");
}

TEST_F(StripChartTest, KeepsTheTimesOfItsTicksApart) {
  const Value values[] = {90, 5};
  for (const auto hours : {0, 1, 36, 150}) {
    chart_.AddSample(0, std::chrono::hours(hours), values);
    Press(Qt::Key_Home);
    for (const int width : {500, 860, 1300}) {
      chart_.resize(width, 400);
      Draw();
      const double step =
          std::abs(Pixel(plot().xAxis->tickVector()[1]) - Pixel(plot().xAxis->tickVector()[0]));
      const QFontMetrics metrics(plot().xAxis->tickLabelFont());
      EXPECT_GT(step, 1.1 * metrics.horizontalAdvance(plot().xAxis->tickVectorLabels().last()))
          << hours << ' ' << width;
    }
  }
}

TEST_F(StripChartTest, DrawsOnceForEachSample) {
  int drawn = 0;
  QObject::connect(&plot(), &QCustomPlot::afterReplot, &chart_, [&] { ++drawn; });
  for (int n = 1; n <= 30; ++n) {
    Add(90, 5);
    Draw();
    EXPECT_EQ(drawn, n);
  }
  chart_.SetFollowing(false);
  Add(90, 5);
  Draw();
  EXPECT_EQ(drawn, 31);
  chart_.SetCaptions(chart_.Captions());
  chart_.SetFollowing(true);
  Add(90, 5);
  Draw();
  EXPECT_EQ(drawn, 32) << "all that has changed, at once";
}

TEST_F(StripChartTest, KeepsThePixelsOfOneLayerOnly) {
  for (int n = 0; n < plot().layerCount(); ++n) {
    EXPECT_EQ(plot().layer(n)->mode(), QCPLayer::lmLogical) << plot().layer(n)->name().toStdString();
  }
}

TEST_F(StripChartTest, DrawsAsFineAsItsScreen) {
  plot().setBufferDevicePixelRatio(3);
  AddMany(1);
  EXPECT_EQ(plot().bufferDevicePixelRatio(), chart_.devicePixelRatioF());
}

TEST_F(StripChartTest, KeepsEverySample) {
  AddMany(5000);
  const Lines lines = chart_.Lines(0);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines[0].size(), 5000u);
  EXPECT_EQ(lines[0].front(), QPointF(0, 90));
  EXPECT_EQ(lines[0].back(), QPointF(4999 * 4, 90));
}

TEST_F(StripChartTest, AChannelWithoutAValueHasNoPoint) {
  Add(90, kAbsent);
  Add(91, kAbsent);
  EXPECT_EQ(chart_.Lines(0), (Lines{{{0, 90}, {4, 91}}}));
  EXPECT_EQ(chart_.Lines(1), Lines{});
}

TEST_F(StripChartTest, NoLineLeadsOverMissingPoints) {
  Add(90, 5);
  Add(91, 6);
  Add(92, kAbsent);
  Add(93, 8);
  Add(94, 9);
  Draw();
  EXPECT_EQ(chart_.Lines(0), (Lines{{{0, 90}, {4, 91}, {8, 92}, {12, 93}, {16, 94}}}));
  EXPECT_EQ(chart_.Lines(1), (Lines{{{0, 5}, {4, 6}}, {{12, 8}, {16, 9}}}));
  EXPECT_EQ(PixelsOf({0, 0, 255}, 5, 11), 0);
  EXPECT_GT(PixelsOf({0, 0, 255}, 1, 3), 0);
  EXPECT_GT(PixelsOf({0, 0, 255}, 13, 15), 0);
  EXPECT_GT(PixelsOf({255, 0, 0}, 5, 11), 0);
}

TEST_F(StripChartTest, NoLineLeadsOverMissingPointsHoweverMuchIsInSight) {
  AddMany(8000);
  AddMany(4000, 90, kAbsent);
  AddMany(8000);
  Press(Qt::Key_Home);
  EXPECT_GT(PixelsOf({0, 0, 255}, 20'000, 30'000), 0);
  EXPECT_EQ(PixelsOf({0, 0, 255}, 33'000, 47'000), 0);
  EXPECT_GT(PixelsOf({0, 0, 255}, 50'000, 60'000), 0);
  EXPECT_GT(PixelsOf({255, 0, 0}, 33'000, 47'000), 0);
}

TEST_F(StripChartTest, APointThatStandsAloneIsSeen) {
  AddMany(1);
  EXPECT_GT(PixelsOf({255, 0, 0}, -0.4, 1), 5);
  AddMany(100, kAbsent, kAbsent);
  AddMany(1);
  AddMany(100, kAbsent, 5);
  Press(Qt::Key_Home);
  EXPECT_GT(PixelsOf({255, 0, 0}, 400, 408), 0);
}

TEST_F(StripChartTest, MarksItsPointsWhereThereIsRoomForMarks) {
  AddMany(20);
  std::vector<QCPScatterStyle::ScatterShape> shapes;
  const auto shape = [this](int channel) { return plot().graph(channel)->scatterStyle().shape(); };
  EXPECT_EQ(shape(0), QCPScatterStyle::ssDisc);
  EXPECT_EQ(shape(1), QCPScatterStyle::ssSquare) << "told from the first without its colour";
  AddMany(180);
  Press(Qt::Key_Home);
  EXPECT_EQ(shape(0), QCPScatterStyle::ssDot);
  AddMany(2000);
  Press(Qt::Key_Home);
  EXPECT_EQ(shape(0), QCPScatterStyle::ssNone);
  EXPECT_TRUE(plot().plottingHints().testFlag(QCP::phFastPolylines));
  EXPECT_FALSE(plot().graph(0)->antialiased()) << "that would take half of the time of a sample";
  chart_.SetFollowing(true);
  Draw();
  EXPECT_TRUE(plot().graph(0)->antialiased());
}

TEST_F(StripChartTest, TheNumberOfASampleGoesOnBehindItsLargest) {
  number_ = std::numeric_limits<std::int16_t>::max() - 1;
  for (int n = 0; n < 5; ++n) {
    Add(90, 5);
  }
  EXPECT_LT(number_, 0);
  EXPECT_EQ(chart_.Lines(0), (Lines{{{0, 90}, {4, 90}, {8, 90}, {12, 90}, {16, 90}}}));
  Draw();
  ExpectView(-0.5, 59.5);
}

TEST_F(StripChartTest, ValuesBeyondTheScaleLeaveTheScaleAsItIs) {
  AddMany(5, 900, -128);
  EXPECT_EQ(plot().yAxis->range(), QCPRange(-10, 120));
  EXPECT_EQ(chart_.Lines(1)[0].back().y(), -128);
}

TEST_F(StripChartTest, TellsItsNameAndItsNewestValues) {
  const QWidget* spoken = chart_.focusProxy();
  EXPECT_EQ(spoken->accessibleName(), "Graph");
  EXPECT_EQ(spoken->accessibleDescription(), "");
  Add(92, 4.6875);
  EXPECT_EQ(spoken->accessibleDescription(), "Boiler 92, Tank 4.7");
  Add(kAbsent, -0.01);
  EXPECT_EQ(spoken->accessibleDescription(), "Tank 0");
  Add(kAbsent, kAbsent);
  EXPECT_EQ(spoken->accessibleDescription(), "");
}

TEST_F(StripChartTest, ShowsItsWords) {
  EXPECT_EQ(plot().yAxis->label(), "Temperature");
  ASSERT_EQ(plot().legend->itemCount(), 2);
  EXPECT_TRUE(plot().legend->visible());
  EXPECT_EQ(plot().graph(0)->name(), "Boiler");
  EXPECT_EQ(plot().graph(1)->name(), "Tank");
  Add(92, 5);
  chart_.SetCaptions({"Grafico", "Temperatura", {"Caldaia", "Serbatoio"}, {"Scorri", "Indietro"}});
  EXPECT_EQ(plot().yAxis->label(), "Temperatura");
  EXPECT_EQ(plot().graph(1)->name(), "Serbatoio");
  EXPECT_EQ(chart_.findChild<QAbstractButton*>("Earlier")->text(), "Indietro");
  EXPECT_EQ(chart_.focusProxy()->accessibleDescription(), "Caldaia 92, Serbatoio 5");
}

TEST_F(StripChartTest, TheLegendHidesNoSample) {
  EXPECT_FALSE(plot().legend->outerRect().intersects(plot().axisRect()->rect()));
}

TEST_F(StripChartTest, WordsAroundTheSamplesCanBeReadInLightAndDark) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    chart_.setPalette(palette);
    Draw();
    const int ground = qGray(plot().grab().toImage().pixel(2, plot().height() - 3));
    EXPECT_EQ(ground, qGray(palette.color(QPalette::Window).rgb()));
    EXPECT_GT(std::abs(qGray(plot().xAxis->tickLabelColor().rgb()) - ground), 120);
    EXPECT_GT(std::abs(qGray(plot().yAxis->labelColor().rgb()) - ground), 120);
    EXPECT_GT(PixelsOf({0, 0, 0}, 0, 59), 200'000);
    EXPECT_EQ(plot().legend->brush().color(), QColor(Qt::black));
    EXPECT_EQ(plot().legend->textColor(), QColor(Qt::white));
  }
}

TEST_F(StripChartTest, TakesTheFontOfItsWindow) {
  QFont font = chart_.font();
  font.setPointSizeF(2 * font.pointSizeF());
  chart_.setFont(font);
  EXPECT_EQ(plot().xAxis->tickLabelFont().pointSizeF(), font.pointSizeF());
  EXPECT_EQ(plot().yAxis->labelFont().pointSizeF(), font.pointSizeF());
  EXPECT_EQ(plot().legend->font().pointSizeF(), font.pointSizeF());
}

TEST_F(StripChartTest, ShowsWhereTheFocusIs) {
  chart_.findChild<QWidget*>("Follow")->setFocus();
  Draw();
  const QImage before = plot().grab().toImage();
  chart_.setFocus();
  Draw();
  EXPECT_NE(plot().grab().toImage(), before);
}

}  // namespace
}  // namespace dosmara
