// SPDX-License-Identifier: GPL-3.0-or-later
// The clock window: bands, setting the machine's clock over midnight and over the end of February, no chip.
#include "controls/bar.h"
#include "controls/seven_segment.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

// Fields of the clock, as they are set: their records as they run.
enum Field { kHour, kMinute, kDay, kMonth, kYear };
constexpr int kRunning[] = {321, 320, 322, 323, 324};
const char* const kValues[] = {"Label4(0)", "Label4(1)", "Label5(0)", "Label5(1)", "Label5(2)"};

class Orologio : public OneForm {
 protected:
  void ConnectAndUnlock() {
    Connect();
    machine().Command("clock 10:20 2024-06-15");
    Click("mnuOrologio");
    form_ = window().findChild<QWidget*>("FrmOrologio");
    ASSERT_NE(form_, nullptr);
    EXPECT_FALSE(Box(0).isVisible());
    AwaitAllArrived();
    Await([&] { return Box(0).isVisible() && Set(kHour).isVisible(); }, "the window to open");
    AwaitText("Label6", "15/06/2024");
  }

  QLineEdit& Set(Field field) { return On<QLineEdit>(QString("txtOrol(%1)").arg(field)); }
  QString Time() { return On<SegmentClock>("iSevenSegmentClockX1").Time(); }

  // Sets a field, and waits until the machine's clock has it and the window has heard of it.
  void SetAndAwait(Field field, int value) {
    Enter(Set(field), QString::number(value));
    AwaitHeld(0, kRunning[field], value);
    AwaitText(kValues[field], QString::number(value));
  }
  void SetDate(int day, int month, int year) {
    SetAndAwait(kYear, year);
    SetAndAwait(kMonth, month);
    SetAndAwait(kDay, day);
  }
  void SetLastMinute() {
    SetAndAwait(kHour, 23);
    SetAndAwait(kMinute, 59);
    Await([&] { return Time() == "23:59"; }, "the clock to be set");
  }
  // The last minute of the day passes in a second.
  void PassMidnight() {
    machine().Command("speed 60");
    AwaitHeld(0, kRunning[kHour], 0);
    machine().Command("speed 1");
    Await([&] { return Time().startsWith("00:0"); }, "the clock to pass midnight");
  }
  std::optional<std::uint32_t> Machine(Field field) { return machine().Get(0, kRunning[field]); }
};

TEST_F(Orologio, ABandReachesTheMachineAndItsMirrors) {
  ConnectAndUnlock();
  EXPECT_EQ(Text("Label1(2)") + ":" + Text("Label1(3)"), "12:30");
  Enter(Box(2), "14");
  EXPECT_EQ(Text("Label1(2)"), "12") << "the display waits for the machine";
  AwaitHeld(0, 92, 14);
  AwaitHeld(0, 294, 14);
  AwaitText("Label1(2)", "14");
  On<Bar>("HScroll1(3)").SetValue(45);
  AwaitHeld(0, 91, 45);
  AwaitHeld(0, 293, 45);
  AwaitText("Label1(3)", "45");
}

TEST_F(Orologio, TheClockThatIsSetPassesMidnightAtTheEndOfFebruary) {
  ConnectAndUnlock();
  SetDate(28, 2, 23);
  AwaitText("Label6", "28/02/2023");
  SetLastMinute();
  PassMidnight();
  AwaitText("Label6", "01/03/2023");
  EXPECT_EQ(Machine(kDay), 1u);
  EXPECT_EQ(Machine(kMonth), 3u);
  EXPECT_EQ(Text("Label5(0)"), "28") << "what sets the clock stays at what was set";
}

TEST_F(Orologio, ALeapYearHasADayMore) {
  ConnectAndUnlock();
  SetDate(28, 2, 24);
  SetLastMinute();
  PassMidnight();
  AwaitText("Label6", "29/02/2024");
}

TEST_F(Orologio, ADayThatFebruaryLacksIsHeldByTheMachineAndCountedOnByTheWindow) {
  ConnectAndUnlock();
  SetDate(31, 2, 24);
  AwaitText("Label6", "02/03/2024");
  EXPECT_EQ(Machine(kDay), 31u);
  EXPECT_EQ(Machine(kMonth), 2u);
  SetLastMinute();
  PassMidnight();
  AwaitText("Label6", "01/03/2024");
}

TEST_F(Orologio, AMachineWithoutAClockGreysTheClockAndNothingElse) {
  ConnectAndUnlock();
  machine().Command("clock missing");
  Await([&] { return !On<QWidget>("Frame1").isEnabled(); }, "the clock to close");
  EXPECT_FALSE(Set(kHour).isVisible());
  EXPECT_FALSE(On<QWidget>("HScroll2(0)").isEnabled());
  EXPECT_TRUE(Box(0).isVisible());
  Enter(Box(0), "5");
  AwaitHeld(0, 290, 5);
  machine().Command("clock fitted");
  Await([&] { return On<QWidget>("Frame1").isEnabled() && Set(kHour).isVisible(); }, "the clock to open");
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
