// SPDX-License-Identifier: GPL-3.0-or-later
// The outputs of the hot drinks unit in the input and output test.
#include "forms/in_out_fixture.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

using State = EchoMark::State;

class InOutDrinksTest : public InOutFixture {};

// Where each output lies: what is written, and read back 11 records further.
struct Output {
  int record;
  int mask;
};
constexpr Output kOutputs[] = {{536, 1},   {536, 2},   {536, 4},  {536, 8},  {536, 16}, {536, 32},  {536, 64},
                               {536, 128}, {537, 1},   {537, 2},  {537, 4},  {537, 8},  {538, 1},   {538, 2},
                               {538, 4},   {538, 8},   {538, 16}, {538, 32}, {538, 64}, {538, 128}, {539, 1},
                               {539, 4},   {537, 128}, {537, 16}, {537, 32}, {537, 64}};
static_assert(std::size(kOutputs) == 26);

TEST_F(InOutDrinksTest, EachReadBackBitShowsOnItsSwitch) {
  AllOff();
  for (int i = 0; i < 26; ++i) {
    Arrive(1, kOutputs[i].record + 11, kOutputs[i].mask);
    EXPECT_EQ(AllOn("SwitchLed1", 26), (std::vector<int>{i}));
    Arrive(1, kOutputs[i].record + 11, 0);
  }
  Arrive(1, 550, 255 - 1 - 4);
  EXPECT_EQ(AllOn("SwitchLed1", 26), UpTo(0));
  for (const int record : {547, 548, 549, 550}) {
    Arrive(1, record, 255);
  }
  EXPECT_EQ(AllOn("SwitchLed1", 26), UpTo(26));
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutDrinksTest, SwitchingOnSetsItsBitInAllThatIsRead) {
  StartWithAllSwitches();
  for (int i = 0; i < 26; ++i) {
    for (int n = 0; n < 4; ++n) {
      Arrive(1, 547 + n, 0);
    }
    Click(Element("SwitchLed1", i));
    Writes expected;
    for (int record = 536; record <= 539; ++record) {
      expected.push_back({1, record, record == kOutputs[i].record ? kOutputs[i].mask : 0});
    }
    expected.push_back({2, 285, 60});
    EXPECT_EQ(Written(), expected) << i;
    Fire("Timer1");
  }
}

TEST_F(InOutDrinksTest, SwitchingOffClearsItsBitAndNoOther) {
  StartWithAllSwitches();
  for (int i = 0; i < 26; ++i) {
    for (int n = 0; n < 4; ++n) {
      Arrive(1, 547 + n, 255);
    }
    Click(Element("SwitchLed1", i));
    Writes expected;
    for (int record = 536; record <= 539; ++record) {
      expected.push_back({1, record, record == kOutputs[i].record ? 255 - kOutputs[i].mask : 255});
    }
    expected.push_back({2, 285, 60});
    EXPECT_EQ(Written(), expected) << i;
    Fire("Timer1");
  }
}

TEST_F(InOutDrinksTest, TheSwitchFollowsTheReadBackAlone) {
  Start();
  Click("SwitchLed1(2)");
  EXPECT_FALSE(On("SwitchLed1(2)"));
  for (int record = 535; record <= 539; ++record) {
    Arrive(1, record, 4);
  }
  EXPECT_FALSE(On("SwitchLed1(2)"));
  Arrive(1, 547, 4);
  EXPECT_TRUE(On("SwitchLed1(2)"));
  Click("SwitchLed1(2)");
  EXPECT_TRUE(On("SwitchLed1(2)"));
  Arrive(1, 547, 0);
  EXPECT_FALSE(On("SwitchLed1(2)"));
}

TEST_F(InOutDrinksTest, TheCommandFollowsTheThirdImage) {
  Start();
  Click("SwitchLed1(2)");
  Written();
  Arrive(1, 536, 4);
  for (const int record : {537, 539, 535}) {
    Arrive(1, record, 0);
  }
  Arrive(2, 538, 0);
  EXPECT_EQ(Written(), Writes{});
  Arrive(1, 538, 0);
  EXPECT_EQ(Written(), (Writes{{1, 535, 2}}));
  Arrive(1, 538, 0);
  Arrive(1, 536, 0);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutDrinksTest, NothingIsSwitchedByAnImageThatHasBeenLostOnItsWay) {
  Start();
  for (int lost = 536; lost <= 538; ++lost) {
    AllOff();
    Click("SwitchLed1(5)");
    Written();
    for (int record = 536; record <= 538; ++record) {
      const int image = record == 536 ? 32 : 0;
      Arrive(1, record, record == lost ? 60 : image);  // what the board has held before
    }
    EXPECT_EQ(Written(), Writes{}) << lost;
    ExpectOpen(false);
    Fire("Timer1");
  }
  AllOff();
  Click("SwitchLed1(5)");
  Written();
  for (int record = 536; record <= 538; ++record) {
    Arrive(1, record, record == 536 ? 32 : 0);
  }
  EXPECT_EQ(Written(), (Writes{{1, 535, 2}}));
}

TEST_F(InOutDrinksTest, TheFirstZethUnitIsSentToIdleAndTheSecondIsLeftAloneAsPrescribed) {
  Start();
  Click("SwitchLed1(0)");
  Written();
  Arrive(2, 285, 60);
  Arrive(3, 285, 60);
  Arrive(3, 286, 60);
  EXPECT_EQ(Written(), (Writes{{2, 284, 1}}));
  Fire("Timer1");
  Arrive(0, 313, 0);
  Click("SwitchLed1(1)");
  EXPECT_EQ(Written(), (Writes{{1, 536, 3}, {1, 537, 0}, {1, 538, 0}, {1, 539, 0}}));
}

TEST_F(InOutDrinksTest, AWriteClosesAllSwitchesAndIsDoneByTheFirstEqualReadBack) {
  Start();
  for (const std::pair<int, int>& press :
       {std::pair(5, 547), std::pair(10, 548), std::pair(12, 549), std::pair(21, 550)}) {
    AllOff();
    Click(Element("SwitchLed1", press.first));
    ExpectOpen(false);
    EXPECT_TRUE(Running("Timer1"));
    for (int record = 547; record <= 550; ++record) {
      if (record != press.second) {
        Arrive(1, record, 0);
      }
    }
    ExpectOpen(false);
    Arrive(1, press.second, kOutputs[press.first].mask);
    ExpectOpen(true);
    EXPECT_FALSE(Running("Timer1"));
  }
}

TEST_F(InOutDrinksTest, AReadBackThatDiffersEndsNothingAndIsTheImageFromThenOn) {
  Start();
  Click("SwitchLed1(5)");
  Arrive(1, 547, 0);
  ExpectOpen(false);
  Arrive(1, 547, 32);
  ExpectOpen(false);
  Arrive(1, 547, 32);
  ExpectOpen(true);
}

TEST_F(InOutDrinksTest, AReadBackThatNobodyWaitsForOpensNothing) {
  Present(4, 4, 4);
  AllOff();
  AllOff();
  ExpectOpen(false);
}

TEST_F(InOutDrinksTest, TheLastThreeStayOpenWhileAWriteIsOnItsWayAsPrescribed) {
  StartWithAllSwitches();
  Click("SwitchLed1(23)");
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(26, 23));
  Written();
  Click("SwitchLed1(25)");
  EXPECT_EQ(Written(), (Writes{{1, 536, 0}, {1, 537, 80}, {1, 538, 0}, {1, 539, 0}, {2, 285, 60}}));
}

TEST_F(InOutDrinksTest, NothingIsSentBeforeAllImagesAreKnown) {
  Present(4, 4, 4);
  InTest(1, 1, 1);
  for (int record = 547; record <= 550; ++record) {
    Click("SwitchLed1(0)");
    EXPECT_EQ(Written(), Writes{});
    EXPECT_FALSE(Running("Timer1"));
    EXPECT_TRUE(Enabled("SwitchLed1(0)"));
    EXPECT_EQ(Mark(), State::kNone);
    Arrive(1, record, 128);
  }
  Click("SwitchLed1(0)");
  EXPECT_EQ(Written(), (Writes{{1, 536, 129}, {1, 537, 128}, {1, 538, 128}, {1, 539, 128}, {2, 285, 60}}));
}

TEST_F(InOutDrinksTest, WhatAnArrivalDoesToASwitchIsNoWish) {
  Start();
  LedSwitch& pressed = Switch("SwitchLed1(0)");
  QObject::connect(&pressed, &LedSwitch::toggled, [&] {
    for (const char* name : {"SwitchLed1(1)", "SwitchLed3(1)", "SwitchLed4", "SwitchLed6"}) {
      Click(name);
    }
  });
  Arrive(1, 547, 1);
  EXPECT_TRUE(pressed.IsOn());
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutDrinksTest, TheMarkTellsWhatHasBecomeOfTheLastWish) {
  Start();
  EXPECT_EQ(Mark(), State::kNone);
  Click("SwitchLed1(5)");
  EXPECT_EQ(Mark(), State::kOnItsWay);
  EXPECT_EQ(LabelText("lblWish"), "#284: #110\n#290");
  Arrive(1, 547, 0);
  EXPECT_EQ(Mark(), State::kOnItsWay);
  Arrive(1, 547, 32);
  EXPECT_EQ(Mark(), State::kTaken);
  Fire("Timer1");
  EXPECT_FALSE(Running("Patience"));
  CaptionTable[290] = "pompe";
  form().InitMessaggi();
  EXPECT_EQ(LabelText("lblWish"), "#284: #110\npompe");
}

TEST_F(InOutDrinksTest, AWishThatDoesNotComeTrueInTimeIsNotTakenUnlessItComesLate) {
  Start();
  Click("SwitchLed1(5)");
  EXPECT_EQ(Find<QTimer>("Patience").interval(), 5000);
  EXPECT_TRUE(Running("Patience"));
  Fire("Patience");
  EXPECT_EQ(Mark(), State::kNotTaken);
  EXPECT_FALSE(Running("Patience"));
  Arrive(1, 547, 0);
  EXPECT_EQ(Mark(), State::kNotTaken);
  Arrive(1, 547, 32);
  EXPECT_EQ(Mark(), State::kTaken);
  Fire("Timer1");
  Click("SwitchLed1(5)");
  Fire("Patience");
  EXPECT_EQ(Mark(), State::kNotTaken);
  Arrive(1, 547, 0);
  EXPECT_EQ(Mark(), State::kTaken);
}

}  // namespace
}  // namespace dosmara
