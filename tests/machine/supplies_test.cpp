// SPDX-License-Identifier: GPL-3.0-or-later
// What runs out, what breaks, and what the inputs show of it.
#include "machine/supplies.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class SuppliesTest : public MachineTest {
 protected:
  SuppliesTest() {
    Set(0, 317, 4);
    machine_.alarms().Clear();
    Set(1, 148, 40);  // selection 1 is coffee
    Set(1, 193, 40);  // selection 2 is tea
  }

  // True when a complete test drink starts.
  bool Starts(std::uint32_t selection, std::uint32_t command = 2) {
    machine_.Write(0, 315, selection);
    machine_.Write(0, 314, command);
    const bool started = machine_.dispenser().busy();
    Pass(30s);
    return started;
  }
  bool ProductStarts(std::uint32_t letter) {
    machine_.Write(0, 358, letter);
    machine_.Write(0, 316, 16);
    return Starts(39);
  }
  std::uint32_t NewestAlarm() { return Get(0, 147 + 6 * static_cast<int>(Get(0, 86))); }
};

TEST_F(SuppliesTest, EachRaisesItsAlarmOnceWhenItRunsOut) {
  const std::pair<Supply, std::uint32_t> alarms[] = {{Supply::kWater, 1},   {Supply::kCups, 2},
                                                     {Supply::kCoffee, 3},  {Supply::kStirrers, 4},
                                                     {Supply::kGrounds, 5}, {Supply::kTray, 6}};
  std::uint32_t count = 0;
  for (const auto& [supply, code] : alarms) {
    machine_.supplies().Exhaust(supply);
    machine_.supplies().Exhaust(supply);
    EXPECT_EQ(NewestAlarm(), code);
    EXPECT_EQ(Get(0, 86), count++);
  }
}

TEST_F(SuppliesTest, WithoutASupplyOnlyTheDrinksThatNeedItAreRefused) {
  struct {
    Supply supply;
    bool coffee, tea;
  } const rows[] = {{Supply::kWater, false, false},  {Supply::kCups, false, false},
                    {Supply::kCoffee, false, true},  {Supply::kStirrers, false, false},
                    {Supply::kGrounds, false, true}, {Supply::kTray, false, false}};
  for (const auto& row : rows) {
    machine_.supplies().Exhaust(row.supply);
    EXPECT_EQ(Starts(1), row.coffee) << static_cast<int>(row.supply);
    EXPECT_EQ(Starts(2), row.tea) << static_cast<int>(row.supply);
    EXPECT_TRUE(ProductStarts(86));
    machine_.supplies().Service(row.supply);
    EXPECT_TRUE(Starts(1));
  }
}

TEST_F(SuppliesTest, WithoutSugarADrinkNeedsNoStirrer) {
  machine_.supplies().Exhaust(Supply::kStirrers);
  EXPECT_TRUE(Starts(1, 3));
}

TEST_F(SuppliesTest, CoffeeRunsOutByDrinkingIt) {
  machine_.Set(1, 24, 0);
  for (int drink = 0; drink < 449; ++drink) {
    ASSERT_TRUE(Starts(1)) << drink;
  }
  EXPECT_GT(NewestAlarm(), 203u);
  ASSERT_TRUE(Starts(1));
  EXPECT_EQ(NewestAlarm(), 5u) << "the grounds bin is full first";
  machine_.supplies().Service(Supply::kGrounds);
  for (int drink = 0; drink < 50; ++drink) {
    ASSERT_TRUE(Starts(1)) << drink;
  }
  EXPECT_EQ(NewestAlarm(), 3u);
  EXPECT_FALSE(Starts(1));
}

TEST_F(SuppliesTest, EachLastsForItsServingsAndWaterAndTrayForEver) {
  constexpr std::pair<Supply, int> kLasting[] = {
      {Supply::kCups, 600}, {Supply::kCoffee, 500}, {Supply::kStirrers, 800}, {Supply::kGrounds, 450}};
  for (const auto& [supply, servings] : kLasting) {
    Machine machine(PlainBoards(), 1);
    machine.board(1).Set(148, 40);
    for (int i = 1; i < servings; ++i) {
      machine.supplies().OnServed({});
    }
    EXPECT_TRUE(machine.supplies().Has(supply)) << servings;
    machine.supplies().OnServed({});
    EXPECT_FALSE(machine.supplies().Has(supply)) << servings;
    for (const Supply endless : {Supply::kWater, Supply::kTray}) {
      EXPECT_TRUE(machine.supplies().Has(endless));
    }
  }
}

using DefectsTest = SuppliesTest;

TEST_F(DefectsTest, SomePartsTellAtOnce) {
  const std::pair<const char*, std::uint32_t> parts[] = {{"probe", 10},          {"inlet", 14},
                                                         {"coin-mechanism", 16}, {"bill-validator", 17},
                                                         {"clock", 26},          {"memory", 27}};
  std::uint32_t count = 0;
  for (const auto& [part, code] : parts) {
    EXPECT_TRUE(machine_.defects().Break(part));
    EXPECT_TRUE(machine_.defects().Break(part));
    EXPECT_EQ(NewestAlarm(), code);
    EXPECT_EQ(Get(0, 86), count++);
  }
}

TEST_F(DefectsTest, ABrokenPartOfTheBrewerRunsIntoItsTimeoutAndCountsNothing) {
  struct {
    const char* part;
    int record;
    std::uint32_t timeout;
    Time length;
    std::uint32_t alarm;
  } const parts[] = {{"brewer", 31, 80, 8s, 11},
                     {"grinder", 30, 120, 12s, 12},
                     {"pump", 32, 45, 45s, 13},
                     {"flow-meter", 32, 45, 45s, 15}};
  for (const auto& part : parts) {
    Set(1, part.record, part.timeout);
    machine_.defects().Break(part.part);
    machine_.Write(0, 315, 1);
    machine_.Write(0, 314, 2);
    Pass(300ms + part.length - 1ms);
    EXPECT_TRUE(machine_.dispenser().busy()) << part.part;
    Pass(1ms);
    EXPECT_FALSE(machine_.dispenser().busy()) << part.part;
    EXPECT_EQ(NewestAlarm(), part.alarm);
    machine_.defects().Mend(part.part);
  }
  EXPECT_EQ(Get(0, 126), 0u);
  EXPECT_EQ(Get(1, 126), 0u);
}

TEST_F(DefectsTest, AJammedMotorConcernsItsOwnUnit) {
  for (const int node : {2, 3}) {
    Set(node, 58, 60);
  }
  machine_.defects().Break("motor-3");
  ProductStarts(86);
  EXPECT_GT(NewestAlarm(), 203u);
  EXPECT_EQ(Get(2, 167), 1u);
  ProductStarts(87);
  EXPECT_EQ(NewestAlarm(), 25u);
  EXPECT_EQ(Get(3, 167), 0u);
  machine_.defects().Break("motor-2");
  ProductStarts(86);
  EXPECT_EQ(NewestAlarm(), 24u);
}

TEST_F(DefectsTest, AJammedMotorTriesForTheTimeoutOfItsUnit) {
  const struct {
    int node;
    const char* part;
    std::uint32_t letter, tenths;
  } units[] = {{2, "motor-2", 86, 40}, {3, "motor-3", 87, 70}};
  for (const auto& unit : units) {
    Set(unit.node, 58, unit.tenths);
    machine_.defects().Break(unit.part);
    machine_.Write(0, 358, unit.letter);
    machine_.Write(0, 316, 16);
    machine_.Write(0, 315, 39);
    machine_.Write(0, 314, 2);
    Pass(300ms + unit.tenths * 100ms - 1ms);
    EXPECT_TRUE(machine_.dispenser().busy()) << unit.part;
    Pass(1ms);
    EXPECT_FALSE(machine_.dispenser().busy()) << unit.part;
  }
}

TEST_F(DefectsTest, TheGrinderMattersToCoffeeOnly) {
  Set(1, 30, 120);
  machine_.defects().Break("grinder");
  EXPECT_TRUE(Starts(2));
  EXPECT_GT(NewestAlarm(), 203u);
  EXPECT_EQ(Get(1, 127), 1u);
}

TEST_F(DefectsTest, APartThatIsNotThereCannotBreak) {
  EXPECT_FALSE(machine_.defects().Break("teapot"));
  EXPECT_FALSE(machine_.defects().Mend("teapot"));
}

class InputsTest : public SuppliesTest {
 protected:
  bool Bit(int node, int record, int bit) { return (Get(node, record) >> bit & 1) != 0; }
};

TEST_F(InputsTest, ShowSuppliesActiveLow) {
  struct {
    Supply supply;
    int bit;
    bool missing;
  } const inputs[] = {{Supply::kCups, 2, true},
                      {Supply::kWater, 4, true},
                      {Supply::kGrounds, 5, false},
                      {Supply::kTray, 6, false}};
  for (const auto& input : inputs) {
    EXPECT_EQ(Bit(1, 544, input.bit), !input.missing) << input.bit;
    machine_.supplies().Exhaust(input.supply);
    Pass(1s);
    EXPECT_EQ(Bit(1, 544, input.bit), input.missing) << input.bit;
    machine_.supplies().Service(input.supply);
    Pass(1s);
    EXPECT_EQ(Bit(1, 544, input.bit), !input.missing) << input.bit;
  }
}

TEST_F(InputsTest, ShowTheDoorAndItsAlarm) {
  EXPECT_FALSE(Bit(0, 318, 1));
  machine_.inputs().SetDoorOpen(true);
  EXPECT_TRUE(Bit(0, 318, 1));
  EXPECT_EQ(NewestAlarm(), 7u);
  machine_.inputs().SetDoorOpen(false);
  EXPECT_FALSE(Bit(0, 318, 1));
}

TEST_F(InputsTest, ShowTheBrewerAndTheCupOfADrink) {
  Set(1, 148, 400);
  EXPECT_FALSE(Bit(1, 544, 0));
  EXPECT_TRUE(Bit(1, 544, 3));
  machine_.Write(0, 315, 1);
  machine_.Write(0, 314, 2);
  Pass(2s);
  EXPECT_TRUE(Bit(1, 544, 0));
  EXPECT_FALSE(Bit(1, 544, 3));
}

TEST_F(InputsTest, AProductMovesNeitherBrewerNorCup) {
  machine_.Write(0, 358, 86);
  machine_.Write(0, 315, 39);
  machine_.Write(0, 316, 16);
  machine_.Write(0, 314, 2);
  Pass(1s);
  EXPECT_TRUE(machine_.dispenser().busy());
  EXPECT_FALSE(Bit(1, 544, 0));
  EXPECT_TRUE(Bit(1, 544, 3));
}

TEST_F(InputsTest, ShowABrokenCoinMechanism) {
  EXPECT_FALSE(Bit(0, 318, 4));
  machine_.defects().Break("coin-mechanism");
  Pass(1s);
  EXPECT_TRUE(Bit(0, 318, 4));
  machine_.defects().Mend("coin-mechanism");
  Pass(1s);
  EXPECT_FALSE(Bit(0, 318, 4));
}

TEST_F(InputsTest, ShowAHotBoilerActiveHigh) {
  Set(1, 24, 92);
  machine_.Set(1, 542, 92);
  Pass(1s);
  EXPECT_TRUE(Bit(1, 546, 0));
  machine_.Set(1, 542, 85);
  Pass(1s);
  EXPECT_FALSE(Bit(1, 546, 0));
}

TEST_F(InputsTest, AValueSetByHandStaysUntilItsCauseChanges) {
  machine_.Set(1, 544, 255);
  Pass(1min);
  EXPECT_EQ(Get(1, 544), 255u);
}

}  // namespace
}  // namespace machine
