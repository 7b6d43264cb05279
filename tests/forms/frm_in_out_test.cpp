// SPDX-License-Identifier: GPL-3.0-or-later
// The input and output test: how it opens, starts and stops, who is there, and what it shows of the inputs.
#include <QGroupBox>
#include <QPushButton>

#include "forms/in_out_fixture.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

class InOutTest : public InOutFixture {
 protected:
  QColor Colour() { return Find("Label7").property("colour").value<QColor>(); }
};

TEST_F(InOutTest, OpensClosedAndInRed) {
  ExpectOpen(false);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(0));
  EXPECT_FALSE(Enabled("Command1"));
  EXPECT_EQ(Find<QPushButton>("Command1").text(), "#319");
  EXPECT_EQ(LabelText("Label7"), "#321");
  EXPECT_EQ(Colour(), QColor(255, 0, 0));
  EXPECT_FALSE(Running("Timer1"));
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 5000);
  EXPECT_EQ(form().windowTitle(), "Test IN/OUT");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutTest, SubscribesWhatItReads) {
  std::vector<Subscription> wanted;
  for (const int record : {312, 313, 318, 357}) {
    wanted.push_back({0, record, 1});
  }
  for (const int record : {541, 542, 544, 545, 546, 547, 548, 549, 550}) {
    wanted.push_back({1, record, 1});
  }
  for (const int node : {2, 3}) {
    for (const int record : {52, 287, 288, 289, 290}) {
      wanted.push_back({node, record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), wanted);
}

TEST_F(InOutTest, CaptionsComeFromTheLanguage) {
  const std::pair<const char*, int> frames[] = {
      {"Frame1", 274}, {"Frame2", 284}, {"Frame3", 316}, {"Frame4", 280}};
  for (const auto& [name, line] : frames) {
    EXPECT_EQ(Find<QGroupBox>(name).title(), '#' + QString::number(line));
  }
  const std::pair<const char*, int> labels[] = {
      {"Label6", 283},     {"Label8", 322},     {"Label10", 322},    {"Label2", 323},     {"Label9", 323},
      {"Label4(22)", 325}, {"Label4(23)", 326}, {"Label4(24)", 327}, {"Label4(25)", 328}, {"Label3(9)", 324}};
  for (const auto& [name, line] : labels) {
    EXPECT_EQ(LabelText(name), '#' + std::to_string(line)) << name;
  }
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(LabelText(Element("Label1", i)), '#' + std::to_string(275 + i));
  }
  for (int i = 0; i < 22; ++i) {
    EXPECT_EQ(LabelText(Element("Label4", i)), '#' + std::to_string(285 + i));
  }
  for (int i = 0; i < 9; ++i) {
    EXPECT_EQ(LabelText(Element("Label3", i)), '#' + std::to_string(307 + i));
  }
  for (const char* array : {"Label5", "Label11"}) {
    for (int row = 1; row <= 6; ++row) {
      for (int column = 1; column <= 8; ++column) {
        EXPECT_EQ(LabelText(Element(array, (row - 1) * 8 + column - 1)),
                  "#317 " + std::to_string(row) + std::to_string(column));
      }
    }
  }
}

TEST_F(InOutTest, InstrumentsAreCalledByTheirCaptionsAndSayOffAndOnInTheLanguage) {
  const std::pair<const char*, const char*> pairs[] = {
      {"LedX1(4)", "Label1(4)"}, {"SwitchLed1(25)", "Label4(25)"},  {"iLedRectangleX1(9)", "Label3(9)"},
      {"iAnalogX1", "Label6"},   {"SwitchLed3(47)", "Label5(47)"},  {"SwitchLed4", "Label2"},
      {"iAnalogX2", "Label8"},   {"SwitchLed5(47)", "Label11(47)"}, {"SwitchLed6", "Label9"},
      {"iAnalogX3", "Label10"}};
  AllOff();
  Arrive(0, 318, 0);
  for (const char* words : {"#", "neu "}) {
    for (int line = 1; line <= kLastCaption; ++line) {
      CaptionTable[line] = words + QString::number(line);
    }
    form().InitMessaggi();
    for (const auto& [control, label] : pairs) {
      EXPECT_EQ(Find(control).accessibleName().toStdString(), LabelText(label)) << control;
    }
    EXPECT_EQ(Find("LedX1(4)").accessibleDescription(), words + QString("110"));
    for (const char* off : {"SwitchLed1(25)", "SwitchLed3(47)", "SwitchLed4", "SwitchLed6"}) {
      EXPECT_EQ(Find(off).accessibleDescription(), words + QString("109")) << off;
    }
  }
}

TEST_F(InOutTest, NothingIsShownBeforeItHasArrived) {
  for (const Led* led : form().findChildren<Led*>()) {
    EXPECT_FALSE(led->IsKnown());
  }
  for (const LedSwitch* each : form().findChildren<LedSwitch*>()) {
    EXPECT_FALSE(each->IsKnown());
  }
  for (const SevenSegment* each : form().findChildren<SevenSegment*>()) {
    EXPECT_FALSE(each->IsKnown());
  }
  EXPECT_EQ(form().findChildren<Led*>().size(), 15);
  EXPECT_EQ(form().findChildren<LedSwitch*>().size(), 26 + 48 + 48 + 2);
}

// A lamp and the bit that lights it.
struct Input {
  const char* lamp;
  int node;
  int record;
  int bit;
  bool active_low = true;
};
constexpr Input kInputs[] = {
    {"LedX1(0)", 0, 318, 2},
    {"LedX1(1)", 0, 318, 8},
    {"LedX1(2)", 0, 318, 16},
    {"LedX1(3)", 0, 318, 32},
    {"LedX1(4)", 0, 318, 64},
    {"iLedRectangleX1(0)", 1, 544, 1},
    {"iLedRectangleX1(1)", 1, 544, 2},
    {"iLedRectangleX1(2)", 1, 544, 4},
    {"iLedRectangleX1(3)", 1, 544, 8},
    {"iLedRectangleX1(4)", 1, 544, 16},
    {"iLedRectangleX1(5)", 1, 544, 32},
    {"iLedRectangleX1(6)", 1, 544, 64},
    {"iLedRectangleX1(8)", 1, 546, 1, false},
    {"iLedRectangleX1(9)", 1, 545, 2},
};

TEST_F(InOutTest, EachInputLightsItsLamp) {
  for (const Input& input : kInputs) {
    Arrive(input.node, input.record, 255 - input.bit);
    EXPECT_EQ(Find<Led>(input.lamp).IsOn(), input.active_low) << input.lamp;
    Arrive(input.node, input.record, input.bit);
    EXPECT_EQ(Find<Led>(input.lamp).IsOn(), !input.active_low) << input.lamp;
    EXPECT_TRUE(Find<Led>(input.lamp).IsKnown());
  }
}

TEST_F(InOutTest, TheSpareLampStaysOffAsPrescribed) {
  Led& spare = Find<Led>("iLedRectangleX1(7)");
  for (int value = 0; value < 256; ++value) {
    for (const int record : {544, 545, 546}) {
      Arrive(1, record, value);
    }
    EXPECT_TRUE(spare.IsKnown());
    EXPECT_FALSE(spare.IsOn()) << value;
  }
}

TEST_F(InOutTest, TheBoilerTemperatureIsShownAsItComes) {
  SevenSegment& display = Find<SevenSegment>("iAnalogX1");
  Arrive(1, 542, 91);
  EXPECT_EQ(display.Value(), 91);
  EXPECT_EQ(display.accessibleDescription(), "91");
  Arrive(1, 542, 255);
  EXPECT_EQ(display.Value(), 255);
}

TEST_F(InOutTest, TheButtonIsOpenWhileAnyBoardIsThere) {
  Arrive(0, 313, 0);
  EXPECT_TRUE(Enabled("Command1"));  // of the others nothing is known yet
  Arrive(0, 312, 251);
  EXPECT_TRUE(Enabled("Command1"));
  Arrive(0, 357, 0);
  EXPECT_FALSE(Enabled("Command1"));
  for (const int gate : {312, 313, 357}) {
    Arrive(0, gate, 4);
    EXPECT_TRUE(Enabled("Command1")) << gate;
    Arrive(0, gate, 0);
    EXPECT_FALSE(Enabled("Command1")) << gate;
  }
}

TEST_F(InOutTest, OnlyAPresenceThatDiffersIsLookedAt) {
  Present(4, 4, 4);
  Click("Command1");
  Present(4, 4, 4);
  EXPECT_FALSE(Enabled("Command1"));
  Arrive(0, 313, 6);
  EXPECT_TRUE(Enabled("Command1"));
}

TEST_F(InOutTest, TheFirstPresenceAlwaysDiffers) {
  Present(0, 0, 0);
  for (const char* frame : {"Frame2", "Frame3", "Frame4"}) {
    EXPECT_FALSE(Enabled(frame)) << frame;
  }
  EXPECT_TRUE(Enabled("Frame1"));
}

TEST_F(InOutTest, ABoardThatIsNotThereStaysOnTheScreenInGrey) {
  struct Board {
    int gate;
    const char* frame;
    std::vector<const char*> parts;
  };
  const Board boards[] = {
      {312, "Frame2", {"SwitchLed1(0)", "Label4(25)", "iLedRectangleX1(7)", "Label3(0)", "Label6"}},
      {313, "Frame3", {"SwitchLed3(0)", "Label5(47)", "Label8", "Label2", "SwitchLed4"}},
      {357, "Frame4", {"SwitchLed5(0)", "Label11(47)", "Label10", "Label9", "SwitchLed6"}}};
  Start();
  for (const Board& board : boards) {
    Arrive(0, board.gate, 0);
    for (const Board& other : boards) {
      EXPECT_EQ(Enabled(other.frame), other.gate != board.gate) << other.frame;
      EXPECT_TRUE(Shown(other.frame));
      for (const char* part : other.parts) {
        EXPECT_EQ(Enabled(part), other.gate != board.gate) << part;
      }
    }
    Arrive(0, board.gate, 4);
  }
}

TEST_F(InOutTest, ABoardThatComesOpensItsSwitchesOnlyDuringTheTest) {
  Present(0, 0, 0);
  Present(4, 4, 4);
  ExpectOpen(false);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(0));
  AllOff();
  InTest(1, 1, 1);
  Present(0, 0, 0);
  ExpectOpen(false);
  Present(4, 4, 4);
  ExpectOpen(true);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(26));
}

TEST_F(InOutTest, TheLastThreeOutputsFollowNothingButThePresenceOfTheirBoardAsPrescribed) {
  Start();
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(23));
  Arrive(0, 312, 5);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(26));
  InTest(0, 0, 0);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(26, 23));
  Arrive(0, 312, 4);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(26, 23));
  Arrive(0, 312, 0);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(0));
  Arrive(0, 312, 4);
  EXPECT_EQ(AllOpen("SwitchLed1", 26), UpTo(0));
}

TEST_F(InOutTest, TheTestIsOnWhenAllBoardsReportIt) {
  Present(4, 4, 4);
  InTest(1, 1, 0);
  ExpectOpen(false);
  EXPECT_EQ(LabelText("Label7"), "#321");
  Arrive(3, 290, 1);
  ExpectOpen(true);
  EXPECT_EQ(LabelText("Label7"), "#320");
  EXPECT_EQ(Colour(), QColor(0, 255, 0));
  EXPECT_EQ(Find<QPushButton>("Command1").text(), "#318");
  EXPECT_TRUE(Enabled("Command1"));
}

TEST_F(InOutTest, TheTestStaysOnInAnotherLanguage) {
  InTest(1, 1, 1);
  for (const int line : {318, 320}) {
    CaptionTable[line] = "neu " + QString::number(line);
  }
  form().InitMessaggi();
  EXPECT_EQ(Find<QPushButton>("Command1").text(), "neu 318");
  EXPECT_EQ(LabelText("Label7"), "neu 320");
  EXPECT_EQ(Colour(), QColor(0, 255, 0));
}

TEST_F(InOutTest, OneBitOfTheStatusTellsTheTest) {
  InTest(3, 129, 255);
  EXPECT_EQ(LabelText("Label7"), "#320");
}

TEST_F(InOutTest, TheTestIsOffWhenOneBoardHasLeftIt) {
  for (const std::pair<int, int>& status : {std::pair(1, 541), std::pair(2, 290), std::pair(3, 290)}) {
    InTest(1, 1, 1);
    ExpectOpen(true);
    Arrive(status.first, status.second, 254);
    ExpectOpen(false);
    EXPECT_EQ(LabelText("Label7"), "#321");
    EXPECT_EQ(Colour(), QColor(255, 0, 0));
    EXPECT_EQ(Find<QPushButton>("Command1").text(), "#319");
    EXPECT_TRUE(Enabled("Command1"));
  }
}

TEST_F(InOutTest, ABoardThatIsNotThereCountsAsInTest) {
  Present(4, 0, 0);
  Arrive(1, 541, 1);
  EXPECT_EQ(LabelText("Label7"), "#320");
  EXPECT_TRUE(Enabled("SwitchLed1(0)"));
  EXPECT_FALSE(Enabled("SwitchLed3(0)"));
  Arrive(2, 290, 0);  // it answers although the machine does not use it
  EXPECT_EQ(LabelText("Label7"), "#320");
}

TEST_F(InOutTest, ABoardThatVanishesDuringTheTestDoesNotEndIt) {
  Start();
  Arrive(0, 313, 0);
  Arrive(1, 541, 1);
  EXPECT_EQ(LabelText("Label7"), "#320");
  EXPECT_FALSE(Enabled("SwitchLed3(0)"));
  EXPECT_TRUE(Enabled("SwitchLed5(0)"));
  Arrive(0, 313, 4);
  EXPECT_TRUE(Enabled("SwitchLed3(0)"));
  Arrive(2, 290, 0);  // it has been switched off and on
  EXPECT_EQ(LabelText("Label7"), "#321");
}

TEST_F(InOutTest, StartingTellsEveryBoardThatIsThere) {
  Present(4, 4, 4);
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{1, 536, 60}, {2, 285, 60}, {3, 285, 60}}));
  EXPECT_FALSE(Enabled("Command1"));
  Present(0, 4, 0);
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{2, 285, 60}}));
  Present(6, 0, 12);
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{1, 536, 60}, {3, 285, 60}}));
}

TEST_F(InOutTest, StoppingSendsThemBackToWork) {
  Start();
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{1, 536, 0}, {2, 285, 0}, {3, 285, 0}}));
  EXPECT_FALSE(Enabled("Command1"));
}

TEST_F(InOutTest, TheCommandFollowsTheEchoOfItsData) {
  Present(4, 4, 4);
  Click("Command1");
  Written();
  for (const int record : {535, 537, 538, 539}) {
    Arrive(1, record, 60);
  }
  EXPECT_EQ(Written(), Writes{});
  Arrive(1, 536, 60);
  EXPECT_EQ(Written(), (Writes{{1, 535, 1}}));
  Arrive(3, 285, 60);
  EXPECT_EQ(Written(), (Writes{{3, 284, 1}}));
  Arrive(2, 285, 60);
  EXPECT_EQ(Written(), (Writes{{2, 284, 1}}));
  Arrive(1, 536, 60);
  for (const int node : {2, 3}) {
    Arrive(node, 285, 60);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutTest, AUnitsCommandWaitsForARowThatHasBeenDelivered) {
  Present(4, 4, 4);
  Click("Command1");
  Written();
  Arrive(2, 286, 0);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutTest, TheButtonStaysClosedUntilAllBoardsHaveAnswered) {
  Present(4, 4, 4);
  Click("Command1");
  InTest(1, 1, 0);
  AllOff();
  EXPECT_FALSE(Enabled("Command1"));
  Arrive(3, 290, 1);
  EXPECT_TRUE(Enabled("Command1"));
}

TEST_F(InOutTest, BoardsThatAreInTestAlreadyMakeItOn) {
  InTest(1, 1, 1);
  EXPECT_EQ(LabelText("Label7"), "#320");
  ExpectOpen(true);
  EXPECT_TRUE(Find("Command1").hasFocus());  // the first of all that can be pressed now
}

TEST_F(InOutTest, ClosingWritesNothingAsPrescribed) {
  Start();
  Click("SwitchLed1(3)");
  Written();
  Close();
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(InOutTest, TimeUpOpensAllInSilenceAndForgetsWhatIsWaitedForAsPrescribed) {
  Start();
  Click("SwitchLed1(0)");
  EXPECT_TRUE(Running("Timer1"));
  Written();
  Fire("Timer1");
  EXPECT_FALSE(Running("Timer1"));
  ExpectOpen(true);
  EXPECT_EQ(Written(), Writes{});
  InTest(0, 0, 0);  // what closes now would open with the end of a write
  Arrive(1, 547, 1);
  ExpectOpen(false);
  InTest(1, 1, 1);
  for (const char* press : {"SwitchLed3(0)", "SwitchLed4", "SwitchLed5(9)", "SwitchLed6"}) {
    Click(press);
    Fire("Timer1");
    InTest(0, 0, 0);
    for (const int node : {2, 3, 2, 3}) {
      ReadBack(node, 1, 1);
    }
    ExpectOpen(false);
    InTest(1, 1, 1);
  }
}

}  // namespace
}  // namespace dosmara
