// SPDX-License-Identifier: GPL-3.0-or-later
// The input and output test against boards that switch what they are told.
#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>

#include "controls/led_switch.h"
#include "link/link_engine.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

// Lines of the language file: the state of the test.
constexpr int kTesting = 320;
constexpr int kNormal = 321;

class InOut : public OneForm {
 protected:
  void ConnectAndOpenWindow(const QStringList& machine_options = {}) {
    Connect(machine_options);
    Reopen();
  }
  void Reopen() {
    SystemTest::Click("ssmnuTest");
    form_ = window().findChild<QWidget*>("FrmInOut");
    ASSERT_NE(form_, nullptr);
  }
  void Close() {
    form_->parentWidget()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static QString Element(const char* array, int n) { return QString("%1(%2)").arg(array).arg(n); }
  LedSwitch& Switch(const QString& name) { return On<LedSwitch>(name); }
  int Held(int node, int record) { return static_cast<int>(machine().Get(node, record)); }
  bool InTest(int node) { return (Held(node, node == 1 ? 541 : 290) & 1) != 0; }

  // Starts or stops the test.
  void PressButton(int state) {
    Await([&] { return On<QWidget>("Command1").isEnabled(); }, "the button to open");
    On<QAbstractButton>("Command1").click();
    AwaitText("Label7", Caption(state));
  }
  void Start() { PressButton(kTesting); }

  // Presses a switch and waits until it shows what the machine then holds, and can be pressed again.
  void Press(const QString& name, bool on) {
    Await([&] { return Switch(name).isEnabled(); }, "the switch to open");
    Switch(name).click();
    Await([&] { return Switch(name).IsKnown() && Switch(name).IsOn() == on; }, qPrintable(name));
  }
};

TEST_F(InOut, EachOutputOfTheHotDrinksUnitIsSwitchedOnAndReadBack) {
  ConnectAndOpenWindow({"--absent", "2", "--absent", "3"});  // no more to poll than there must be
  EXPECT_EQ(Text("Label7"), Caption(kNormal));
  Start();
  EXPECT_TRUE(InTest(1));
  machine().Command("set 0 312 5");  // the last three outputs open with the board
  Await([&] { return Switch("SwitchLed1(25)").isEnabled(); }, "the last outputs to open");
  constexpr int kRecords[] = {547, 547, 547, 547, 547, 547, 547, 547, 548, 548, 548, 548, 549,
                              549, 549, 549, 549, 549, 549, 549, 550, 550, 548, 548, 548, 548};
  constexpr int kMasks[] = {1, 2, 4, 8,  16, 32, 64,  128, 1, 2,   4,  8,  1,
                            2, 4, 8, 16, 32, 64, 128, 1,   4, 128, 16, 32, 64};
  for (int i = 0; i < 26; ++i) {
    Press(Element("SwitchLed1", i), true);
    EXPECT_NE(Held(1, kRecords[i]) & kMasks[i], 0) << i;
  }
  for (const auto& [record, value] : {std::pair(547, 255), {548, 255}, {549, 255}, {550, 5}}) {
    EXPECT_EQ(Held(1, record), value);
  }
  Press("SwitchLed1(8)", false);
  EXPECT_EQ(Held(1, 548), 254);
  PressButton(kNormal);
  EXPECT_FALSE(InTest(1));
  EXPECT_EQ(Held(1, 547), 0);
}

class InOutUnit : public InOut, public testing::WithParamInterface<int> {};

TEST_P(InOutUnit, EachSectorAndTheCompressorAreSwitchedOnAndReadBack) {
  const int node = GetParam();
  const char* const sectors = node == 2 ? "SwitchLed3" : "SwitchLed5";
  const char* const compressor = node == 2 ? "SwitchLed4" : "SwitchLed6";
  ConnectAndOpenWindow({"--absent", "1", "--absent", QString::number(5 - node)});
  Start();
  Press(compressor, true);
  AwaitHeld(node, 288, 128);
  for (int i = 0; i < 48; ++i) {
    Press(Element(sectors, i), true);
    EXPECT_EQ(Held(node, 288), 128 + (1 << i / 8)) << i;
    EXPECT_EQ(Held(node, 289), 1 << i % 8) << i;
    EXPECT_FALSE(Switch(Element(sectors, (i + 47) % 48)).IsOn()) << i;
  }
  Press(Element(sectors, 47), false);
  EXPECT_EQ(Held(node, 288), 128);
  Press(compressor, false);
  EXPECT_EQ(Held(node, 288), 0);
  PressButton(kNormal);
  AwaitHeld(node, 290, 0);
}

INSTANTIATE_TEST_SUITE_P(Zeth, InOutUnit, testing::Values(2, 3),
                         [](const auto& each) { return each.param == 2 ? "First" : "Second"; });

TEST_F(InOut, OnlyOneBoardsOutputRunsAtATime) {
  ConnectAndOpenWindow();
  Start();
  Press("SwitchLed1(5)", true);
  Press("SwitchLed3(9)", true);
  Await([&] { return Held(1, 547) == 0; }, "the pump to stop");
  Press("SwitchLed5(9)", false);  // the second click on sector 9, though on another unit
  Await([&] { return Held(2, 288) == 0; }, "the first unit to stop");
  Press("SwitchLed5(9)", true);
  Press("SwitchLed1(5)", true);
  EXPECT_EQ(Held(3, 288), 2);  // left alone
  for (const int node : {1, 2, 3}) {
    EXPECT_TRUE(InTest(node)) << node;
  }
}

TEST_F(InOut, APlugThatFallsOutDuringAWriteLosesNoMoreThanTheWrite) {
  ConnectAndOpenWindow();
  Start();
  Switch("SwitchLed1(5)").click();
  Await([] { return !LinkIdle && ExchControl >= 128; }, "the write");
  machine().Command("unplug");
  EXPECT_FALSE(Switch("SwitchLed1(5)").isEnabled());
  Await([&] { return Switch("SwitchLed1(5)").isEnabled(); }, "the time for the write to be up");
  EXPECT_FALSE(Switch("SwitchLed1(5)").IsOn());
  EXPECT_EQ(Text("Label7"), Caption(kTesting));
  machine().Command("replug");
  Await([] { return ParamIsFresh(535, 1); }, "the command to be delivered late");
  Press("SwitchLed1(6)", true);
  const int image = Held(1, 547);
  EXPECT_EQ(image & ~32, 64);
  EXPECT_EQ(Switch("SwitchLed1(5)").IsOn(), (image & 32) != 0);
}

TEST_F(InOut, WithoutAnyBoardTheTestCannotBeStarted) {
  ConnectAndOpenWindow({"--absent", "1", "--absent", "2", "--absent", "3"});
  Await([] { return ParamIsFresh(357, 0); }, "the presence of the last board");
  Await([] { return ParamIsFresh(312, 0) && ParamIsFresh(313, 0); }, "the presence of the boards");
  EXPECT_FALSE(On<QWidget>("Command1").isEnabled());
}

TEST_F(InOut, AUnitThatIsAbsentHoldsUpNothing) {
  ConnectAndOpenWindow({"--absent", "2"});
  Await([&] { return !On<QWidget>("Frame3").isEnabled(); }, "the frame to become grey");
  Start();
  Press("SwitchLed5(20)", true);
  EXPECT_FALSE(Switch("SwitchLed3(20)").isEnabled());
  Press("SwitchLed1(0)", true);
  PressButton(kNormal);
}

TEST_F(InOut, AUnitThatVanishesDuringTheTestDoesNotEndIt) {
  ConnectAndOpenWindow();
  Start();
  Press("SwitchLed5(20)", true);
  machine().Command("absent 3");
  Await([&] { return !On<QWidget>("Frame4").isEnabled(); }, "the frame to become grey");
  EXPECT_FALSE(Switch("SwitchLed5(20)").isEnabled());
  EXPECT_EQ(Text("Label7"), Caption(kTesting));
  Press("SwitchLed1(0)", true);
  machine().Command("present 3");
  Await([&] { return Switch("SwitchLed5(20)").isEnabled(); }, "the unit to come back");
  EXPECT_EQ(Text("Label7"), Caption(kTesting));
  Press("SwitchLed5(21)", true);
}

TEST_F(InOut, WhatRunsAsTheWindowClosesRunsOnAndCanBeSwitchedOffLater) {
  ConnectAndOpenWindow();
  Start();
  Press("SwitchLed3(9)", true);
  Close();
  AwaitRequests(3);
  EXPECT_EQ(Held(2, 288), 2);
  for (const int node : {1, 2, 3}) {
    EXPECT_TRUE(InTest(node)) << node;
  }
  Reopen();
  EXPECT_EQ(Text("Label7"), Caption(kNormal));
  AwaitText("Label7", Caption(kTesting));
  Await([&] { return Switch("SwitchLed3(9)").IsOn(); }, "the sector to be shown");
  Press("SwitchLed3(10)", true);
  Press("SwitchLed3(10)", false);
  EXPECT_EQ(Held(2, 288), 0);
  Close();
  Reopen();
  AwaitText("Label7", Caption(kTesting));
  PressButton(kNormal);
  for (const int node : {1, 2, 3}) {
    AwaitHeld(node, node == 1 ? 541 : 290, 0);
  }
  Close();
  EXPECT_EQ(ParamTable[0][357].Subscribers, 3);
  ParamTable[0][357].Subscribers = 0;
  for (const auto& node : ParamTable) {
    for (const ParamRec& record : node) {
      EXPECT_EQ(record.Subscribers, 0);
    }
  }
}

}  // namespace
}  // namespace dosmara
