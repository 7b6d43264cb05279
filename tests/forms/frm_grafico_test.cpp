// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QApplication>
#include <cmath>
#include <limits>

#include "controls/strip_chart.h"
#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

enum { kBoiler, kTank, kTank2 };

class FrmGraficoTest : public FormFixture {
 protected:
  FrmGraficoTest() { Open("FrmGrafico"); }

  StripChart& Chart() { return Find<StripChart>("iStripChartX1"); }

  // All boards are there, and their temperatures are 92, 4.5 and 8.25 degrees.
  void ArriveAll() {
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, 4);
    }
    Arrive(1, 542, 92);
    for (const int node : {2, 3}) {
      Arrive(node, 52, 5);
    }
    Arrive(2, 287, 1152);
    Arrive(3, 287, 2112);
  }

  // Four seconds pass, so many times.
  void Pass(int samples = 1) {
    while (samples-- > 0) {
      Fire("Timer1");
    }
  }

  // The values of a channel, in all of its lines.
  std::vector<double> Values(int channel) {
    std::vector<double> values;
    for (const auto& line : Chart().Lines(channel)) {
      for (const QPointF& point : line) {
        values.push_back(point.y());
      }
    }
    return values;
  }

  std::string Spoken() { return Chart().focusProxy()->accessibleDescription().toStdString(); }
};

using Numbers = std::vector<double>;

TEST_F(FrmGraficoTest, ReadsGatesTemperaturesAndOffsets) {
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 312, 1},
                                                     {0, 313, 1},
                                                     {0, 357, 1},
                                                     {1, 542, 1},
                                                     {2, 52, 1},
                                                     {2, 287, 1},
                                                     {3, 52, 1},
                                                     {3, 287, 1}}));
}

TEST_F(FrmGraficoTest, SamplesEveryFourSecondsFromItsOpening) {
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 4000);
  EXPECT_EQ(Find<QTimer>("Timer1").timerType(), Qt::PreciseTimer) << "else it may run 5 % late";
  EXPECT_TRUE(Running("Timer1"));
  ArriveAll();
  EXPECT_EQ(Values(kBoiler), Numbers{}) << "four seconds have not passed";
  Pass(3);
  const auto lines = Chart().Lines(kBoiler);
  ASSERT_EQ(lines.size(), 1u);
  ASSERT_EQ(lines[0].size(), 3u);
  for (int n = 0; n < 3; ++n) {
    EXPECT_NEAR(lines[0][n].x(), 4 * n, 1e-6);
  }
}

TEST_F(FrmGraficoTest, ItsChartHasThreeColoursAMinuteAndAFixedScale) {
  const StripChartSetup& setup = Chart().Setup();
  ASSERT_EQ(setup.colours.size(), 3u);
  EXPECT_EQ(setup.colours[kBoiler], QColor("red"));
  EXPECT_EQ(setup.colours[kTank], QColor("blue"));
  EXPECT_EQ(setup.colours[kTank2], QColor("cyan"));
  EXPECT_NEAR(setup.span.count(), 60, 0.1);
  EXPECT_EQ(setup.time_ticks, 12);
  EXPECT_EQ(setup.low, -10);
  EXPECT_EQ(setup.high, 120);
  EXPECT_EQ(setup.value_ticks, 14);
  EXPECT_EQ(setup.minor_ticks, 4);
  EXPECT_TRUE(Chart().IsFollowing());
}

TEST_F(FrmGraficoTest, DrawsTheTemperaturesOfThreeBoards) {
  ArriveAll();
  Pass();
  EXPECT_EQ(Values(kBoiler), Numbers{92});
  EXPECT_EQ(Values(kTank), Numbers{4.5});
  EXPECT_EQ(Values(kTank2), Numbers{8.25});
}

TEST_F(FrmGraficoTest, HasNoPointsBeforeTheGatesHaveArrived) {
  Arrive(1, 542, 92);
  Pass(2);
  EXPECT_EQ(Values(kBoiler), Numbers{});
  EXPECT_EQ(Values(kTank), Numbers{});
  EXPECT_EQ(Values(kTank2), Numbers{});
  EXPECT_EQ(Spoken(), "");
}

TEST_F(FrmGraficoTest, OneBitOfItsGateTellsWhetherABoardHasAPoint) {
  ArriveAll();
  const int gates[] = {312, 313, 357};
  for (int channel = 0; channel < 3; ++channel) {
    SCOPED_TRACE(channel);
    const auto points = [&] { return Values(channel).size(); };
    const std::size_t before = points();
    Arrive(0, gates[channel], 251);
    Pass();
    EXPECT_EQ(points(), before);
    Arrive(0, gates[channel], 255);
    Pass();
    EXPECT_EQ(points(), before + 1);
    Arrive(0, gates[channel], 0);
    Pass();
    EXPECT_EQ(points(), before + 1);
    Arrive(0, gates[channel], 4);
    Pass();
    EXPECT_EQ(points(), before + 2);
  }
}

TEST_F(FrmGraficoTest, DrawsWhatHasArrivedLastWhetherOrNotItIsFreshAsPrescribed) {
  ArriveAll();
  Pass();
  Arrive(1, 542, 93);
  Arrive(1, 542, 94);
  for (auto& node : ParamTable) {
    for (ParamRec& record : node) {
      record.Flags = 0;
    }
  }
  Pass(2);
  EXPECT_EQ(Values(kBoiler), (Numbers{92, 94, 94}));
  EXPECT_EQ(Values(kTank), (Numbers{4.5, 4.5, 4.5}));
}

TEST_F(FrmGraficoTest, ATankStaysAtZeroBeforeItsOffsetHasArrivedAsPrescribed) {
  for (const int node : {2, 3}) {
    SCOPED_TRACE(node);
    const int channel = node - 1;
    Arrive(0, node == 2 ? 313 : 357, 4);
    Arrive(node, 287, 1152);
    Pass();
    EXPECT_EQ(Values(channel), Numbers{0});
    Arrive(node, 52, 8);
    Pass();
    EXPECT_EQ(Values(channel), (Numbers{0, 0})) << "the temperature came too early";
    Arrive(node, 287, 1152);
    Pass();
    EXPECT_EQ(Values(channel), (Numbers{0, 0, 7.5}));
  }
}

TEST_F(FrmGraficoTest, ATankKeepsItsTemperatureWhileItsOffsetIsBeingChanged) {
  ArriveAll();
  NodeIndex = 2;
  ParamPut(52, 3);
  Arrive(2, 287, 2560);
  Arrive(3, 287, 2560);
  Pass();
  EXPECT_EQ(Values(kTank), Numbers{4.5});
  EXPECT_EQ(Values(kTank2), Numbers{10});
}

TEST_F(FrmGraficoTest, EachTankHasAnOffsetOfItsOwn) {
  ArriveAll();
  Arrive(2, 52, 0);
  Arrive(3, 52, 10);
  Arrive(2, 287, 2560);
  Arrive(3, 287, 2560);
  Pass();
  EXPECT_EQ(Values(kTank), Numbers{5});
  EXPECT_EQ(Values(kTank2), Numbers{15});
}

TEST_F(FrmGraficoTest, ATankAbove127DegreesIsBelowZeroAsPrescribed) {
  ArriveAll();
  Arrive(2, 287, 32767);
  Arrive(3, 287, 32768);
  Pass();
  EXPECT_EQ(Values(kTank), Numbers{127.99609375});
  EXPECT_EQ(Values(kTank2), Numbers{-128});
}

TEST_F(FrmGraficoTest, TheBoilerIsDrawnAsItStands) {
  ArriveAll();
  Arrive(1, 542, 200);
  Pass();
  EXPECT_EQ(Values(kBoiler), Numbers{200});
}

TEST_F(FrmGraficoTest, TenMinutesWithOneBoardAbsent) {
  ArriveAll();
  Arrive(0, 313, 0);
  for (int n = 0; n < 150; ++n) {
    const int degrees = 20 + n / 2;
    Arrive(1, 542, degrees);
    Arrive(3, 287, 3000 - 10 * n);
    Pass();
  }
  QApplication::processEvents();
  const auto boiler = Chart().Lines(kBoiler);
  const auto tank2 = Chart().Lines(kTank2);
  ASSERT_EQ(boiler.size(), 1u);
  ASSERT_EQ(tank2.size(), 1u);
  ASSERT_EQ(boiler[0].size(), 150u);
  ASSERT_EQ(tank2[0].size(), 150u);
  EXPECT_EQ(Values(kTank), Numbers{});
  for (int n = 0; n < 150; ++n) {
    EXPECT_NEAR(boiler[0][n].x(), 4 * n, 1e-6);
    EXPECT_EQ(boiler[0][n].y(), 20 + n / 2);
    EXPECT_EQ(tank2[0][n].y(), (3000 - 10 * n) / 256.0);
  }
  EXPECT_TRUE(Chart().IsFollowing());
  EXPECT_NEAR(Chart().View().to, 596.5, 0.01);
  EXPECT_NEAR(Chart().View().Span(), 60.048, 1e-6);
  EXPECT_EQ(Spoken(), "#257 94, #259 5.9");
}

TEST_F(FrmGraficoTest, ABoardThatVanishesForAWhileLeavesAGap) {
  ArriveAll();
  Pass(5);
  Arrive(0, 357, 0);
  Pass(5);
  Arrive(0, 357, 4);
  Pass(5);
  EXPECT_EQ(Chart().Lines(kTank).size(), 1u);
  const auto lines = Chart().Lines(kTank2);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NEAR(lines[0].back().x(), 16, 1e-6);
  EXPECT_NEAR(lines[1].front().x(), 40, 1e-6);
}

TEST_F(FrmGraficoTest, GoesOnAfterTheLargestNumberOfASample) {
  constexpr int kSamples = std::numeric_limits<std::int16_t>::max() + 100;
  ArriveAll();
  Pass(kSamples);
  for (const int channel : {kBoiler, kTank, kTank2}) {
    const auto lines = Chart().Lines(channel);
    ASSERT_EQ(lines.size(), 1u) << "the line is broken";
    ASSERT_EQ(lines[0].size(), std::size_t{kSamples});
    for (int n = 1; n < kSamples; ++n) {
      ASSERT_NEAR(lines[0][n].x() - lines[0][n - 1].x(), 4, 1e-5) << n;
    }
    EXPECT_NEAR(lines[0].back().x(), 4 * (kSamples - 1), 1e-3);
  }
}

TEST_F(FrmGraficoTest, ClosingStopsTheSamplesAndANewWindowBeginsAnew) {
  ArriveAll();
  Pass(10);
  const auto& timer = Find<QTimer>("Timer1");
  form().parentWidget()->close();
  EXPECT_FALSE(timer.isActive());
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
  EXPECT_EQ(NodeIndex, 1) << "the boiler's board is released last";
  Close();
  Open("FrmGrafico");
  EXPECT_TRUE(Running("Timer1"));
  EXPECT_EQ(Values(kBoiler), Numbers{});
  ArriveAll();
  Pass();
  EXPECT_EQ(Chart().Lines(kBoiler), (std::vector<std::vector<QPointF>>{{{0, 92}}}));
}

TEST_F(FrmGraficoTest, TakesItsWordsFromTheLanguage) {
  ArriveAll();
  Pass();
  EXPECT_EQ(form().windowTitle(), "#28");
  EXPECT_EQ(Chart().focusProxy()->accessibleName(), "#28");
  EXPECT_EQ(Spoken(), "#257 92, #258 4.5, #259 8.3");
  EXPECT_EQ(Chart().Captions().values, "#256");
  EXPECT_EQ(Chart().Captions().channels, QStringList({"#257", "#258", "#259"}));
  const char* const controls[] = {"Follow", "Earlier", "Later", "ZoomIn", "ZoomOut", "Everything"};
  for (int n = 0; n < 6; ++n) {
    EXPECT_EQ(Find<QAbstractButton>(controls[n]).text().toStdString(), "#" + std::to_string(644 + n));
  }
  CaptionTable[257] = "Boiler";
  CaptionTable[649] = "Everything";
  form().InitMessaggi();
  EXPECT_EQ(Spoken(), "Boiler 92, #258 4.5, #259 8.3");
  EXPECT_EQ(Find<QAbstractButton>("Everything").text(), "Everything");
}

TEST_F(FrmGraficoTest, HasWordsOfItsOwnWhereALanguageFileIsTooOld) {
  for (int line = 644; line <= 649; ++line) {
    CaptionTable[line] = QString();
  }
  form().InitMessaggi();
  const char* const words[][2] = {{"Follow", "Scorri"},  {"Earlier", "Indietro"},
                                  {"Later", "Avanti"},   {"ZoomIn", "Ingrandisci"},
                                  {"ZoomOut", "Riduci"}, {"Everything", "Tutto"}};
  for (const auto& [name, word] : words) {
    EXPECT_EQ(Find<QAbstractButton>(name).text(), word);
  }
}

}  // namespace
}  // namespace dosmara
