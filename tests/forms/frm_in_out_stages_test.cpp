// SPDX-License-Identifier: GPL-3.0-or-later
// The input and output test where things cross: commands that still stand, boards that come and go in the
// middle of a write, and records that arrive in another order.
#include <QApplication>

#include "forms/in_out_fixture.h"

namespace dosmara {
namespace {

class InOutStagesTest : public InOutFixture {};

TEST_F(InOutStagesTest, ABoardOfWhichNothingIsKnownYetIsTakenToBeThere) {
  Arrive(0, 357, 0);
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{1, 536, 60}, {2, 285, 60}}));
}

TEST_F(InOutStagesTest, AWriteLeavesTheButtonOpenAndAStopTakesThePlaceOfItsCommand) {
  Start();
  Click("SwitchLed1(5)");
  Written();
  EXPECT_TRUE(Enabled("Command1"));
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{1, 536, 0}, {2, 285, 0}, {3, 285, 0}}));
  for (const int record : {537, 538, 539}) {
    Arrive(1, record, 0);
  }
  EXPECT_EQ(Written(), Writes{});
  Arrive(1, 536, 0);
  EXPECT_EQ(Written(), (Writes{{1, 535, 1}}));
}

TEST_F(InOutStagesTest, AStopTakesThePlaceOfTheCommandOfASector) {
  Start();
  for (const int node : {2, 3}) {
    Click(node == 2 ? "SwitchLed3(9)" : "SwitchLed5(20)");
    Written();
    Click("Command1");
    Written();
    Arrive(node, 285, 0);
    EXPECT_EQ(Written(), (Writes{{node, 284, 1}}));
    Arrive(node, 286, 2);
    EXPECT_EQ(Written(), Writes{});
    Fire("Timer1");
    InTest(0, 0, 0);
    InTest(1, 1, 1);
  }
}

TEST_F(InOutStagesTest, TheCommandOfTheLastWriteIsTheOneThatFollows) {
  Start();
  Click("SwitchLed1(5)");
  Fire("Timer1");
  Click("SwitchLed3(9)");
  Fire("Timer1");
  Written();
  Arrive(1, 538, 0);  // its images stand no more
  EXPECT_EQ(Written(), Writes{});
  Click("SwitchLed1(6)");
  Written();
  Arrive(1, 536, 96);
  Arrive(2, 286, 2);
  EXPECT_EQ(Written(), Writes{});
  Arrive(1, 538, 0);
  Arrive(2, 285, 60);
  EXPECT_EQ(Written(), (Writes{{1, 535, 2}, {2, 284, 1}}));
}

TEST_F(InOutStagesTest, WhoIsThereMayArriveAfterWhoIsInTest) {
  AllOff();
  Arrive(1, 541, 1);
  Arrive(3, 290, 1);
  Present(4, 0, 4);
  EXPECT_EQ(LabelText("Label7"), "#321");
  ExpectOpen(false);
  Arrive(1, 541, 1);  // the next status finds the absent board in test
  EXPECT_EQ(LabelText("Label7"), "#320");
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(23));
  EXPECT_EQ(AllOpen("SwitchLed3", 48), UpTo(0));
  EXPECT_EQ(AllOpen("SwitchLed5", 48), UpTo(48));
}

TEST_F(InOutStagesTest, ABoardThatComesHoldsUpTheTestUntilItReportsIt) {
  Present(4, 4, 0);
  InTest(1, 0, 0);
  Arrive(0, 313, 0);
  Arrive(1, 541, 1);
  EXPECT_EQ(LabelText("Label7"), "#320");
  Arrive(0, 313, 4);
  Arrive(1, 541, 1);
  EXPECT_EQ(LabelText("Label7"), "#320");  // nothing new is known of it
  Arrive(2, 290, 0);
  EXPECT_EQ(LabelText("Label7"), "#321");
}

TEST_F(InOutStagesTest, AUnitThatVanishesDuringItsWriteClosesTheOthersNoLongerThanTheTime) {
  for (const int gate : {313, 357}) {
    Start();
    const bool first = gate == 313;
    Click(first ? "SwitchLed3(9)" : "SwitchLed5(20)");
    Arrive(0, gate, 0);
    EXPECT_FALSE(Enabled(first ? "Frame3" : "Frame4"));
    for (int n = 0; n < 2; ++n) {
      ReadBack(first ? 3 : 2, 0, 0);
    }
    EXPECT_EQ(AllOpen("SwitchLed1", 23), UpTo(0));
    EXPECT_TRUE(Running("Timer1"));
    Fire("Timer1");
    EXPECT_EQ(AllOpen("SwitchLed1", 23), UpTo(23));
    EXPECT_EQ(AllOpen("SwitchLed3", 48), UpTo(first ? 0 : 48));
    EXPECT_EQ(AllOpen("SwitchLed5", 48), UpTo(first ? 48 : 0));
    Arrive(0, gate, 4);
    ExpectOpen(true);
    EXPECT_EQ(LabelText("Label7"), "#320");
  }
}

TEST_F(InOutStagesTest, AUnitThatVanishesHandsTheFocusToNoOtherSwitch) {
  Start();
  for (const bool writing : {false, true}) {
    Focus("SwitchLed3(9)");
    if (writing) {
      PressEnter();
    }
    Arrive(0, 313, 0);
    EXPECT_EQ(QApplication::focusWidget(), nullptr) << writing;
    Arrive(0, 313, 4);
  }
}

TEST_F(InOutStagesTest, TheTimeOfAWriteRunsOutAlsoAfterTheTest) {
  Start();
  Click("SwitchLed3(9)");
  InTest(0, 0, 0);
  ExpectOpen(false);
  EXPECT_TRUE(Running("Timer1"));
  Fire("Timer1");
  ExpectOpen(true);
}

TEST_F(InOutStagesTest, ARowIsComparedWithTheOneBefore) {
  Start();
  Click("SwitchLed3(9)");
  Arrive(2, 288, 2);
  Arrive(2, 288, 0);
  Arrive(2, 289, 0);  // as before the click, and equal
  ExpectOpen(true);
}

}  // namespace
}  // namespace dosmara
