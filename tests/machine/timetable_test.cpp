// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/timetable.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class TimetableTest : public MachineTest {
 protected:
  TimetableTest() {
    Set(0, 317, 4);
    Set(0, 84, 4 + 32);
    Set(1, 34, 1);
    Set(1, 148, 40);
  }
  // A time of the day as a minute and the hour behind it.
  void SetTime(int record, std::uint32_t hour, std::uint32_t minute) {
    Set(0, record, minute);
    Set(0, record + 1, hour);
  }
  void GoTo(std::uint32_t hour, std::uint32_t minute) {
    machine_.Set(0, 326, hour);
    machine_.Set(0, 327, minute);
  }
  std::string Vend() {
    const std::string refusal = machine_.sales().Vend({}, Payment::kKey, {});
    Pass(3s);
    return refusal;
  }
  bool Washing() { return machine_.dispenser().Describe() == "wash"; }
};

constexpr char kOff[] = "the machine is switched off at this hour";

TEST_F(TimetableTest, TheMachineSellsWithinItsTwoBandsOnly) {
  SetTime(87, 6, 30);
  SetTime(91, 12, 15);
  SetTime(89, 13, 0);
  SetTime(93, 21, 45);
  struct {
    std::uint32_t hour, minute;
    bool on;
  } const moments[] = {{6, 29, false}, {6, 30, true},  {12, 14, true},  {12, 15, false}, {12, 59, false},
                       {13, 0, true},  {21, 44, true}, {21, 45, false}, {0, 0, false}};
  for (const auto& moment : moments) {
    GoTo(moment.hour, moment.minute);
    EXPECT_EQ(Vend(), moment.on ? "" : kOff) << moment.hour << ":" << moment.minute;
  }
  machine_.Write(0, 315, 1);
  machine_.Write(0, 314, 2);
  EXPECT_TRUE(machine_.dispenser().busy()) << "a test is none of it";
}

TEST_F(TimetableTest, WithOneBandTheOtherIsNone) {
  SetTime(89, 13, 0);
  SetTime(93, 14, 0);
  SetTime(87, 9, 0);
  SetTime(91, 8, 0);
  GoTo(13, 30);
  EXPECT_EQ(Vend(), "");
  GoTo(9, 30);
  EXPECT_EQ(Vend(), kOff);
}

TEST_F(TimetableTest, WithoutABandOrWithoutAClockItIsAlwaysOn) {
  EXPECT_EQ(Vend(), "");
  SetTime(87, 9, 0);
  SetTime(91, 10, 0);
  GoTo(11, 0);
  EXPECT_EQ(Vend(), kOff);
  machine_.calendar().SetFitted(false);
  EXPECT_EQ(Vend(), "");
}

TEST_F(TimetableTest, WashesAtItsTwoTimesWithItsOutputs) {
  Set(1, 585, 60);
  SetTime(95, 6, 0);
  SetTime(97, 22, 15);
  for (const auto& [hour, minute] : {std::pair(5u, 59u), std::pair(22u, 14u)}) {
    GoTo(hour, minute);
    Pass(59s);
    EXPECT_FALSE(machine_.dispenser().busy());
    Pass(1s);
    EXPECT_TRUE(Washing());
    Pass(300ms);
    EXPECT_EQ(Get(0, 317) & 2, 2u);
    EXPECT_EQ(Get(1, 547) & 32, 32u) << "pump";
    EXPECT_EQ(Get(1, 548), 16u + 32u + 128u) << "mixers and rinse valve";
    Pass(1500ms);
    EXPECT_FALSE(machine_.dispenser().busy());
    EXPECT_EQ(Get(1, 548), 0u);
    Pass(2min);
    EXPECT_FALSE(machine_.dispenser().busy()) << "once";
  }
  EXPECT_EQ(Get(0, 126), 0u);
  EXPECT_EQ(Get(0, 124), 0u);
}

TEST_F(TimetableTest, WashesNotWithoutTheOptionNorWithoutAClock) {
  Set(1, 585, 60);
  SetTime(95, 6, 0);
  Set(0, 84, 4);
  GoTo(5, 59);
  Pass(61s);
  EXPECT_FALSE(machine_.dispenser().busy());
  Set(0, 84, 4 + 32);
  GoTo(5, 59);
  Pass(58s);
  machine_.calendar().SetFitted(false);
  Pass(2min);
  SetTime(320, 6, 0);
  for (int second = 0; second < 120; ++second) {
    Pass(1s);
    ASSERT_FALSE(machine_.dispenser().busy());
  }
}

TEST_F(TimetableTest, AWashWaitsForADrinkAndSaysWhenItCannotBe) {
  Set(1, 585, 60);
  Set(1, 148, 200);
  SetTime(95, 6, 0);
  GoTo(5, 59);
  Pass(58s);
  EXPECT_EQ(machine_.sales().Vend({}, Payment::kKey, {}), "");
  Pass(4s);
  EXPECT_EQ(machine_.dispenser().Describe(), "drink-1-sold");
  Pass(3s);
  EXPECT_TRUE(Washing());
  Pass(5s);
  machine_.supplies().Exhaust(Supply::kWater);
  GoTo(5, 59);
  Pass(61s);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(machine_.remarks().refused(), 1u);
}

TEST_F(TimetableTest, AWashWithABrokenPumpEndsWithItsAlarm) {
  machine_.alarms().Clear();
  Set(1, 585, 60);
  Set(1, 32, 4);
  SetTime(95, 6, 0);
  machine_.defects().Break("pump");
  GoTo(5, 59);
  Pass(63s);
  EXPECT_TRUE(Washing());
  Pass(2s);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Get(0, 147 + 6 * static_cast<int>(Get(0, 86))), 13u);
}

}  // namespace
}  // namespace machine
