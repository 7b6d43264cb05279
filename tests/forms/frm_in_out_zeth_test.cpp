// SPDX-License-Identifier: GPL-3.0-or-later
// The sectors, compressors and temperatures of the Zeth units in the input and output test.
#include "forms/in_out_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using State = EchoMark::State;

// One of the twins, and the names of its controls.
struct Unit {
  int node;
  const char* sectors;
  const char* compressor;
  const char* temperature;
  const char* frame;
};
constexpr Unit kZeth = {2, "SwitchLed3", "SwitchLed4", "iAnalogX2", "#316"};
constexpr Unit kZeth2 = {3, "SwitchLed5", "SwitchLed6", "iAnalogX3", "#280"};

class InOutZeth : public InOutFixture, public testing::WithParamInterface<Unit> {
 protected:
  Unit unit() { return GetParam(); }
  int node() { return unit().node; }
  int other_node() { return 5 - node(); }
  std::string Sector(int i) { return Element(unit().sectors, i); }
  // What the other boards are told by a click on this one.
  Writes Interlock() { return {{1, 536, 60}, {other_node(), 285, 60}}; }
  // What has been written to this unit; what to the others is checked.
  Writes WrittenHere() {
    Writes here;
    Writes others;
    for (const Write& write : Written()) {
      (write.node == node() ? here : others).push_back(write);
    }
    EXPECT_EQ(others, Interlock());
    return here;
  }
};

TEST_P(InOutZeth, ASectorIsWrittenAsRowAndColumn) {
  Start();
  for (int row = 0; row < 6; ++row) {
    for (int column = 0; column < 8; ++column) {
      Click(Sector(row * 8 + column));
      EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 1 << row}, {node(), 286, 1 << column}}));
      Fire("Timer1");
    }
  }
}

TEST_P(InOutZeth, TheSameSectorAgainIsSwitchedOffAndAnotherTakesItsPlace) {
  Start();
  Click(Sector(10));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 2}, {node(), 286, 4}}));
  Fire("Timer1");
  Click(Sector(10));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 0}, {node(), 286, 0}}));
  Fire("Timer1");
  Click(Sector(10));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 2}, {node(), 286, 4}}));
  Fire("Timer1");
  Click(Sector(47));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 32}, {node(), 286, 128}}));
}

TEST_P(InOutZeth, ASectorKeepsTheCompressorOn) {
  Start();
  ReadBack(node(), 128 + 1, 1);
  Click(Sector(10));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 128 + 2}, {node(), 286, 4}}));
  Fire("Timer1");
  Click(Sector(10));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 128}, {node(), 286, 0}}));
}

TEST_P(InOutZeth, TheCompressorKeepsTheSector) {
  Start();
  ReadBack(node(), 4, 16);
  Click(unit().compressor);
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 128 + 4}, {node(), 286, 16}}));
  EXPECT_FALSE(On(unit().compressor));
  Fire("Timer1");
  ReadBack(node(), 128 + 4, 16);
  EXPECT_TRUE(On(unit().compressor));
  Click(unit().compressor);
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 4}, {node(), 286, 16}}));
}

TEST_P(InOutZeth, ItsTwinAndTheHotDrinksUnitAreSentToIdle) {
  Start();
  for (const std::string& press : {Sector(0), std::string(unit().compressor)}) {
    Click(press);
    Written();
    Arrive(1, 536, 60);
    Arrive(other_node(), 285, 60);
    EXPECT_EQ(Written(), (Writes{{1, 535, 1}, {other_node(), 284, 1}}));
    Fire("Timer1");
  }
  Present(0, node() == 2 ? 4 : 0, node() == 3 ? 4 : 0);
  Click(Sector(8));
  EXPECT_EQ(Written(), (Writes{{node(), 285, 2}, {node(), 286, 1}}));
}

TEST_P(InOutZeth, TheCommandFollowsRowAndColumnInEitherOrder) {
  Start();
  for (const int first : {285, 286}) {
    const int column = first - 285;
    Click(Sector(column));
    Written();
    Arrive(node(), first, first == 285 ? 1 : 1 << column);
    EXPECT_EQ(Written(), Writes{});
    Arrive(node(), 571 - first, first == 285 ? 1 << column : 1);
    EXPECT_EQ(Written(), (Writes{{node(), 284, 2}}));
    Arrive(node(), first, 1);
    EXPECT_EQ(Written(), Writes{});
    Fire("Timer1");
  }
}

TEST_P(InOutZeth, NothingIsSwitchedByARowOrColumnThatHasBeenLostOnItsWay) {
  Start();
  for (const std::pair<int, int>& held : {std::pair(60, 4), std::pair(2, 128)}) {
    for (const bool row_first : {true, false}) {
      Click(Sector(10));
      Written();
      if (row_first) {
        Arrive(node(), 285, held.first);
      }
      Arrive(node(), 286, held.second);
      if (!row_first) {
        Arrive(node(), 285, held.first);
      }
      EXPECT_EQ(Written(), Writes{});
      ExpectOpen(false);
      Fire("Timer1");
      Click(Sector(11));  // so that the sector is no second one
      Fire("Timer1");
    }
  }
  Click(Sector(10));
  Written();
  Arrive(node(), 285, 2);
  Arrive(node(), 286, 4);
  EXPECT_EQ(Written(), (Writes{{node(), 284, 2}}));
}

TEST_P(InOutZeth, AWriteClosesAllSwitchesAndIsDoneByTheSecondEqualReadBack) {
  Start();
  for (const std::string& press : {Sector(9), std::string(unit().compressor)}) {
    ReadBack(node(), 0, 0);
    Click(press);
    ExpectOpen(false);
    EXPECT_TRUE(Running("Timer1"));
    ReadBack(node(), 128 + 2, 2);
    ExpectOpen(false);
    Arrive(node(), 288, 128 + 2);
    ExpectOpen(false);
    Arrive(node(), 289, 2);
    ExpectOpen(true);
    EXPECT_FALSE(Running("Timer1"));
  }
}

TEST_P(InOutZeth, AReadBackIsEqualOnlyInRowAndColumn) {
  Start();
  Click(Sector(9));
  ReadBack(node(), 2, 0);
  ReadBack(node(), 2, 2);
  ReadBack(node(), 4, 2);
  ExpectOpen(false);
  ReadBack(other_node(), 0, 0);
  ExpectOpen(false);
  ReadBack(node(), 4, 2);
  ExpectOpen(true);
}

TEST_P(InOutZeth, AReadBackThatNobodyWaitsForOpensNothing) {
  Present(4, 4, 4);
  for (int n = 0; n < 3; ++n) {
    ReadBack(node(), 1, 1);
  }
  ExpectOpen(false);
  InTest(1, 1, 1);
  Click(Sector(9));
  ReadBack(node(), 1, 1);
  ExpectOpen(true);
  InTest(0, 0, 0);
  ReadBack(node(), 1, 1);
  ExpectOpen(false);
}

TEST_P(InOutZeth, ShowsTheSectorOfTheLowestBits) {
  struct Case {
    int row;
    int column;
    std::vector<int> on;
  };
  for (const Case& each : {Case{1, 1, {0}}, Case{1, 128, {7}}, Case{2, 1, {8}}, Case{32, 128, {47}},
                           Case{0, 1, {}}, Case{1, 0, {}}, Case{0, 0, {}}, Case{64, 1, {}}, Case{128, 8, {}},
                           Case{128 + 64 + 16 + 8, 96, {29}}, Case{255, 255, {0}}}) {
    ReadBack(node(), each.row, each.column);
    EXPECT_EQ(AllOn(unit().sectors, 48), each.on) << each.row << ' ' << each.column;
    EXPECT_EQ(On(unit().compressor), each.row >= 128) << each.row;
    EXPECT_TRUE(Switch(Sector(47)).IsKnown());
    EXPECT_TRUE(Switch(unit().compressor).IsKnown());
  }
  EXPECT_FALSE(Switch(Element(node() == 2 ? "SwitchLed5" : "SwitchLed3", 0)).IsKnown());
}

TEST_P(InOutZeth, ARowIsShownWithItsColumn) {
  ReadBack(node(), 1, 1);
  Arrive(node(), 288, 128 + 2);
  EXPECT_EQ(AllOn(unit().sectors, 48), (std::vector<int>{0}));
  EXPECT_FALSE(On(unit().compressor));
  Arrive(node(), 289, 1);
  EXPECT_EQ(AllOn(unit().sectors, 48), (std::vector<int>{8}));
  EXPECT_TRUE(On(unit().compressor));
}

TEST_P(InOutZeth, NothingIsShownOrSentBeforeRowAndColumnAreKnown) {
  Present(4, 4, 4);
  InTest(1, 1, 1);
  const auto refused = [&] {
    for (const std::string& press : {Sector(9), std::string(unit().compressor)}) {
      Click(press);
      EXPECT_EQ(Written(), Writes{});
      EXPECT_FALSE(Running("Timer1"));
      EXPECT_TRUE(Enabled(press));
      EXPECT_FALSE(Switch(press).IsKnown());
    }
  };
  refused();
  Arrive(node(), 289, 1);
  refused();
  Arrive(node(), 288, 128);
  refused();
  Arrive(node(), 289, 1);
  Click(Sector(9));
  EXPECT_EQ(WrittenHere(), (Writes{{node(), 285, 128 + 2}, {node(), 286, 2}}));
}

TEST_P(InOutZeth, TheTemperatureIsTheRawValueOverItsOffset) {
  SevenSegment& display = Find<SevenSegment>(unit().temperature);
  Arrive(node(), 287, 1408);
  EXPECT_FALSE(display.IsKnown());
  EXPECT_EQ(display.Value(), 0);
  Arrive(node(), 52, 5);
  Arrive(node(), 287, 1408);
  EXPECT_EQ(display.Value(), 5.5);
  EXPECT_EQ(display.accessibleDescription(), "5.5");
  Arrive(node(), 287, 32768);
  EXPECT_EQ(display.Value(), -128);
  EXPECT_EQ(display.accessibleDescription(), "-128");
  Arrive(node(), 52, 3);
  Arrive(node(), 287, 65280);
  EXPECT_EQ(display.Value(), -3);
  Arrive(node(), 287, 256);
  EXPECT_EQ(display.Value(), -1);
}

TEST_P(InOutZeth, TheTemperatureIsNotKnownWhileItsOffsetIsNot) {
  SevenSegment& display = Find<SevenSegment>(unit().temperature);
  ParamTable[node()][52].Flags |= kArrived;  // for another window, which this one has not heard of
  Arrive(node(), 287, 1408);
  EXPECT_FALSE(display.IsKnown());
  Arrive(node(), 52, 5);
  Arrive(node(), 287, 1408);
  EXPECT_TRUE(display.IsKnown());
  NodeIndex = static_cast<std::uint8_t>(node());
  ParamPut(52, 6);  // another window has written it
  Arrive(node(), 287, 1408);
  EXPECT_FALSE(display.IsKnown());
}

TEST_P(InOutZeth, TheMarkTellsWhatHasBecomeOfTheLastWish) {
  Start();
  Click(Sector(9));
  EXPECT_EQ(Mark(), State::kOnItsWay);
  EXPECT_EQ(LabelText("lblWish"), std::string(unit().frame) + ": #110\n#317 22");
  ReadBack(node(), 0, 0);
  EXPECT_EQ(Mark(), State::kOnItsWay);
  ReadBack(node(), 2, 2);
  EXPECT_EQ(Mark(), State::kTaken);
  Fire("Timer1");
  Click(Sector(9));
  EXPECT_EQ(Mark(), State::kOnItsWay);
  EXPECT_EQ(LabelText("lblWish"), std::string(unit().frame) + ": #109\n#317 22");
  ReadBack(node(), 0, 0);
  EXPECT_EQ(Mark(), State::kTaken);
  Fire("Timer1");
  Click(unit().compressor);
  EXPECT_EQ(LabelText("lblWish"), std::string(unit().frame) + ": #110\n#323");
  ReadBack(node(), 0, 0);
  EXPECT_EQ(Mark(), State::kOnItsWay);
  ReadBack(node(), 128, 0);
  EXPECT_EQ(Mark(), State::kTaken);
}

INSTANTIATE_TEST_SUITE_P(Units, InOutZeth, testing::Values(kZeth, kZeth2),
                         [](const auto& each) { return each.param.node == 2 ? "First" : "Second"; });

class InOutTwinsTest : public InOutFixture {};

TEST_F(InOutTwinsTest, OneLastSectorServesBothMatricesAsPrescribed) {
  Start();
  Click("SwitchLed3(9)");
  Fire("Timer1");
  Written();
  Click("SwitchLed5(9)");
  EXPECT_EQ(Written(), (Writes{{1, 536, 60}, {2, 285, 60}, {3, 285, 0}, {3, 286, 0}}));
  Fire("Timer1");
  Click("SwitchLed3(9)");
  EXPECT_EQ(Written(), (Writes{{1, 536, 60}, {2, 285, 2}, {2, 286, 2}, {3, 285, 60}}));
}

TEST_F(InOutTwinsTest, AWindowThatOpensKnowsOfNoLastSector) {
  Start();
  Click("SwitchLed3(9)");
  Written();
  Close();
  Open("FrmInOut");
  Start();
  ReadBack(2, 2, 2);
  EXPECT_TRUE(On("SwitchLed3(9)"));
  Click("SwitchLed3(9)");
  EXPECT_EQ(Written(), (Writes{{1, 536, 60}, {2, 285, 2}, {2, 286, 2}, {3, 285, 60}}));
}

}  // namespace
}  // namespace dosmara
