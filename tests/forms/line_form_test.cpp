// SPDX-License-Identifier: GPL-3.0-or-later
// Forms over the real link: when a change leaves, what becomes of it, and what the windows make of a line in
// trouble.
#include <gtest/gtest-spi.h>

#include <QTabWidget>
#include <QTest>
#include <stdexcept>

#include "forms/line_form_fixture.h"
#include "link/link_engine.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using State = EchoMark::State;
using Writes = std::vector<Write>;

constexpr int kMain = 0;
constexpr int kHotDrinks = 1;
constexpr int kZeth2 = 3;

// The times of three boards. Row 0 is record 31 of the hot drinks unit, at first 8.0 seconds, with its mirror
// 509.
class FormOverTheLine : public LineFormFixture {
 protected:
  int AskedFor(int node, int record) {
    int times = 0;
    for (const RecordRequest& request : Requests()) {
      times += request.node == node && request.record == record && !request.write ? 1 : 0;
    }
    return times;
  }
};

TEST_F(FormOverTheLine, AWindowReadsEachOfItsRecordsOnceWithOneRequestATick) {
  Open("FrmTempi");
  RunTicks(60);
  const std::vector<RecordRequest> requests = Requests();
  ASSERT_GE(requests.size(), 49u);
  for (std::size_t i = 0; i < requests.size(); ++i) {
    EXPECT_EQ(requests[i].time % milliseconds(40), microseconds(0)) << testing::PrintToString(requests[i]);
    EXPECT_FALSE(i > 0 && requests[i].time == requests[i - 1].time) << testing::PrintToString(requests[i]);
  }
  EXPECT_EQ(LabelText("Label1(0)"), "8.0");
  EXPECT_EQ(LabelText("Label4(18)"), "180");
}

TEST_F(FormOverTheLine, AFormOpensForChangesWithItsArrivals) {
  Open("FrmTempi");
  RunTicks(20);
  EXPECT_FALSE(Shown("txtTempi(0)"));
  EXPECT_FALSE(Enabled("HScroll1(0)"));
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_TRUE(Shown("txtTempi(0)"));
  EXPECT_TRUE(Enabled("HScroll1(0)"));
}

TEST_F(FormOverTheLine, AnEntryWaitsForItsTickAndIsTakenWhenTheBoardConfirmsIt) {
  OpenFilled("FrmTempi");
  RunFor(milliseconds(13));
  Requests();
  Enter("txtTempi(0)", "5");
  EXPECT_EQ(Waiting(), (Writes{{kHotDrinks, 31, 50}, {kHotDrinks, 509, 50}}));
  EXPECT_EQ(Requests().size(), 0u);
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kOnItsWay);

  ASSERT_TRUE(RunUntilWrite());
  EXPECT_EQ(host().Now() % milliseconds(40), microseconds(0));
  EXPECT_EQ(Board().Get(kHotDrinks, 31), 80u);
  EXPECT_EQ(LabelText("Label1(0)"), "8.0");
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kOnItsWay);

  RunFor(milliseconds(39));
  EXPECT_EQ(Board().Get(kHotDrinks, 31), 50u);
  EXPECT_EQ(LabelText("Label1(0)"), "5.0");
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kTaken);
}

TEST_F(FormOverTheLine, TheMirrorLeavesATickBehindItsRecord) {
  OpenFilled("FrmTempi");
  Enter("txtTempi(0)", "5");
  Requests();
  ASSERT_TRUE(RunUntilWrite());
  const microseconds record = host().Now();
  ASSERT_TRUE(RunUntilWrite());
  EXPECT_EQ(host().Now() - record, milliseconds(40));
  EXPECT_EQ(Board().Get(kHotDrinks, 509), 80u);
  RunTicks(1);
  EXPECT_EQ(Board().Get(kHotDrinks, 509), 50u);
  EXPECT_EQ(Written(), (Writes{{kHotDrinks, 31, 50}, {kHotDrinks, 509, 50}}));
}

// A form that puts a value moves the scan to its board, and the scan goes on from the record where it stands.
TEST_F(FormOverTheLine, AnEntryInTheMiddleOfAPassMayLeaveBehindItsMirrorAsPrescribed) {
  Form& times = OpenFilled("FrmTempi");
  Open("FrmBattute");
  ASSERT_TRUE(RunUntil([] { return NodeIndex == kHotDrinks && ScanCursor == 70; }));
  TurnTo(times);
  Requests();
  Enter("txtTempi(0)", "5");
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_EQ(Written(), (Writes{{kHotDrinks, 509, 50}, {kHotDrinks, 31, 50}}));
}

TEST_F(FormOverTheLine, OfTwoEntriesWithinATickTheLaterOneLeaves) {
  OpenFilled("FrmTempi");
  Requests();
  Enter("txtTempi(0)", "5");
  Enter("txtTempi(0)", "6");
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_EQ(Written(), (Writes{{kHotDrinks, 31, 60}, {kHotDrinks, 509, 60}}));
}

TEST_F(FormOverTheLine, AnEntryOverAnotherOneThatIsUnderWayFollowsIt) {
  OpenFilled("FrmTempi");
  Requests();
  Enter("txtTempi(0)", "5");
  ASSERT_TRUE(RunUntilWrite());
  Enter("txtTempi(0)", "6");
  RunFor(milliseconds(39));
  EXPECT_EQ(Board().Get(kHotDrinks, 31), 50u);
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kOnItsWay);
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_EQ(Board().Get(kHotDrinks, 31), 60u);
  EXPECT_EQ(Board().Get(kHotDrinks, 509), 60u);
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kTaken);
}

// The discount without a cup is polled; what the board confirms and then does not hold shows.
TEST_F(FormOverTheLine, AValueThatTheBoardDoesNotHoldIsNotTaken) {
  OpenFilled("FrmSconti");
  Board().Refuse(kMain, 74);
  Enter("Text1(30)", "2");
  EXPECT_TRUE(RunUntil([&] { return MarkBehind("HScroll1(30)") == State::kTaken; }));
  EXPECT_EQ(LabelText("Label1(30)"), "2.00");
  EXPECT_TRUE(RunUntil([&] { return MarkBehind("HScroll1(30)") == State::kNotTaken; }));
  EXPECT_EQ(LabelText("Label1(30)"), "0.10");
}

TEST_F(FormOverTheLine, AGateThatTheMachineClosesClosesItsRows) {
  OpenFilled("FrmTempi");
  Board().Set(kMain, 312, 0);
  EXPECT_TRUE(Enabled("HScroll1(0)"));
  EXPECT_TRUE(RunUntil([&] { return !Enabled("HScroll1(0)"); }, milliseconds(2000)));
  EXPECT_TRUE(Enabled("HScroll3(1)"));
}

TEST_F(FormOverTheLine, AWriteThatLeavesWithThePlugOutIsOnItsWayUntilItIsBackInAndThenNotTaken) {
  OpenFilled("FrmTempi");
  Unplug();
  Requests();
  Enter("txtTempi(0)", "5");
  RunTicks(500);
  EXPECT_TRUE(TroubleShows());
  EXPECT_EQ(Written(), (Writes{{kHotDrinks, 31, 50}}));
  EXPECT_EQ(Board().Get(kHotDrinks, 31), 80u);
  EXPECT_EQ(LabelText("Label1(0)"), "8.0");
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kOnItsWay);
  PlugIn();
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_FALSE(TroubleShows());
  EXPECT_EQ(LabelText("Label1(0)"), "8.0");
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kNotTaken);
}

TEST_F(FormOverTheLine, AnEntryWithThePlugInAgainIsTaken) {
  OpenFilled("FrmTempi");
  Unplug();
  RunTicks(100);
  PlugIn();
  Enter("txtTempi(0)", "5");
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_FALSE(TroubleShows());
  EXPECT_EQ(Board().Get(kHotDrinks, 31), 50u);
  EXPECT_EQ(MarkBehind("HScroll1(0)"), State::kTaken);
}

TEST_F(FormOverTheLine, AUnitThatFallsSilentIsAskedUntilItAnswersAgain) {
  OpenFilled("FrmTempi");
  Find<QTabWidget>("SSTab1").setCurrentIndex(2);
  Board().Silence(kZeth2);
  Enter("txtTempi(7)", "9");
  RunTicks(200);
  EXPECT_TRUE(TroubleShows());
  EXPECT_EQ(MarkBehind("HScroll1(7)"), State::kOnItsWay);
  EXPECT_EQ(LabelText("Label1(7)"), "6.0");
  Requests();
  RunTicks(100);
  EXPECT_EQ(AskedFor(kZeth2, 58), 4) << "once a second";
  Board().Answer(kZeth2);
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_FALSE(TroubleShows());
  EXPECT_EQ(MarkBehind("HScroll1(7)"), State::kNotTaken);
}

TEST_F(FormOverTheLine, TwoFormsOnOneByteBothGetTheirBits) {
  Form& payment = OpenFilled("FrmPagamento");
  OpenFilled("FrmPrezzi");
  ASSERT_EQ(Board().Get(kMain, 83), 34u);
  Requests();
  Click("Switch1");
  TurnTo(payment);
  Click("iSwSliderX3(0)");
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_EQ(Written(), (Writes{{kMain, 83, 43}, {kMain, 285, 43}}));
  EXPECT_EQ(Board().Get(kMain, 83), 43u);
  EXPECT_EQ(MarkBehind("iSwSliderX3(0)"), State::kTaken);
}

TEST_F(FormOverTheLine, AChangeOfOneFormShowsOnTheOtherWhenItComes) {
  Form& payment = OpenFilled("FrmPagamento");
  OpenFilled("FrmOpzioni");
  QTest::keyClick(&Find("SlswitchX5"), Qt::Key_Home);
  TurnTo(payment);
  EXPECT_TRUE(Enabled("HScroll11(0)"));
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_FALSE(Enabled("HScroll11(0)"));
  EXPECT_TRUE(Enabled("HScroll10(6)"));
}

TEST_F(FormOverTheLine, ASettingThatChangesBehindTheToolsBackIsNotReadAgain) {
  OpenFilled("FrmPagamento");
  Board().Set(kMain, 84, 1);
  Requests();
  RunTicks(100);
  EXPECT_EQ(AskedFor(kMain, 84), 0);
  EXPECT_TRUE(Enabled("HScroll11(0)"));
}

TEST_F(FormOverTheLine, AFormThatClosesIsReadNoLonger) {
  OpenFilled("FrmGrafico");
  RunTicks(20);
  EXPECT_GT(AskedFor(kHotDrinks, 542), 1);
  Close();
  Requests();
  RunTicks(100);
  EXPECT_EQ(Requests().size(), 0u);
}

TEST_F(FormOverTheLine, AFormThatClosesWhileItsReplyIsOnTheLineIsNotMissed) {
  Open("FrmTempi");
  RunFor(milliseconds(43));
  ASSERT_EQ(Requests().size(), 1u);
  Close();
  RunTicks(20);
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
  OpenFilled("FrmTempi");
  EXPECT_EQ(LabelText("Label1(0)"), "8.0");
}

class Thrower : public Form {
 public:
  Thrower() : Form("Thrower") {}
  void Load() override {
    NodeIndex = kHotDrinks;
    ParamSubscribe(31);
  }
  void SLabelChange(std::int32_t /*index*/, double /*value*/) override {
    throw std::runtime_error("wheels came off");
  }
};

TEST_F(FormOverTheLine, WhatAFormThrowsFailsItsTestThoughTheLinkForgivesIt) {
  Open(new Thrower);
  EXPECT_NONFATAL_FAILURE(RunTicks(5), "a form threw at record 31: wheels came off");
}

TEST_F(FormOverTheLine, ACommandFollowsOnlyWhatItCommandsAbout) {
  OpenFilled("FrmDosi");
  Requests();
  Click("Command1(0)");
  EXPECT_TRUE(RunUntilFresh());
  EXPECT_EQ(Written(), (Writes{{kMain, 315, 1}, {kMain, 314, 4}}));
}

}  // namespace
}  // namespace dosmara
