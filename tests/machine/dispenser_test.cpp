// SPDX-License-Identifier: GPL-3.0-or-later
// Test dispensing as the tool sees it: a command, then bit value 2 of record 317 for as long as it lasts.
#include "machine/dispenser.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class DispenserTest : public MachineTest {
 protected:
  void Command(std::uint8_t command, std::uint8_t selection, std::uint8_t part = 0) {
    machine_.Write(0, 315, selection);
    machine_.Write(0, 316, part);
    machine_.Write(0, 314, command);
  }

  // Doses and times of node 1: record and value of each.
  void Hold(std::initializer_list<std::pair<int, std::uint32_t>> records) {
    for (const auto& [record, value] : records) {
      Set(1, record, value);
    }
  }

  bool Dispensing() { return (Get(0, 317) & 2) != 0; }

  // Expects dispensing from 300 ms after now, for `duration`, to the millisecond.
  void ExpectDispensingFor(Time duration) {
    Pass(299ms);
    EXPECT_FALSE(Dispensing()) << "before the start";
    Pass(1ms);
    EXPECT_TRUE(Dispensing()) << "at the start";
    Pass(duration - 1ms);
    EXPECT_TRUE(Dispensing()) << "just before the end";
    Pass(1ms);
    EXPECT_FALSE(Dispensing()) << "at the end";
  }

  // The same for a whole drink, which takes `duration` once its cup has fallen.
  void ExpectDrinkFor(Time duration) { ExpectDispensingFor(800ms + duration); }

  void ExpectNothing() {
    for (int i = 0; i < 100; ++i) {
      Pass(100ms);
      ASSERT_FALSE(Dispensing());
    }
  }
};

TEST_F(DispenserTest, ADrinkTakes25MsForEachWaterCount) {
  Hold({{148, 80}});
  Command(2, 1);
  ExpectDrinkFor(2000ms);
}

TEST_F(DispenserTest, TakesTheRecordsOfTheSelectionLessOne) {
  Hold({{148 + 21, 40}});
  Command(2, 22);
  ExpectDrinkFor(1000ms);
}

TEST_F(DispenserTest, AllWatersFollowEachOther) {
  Hold({{148, 40}, {170, 20}, {192, 40}, {214, 20}, {236, 80}});
  Command(2, 1);
  ExpectDrinkFor(5000ms);
}

TEST_F(DispenserTest, APowderThatRunsLongerThanItsWaterDecides) {
  Hold({{170, 20}, {368, 5}, {280, 25}, {390, 10}, {302, 10}});
  Command(2, 1);
  ExpectDrinkFor(3000ms);
}

TEST_F(DispenserTest, EachPowderGoesWithItsWaterAndDelay) {
  struct {
    int water, delay, time;
  } const powders[] = {{170, 368, 280}, {170, 390, 302}, {192, 412, 324}, {214, 563, 346}};
  for (const auto& powder : powders) {
    Set(1, powder.water + 3, 4);
    Set(1, powder.delay + 3, 7);
    Set(1, powder.time + 3, 13);
    Command(2, 4);
    ExpectDrinkFor(2000ms);
    for (const int record : {powder.water, powder.delay, powder.time}) {
      Set(1, record + 3, 0);
    }
  }
}

TEST_F(DispenserTest, APowderWhoseWaterIsOffIsLeftOut) {
  Hold({{148, 40}, {280, 90}});
  Command(2, 1);
  ExpectDrinkFor(1000ms);
}

TEST_F(DispenserTest, SugarRunsFirstInACompleteDrinkOnly) {
  Hold({{148, 40}, {434, 15}});
  Command(2, 1);
  ExpectDrinkFor(2500ms);
  Command(3, 1);
  ExpectDrinkFor(1000ms);
}

TEST_F(DispenserTest, WithoutSugarKeepsThePowders) {
  Hold({{170, 20}, {280, 25}});
  Command(3, 1);
  ExpectDrinkFor(2500ms);
}

TEST_F(DispenserTest, WaterOnlyLeavesPowdersOut) {
  Hold({{170, 20}, {280, 25}, {434, 15}});
  Command(4, 1);
  ExpectDrinkFor(500ms);
}

TEST_F(DispenserTest, ADrinkOfNothingDoesNotStart) {
  for (const std::uint8_t command : {2, 3, 4}) {
    Command(command, 1);
  }
  Hold({{434, 15}});
  for (const std::uint8_t command : {3, 4}) {
    Command(command, 1);
  }
  ExpectNothing();
  EXPECT_EQ(machine_.remarks().refused(), 5u);
}

TEST_F(DispenserTest, APartRunsForItsTimeOfTheSelectionCountedFromZero) {
  struct {
    std::uint8_t code;
    int record;
  } const parts[] = {{66, 280}, {68, 302}, {72, 324}, {80, 346}, {192, 434}};
  for (const auto& part : parts) {
    Set(1, part.record + 5, 12);
    Command(7, 5, part.code);
    ExpectDispensingFor(1200ms);
    Set(1, part.record + 5, 0);
  }
}

TEST_F(DispenserTest, APartWhoseTimeIsZeroDoesNotStart) {
  Command(7, 5, 66);
  ExpectNothing();
}

TEST_F(DispenserTest, AProductOfAUnitTakesOneTurnOfItsSpiral) {
  Set(0, 358, 86);
  Command(2, 46, 96);
  ExpectDispensingFor(1500ms);
  Set(0, 358, 87);
  Command(2, 39, 16);
  ExpectDispensingFor(1500ms);
}

TEST_F(DispenserTest, ThePumpRunsForADrinkAndForNothingElse) {
  Hold({{148, 40}, {280, 10}});
  const auto pump_runs = [this] { return (Get(1, 547) & 32) != 0; };
  Command(2, 1);
  Pass(1200ms);
  EXPECT_TRUE(pump_runs());
  Pass(5s);
  EXPECT_FALSE(pump_runs());
  Command(7, 0, 66);
  Pass(500ms);
  EXPECT_TRUE(Dispensing());
  EXPECT_FALSE(pump_runs());
  Pass(5s);
  Set(0, 358, 86);
  Command(2, 39, 16);
  Pass(500ms);
  EXPECT_TRUE(Dispensing());
  EXPECT_FALSE(pump_runs());
}

TEST_F(DispenserTest, RefusesAPositionThatNoUnitHas) {
  Set(0, 358, 86);
  Command(2, 47, 16);
  Command(2, 39, 0);
  Command(2, 39, 112);
  Set(0, 358, 81);
  Command(2, 39, 16);
  ExpectNothing();
}

TEST_F(DispenserTest, RefusesASelectionOrPartThatDoesNotExist) {
  for (int record = 148; record < 148 + 22; ++record) {
    Set(1, record, 40);
  }
  for (int record = 280; record < 280 + 22; ++record) {
    Set(1, record, 40);
  }
  Command(2, 0);
  Command(2, 23);
  Command(7, 22, 66);
  Command(7, 0, 67);
  Command(5, 1);
  ExpectNothing();
}

TEST_F(DispenserTest, RefusesACommandFromTheOneBeforeToItsEnd) {
  Hold({{148, 40}, {149, 400}});
  Command(2, 1);
  Pass(100ms);
  Command(2, 2);
  Pass(1999ms);
  EXPECT_TRUE(Dispensing());
  Command(2, 2);
  Pass(1ms);
  EXPECT_FALSE(Dispensing());
  ExpectNothing();
}

TEST_F(DispenserTest, RefusesWhatBelongsToAnAbsentBoard) {
  Hold({{148, 40}});
  Set(0, 358, 86);
  machine_.presence().SetPresent(1, false);
  machine_.presence().SetPresent(2, false);
  Command(2, 1);
  Command(2, 39, 16);
  ExpectNothing();
}

TEST_F(DispenserTest, AClosedBoardHandsNothingOutAndGoesOnOtherwise) {
  Hold({{148, 40}, {34, 1}, {280, 10}});
  for (const int record : {312, 313, 357}) {
    Set(0, record, 0);
  }
  for (const int unit : {86, 87}) {
    Set(0, 358, static_cast<std::uint32_t>(unit));
    Command(2, 39, 16);
  }
  Command(2, 1);
  Command(7, 0, 66);
  ExpectNothing();
  EXPECT_EQ(machine_.remarks().refused(), 4u);
  EXPECT_EQ(machine_.sales().Vend({}, Payment::kKey, {}), "the payment system takes no keys");
  Set(0, 84, 4);
  EXPECT_EQ(machine_.sales().Vend({}, Payment::kKey, {}), "the board at node 1 is closed");
  EXPECT_EQ(machine_.sales().Vend({.node = 3}, Payment::kKey, {}), "the board at node 3 is closed");
  machine_.Write(2, 284, 3);
  EXPECT_EQ(Get(2, 290), 2u);
  for (const int record : {312, 313, 357}) {
    Set(0, record, 4);
  }
  Command(2, 1);
  ExpectDrinkFor(1000ms);
}

TEST_F(DispenserTest, LeavesTheOtherBitsOfTheStatusAlone) {
  Set(0, 317, 4);
  Hold({{148, 40}});
  Command(2, 1);
  Pass(500ms);
  EXPECT_EQ(Get(0, 317), 6u);
  Pass(2s);
  EXPECT_EQ(Get(0, 317), 4u);
}

TEST_F(DispenserTest, ARestartEndsIt) {
  Hold({{148, 400}});
  Command(2, 1);
  Pass(1s);
  machine_.Restart();
  EXPECT_FALSE(Dispensing());
  EXPECT_FALSE(machine_.dispenser().busy());
  ExpectNothing();
}

TEST_F(DispenserTest, IsCommandedByFrames) {
  Hold({{148, 40}});
  machine_.Receive(WithSum({128, 1, 1, 59, 1}));
  Pass(20ms);
  machine_.Receive(WithSum({128, 1, 1, 58, 2}));
  Pass(6 * kCharTime);
  ExpectDrinkFor(1000ms);
}

}  // namespace
}  // namespace machine
