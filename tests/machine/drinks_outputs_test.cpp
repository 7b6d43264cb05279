// SPDX-License-Identifier: GPL-3.0-or-later
// What the outputs of the drinks unit show of a drink, in its order, and the inputs that follow them.
#include "machine/drinks_outputs.h"

#include <set>

#include "machine_fixture.h"

namespace machine {
namespace {

class DrinksOutputsTest : public MachineTest {
 protected:
  void Hold(std::initializer_list<std::pair<int, std::uint32_t>> records) {
    for (const auto& [record, value] : records) {
      Set(1, record, value);
    }
  }
  // Starts a test and goes on to the moment at which the machine shows that it dispenses.
  void Start(std::uint32_t command, std::uint32_t selection, std::uint32_t part = 0) {
    machine_.Write(0, 315, selection);
    machine_.Write(0, 316, part);
    machine_.Write(0, 314, command);
    Pass(300ms);
  }
  // Starts the test of a whole drink and goes on to the moment at which its cup has fallen.
  void Test(std::uint32_t command, std::uint32_t selection) {
    Start(command, selection);
    Pass(800ms);
  }
  // Bits that are on, 0 to 31 through records 547 to 550, without those of light, lock and falling things.
  std::set<int> Running() {
    std::set<int> on = On();
    for (const int output : {21, 22, 23, 24, 25, 26}) {
      on.erase(output);
    }
    return on;
  }
  std::set<int> On() {
    std::set<int> on;
    for (int output = 0; output < 32; ++output) {
      if ((Get(1, 547 + output / 8) >> (output % 8) & 1) != 0) {
        on.insert(output);
      }
    }
    return on;
  }
  bool Doser() { return (Get(1, 544) & 2) == 0; }
  // How often the flow meter's bit changes within `time`.
  int Pulses(Time time) {
    int changes = 0;
    for (Time passed{0}; passed < time; passed += 5ms) {
      const std::uint32_t before = Get(1, 544) & 128;
      Pass(5ms);
      changes += (Get(1, 544) & 128) != before;
    }
    return changes;
  }
};

using Outputs = std::set<int>;

TEST_F(DrinksOutputsTest, EachPartHasItsValveThePumpAndItsMotors) {
  struct {
    int water, delay, time;
    Outputs early, late;
  } const parts[] = {{148, 0, 0, {0, 5, 10, 8}, {0, 5, 10, 8}},   {170, 368, 280, {1, 5, 12}, {1, 5, 12, 16}},
                     {170, 390, 302, {1, 5, 13}, {1, 5, 13, 17}}, {192, 412, 324, {2, 5}, {2, 5, 18}},
                     {214, 563, 346, {3, 5}, {3, 5, 19}},         {236, 0, 0, {4, 5}, {4, 5}}};
  for (const auto& part : parts) {
    Set(1, part.water + 2, 40);
    if (part.delay > 0) {
      Set(1, part.delay + 2, 5);
    }
    if (part.time > 0) {
      Set(1, part.time + 2, 5);
    }
    Test(2, 3);
    EXPECT_EQ(Running(), part.early) << part.water;
    Pass(499ms);
    EXPECT_EQ(Running(), part.early) << part.water;
    Pass(1ms);
    EXPECT_EQ(Running(), part.late) << part.water;
    Pass(499ms);
    EXPECT_EQ(Running(), part.late) << part.water;
    Pass(1ms);
    EXPECT_EQ(On(), Outputs{}) << part.water;
    for (const int record : {part.water, part.delay, part.time}) {
      Set(1, record + 2, 0);
    }
  }
}

TEST_F(DrinksOutputsTest, ThePartsOfADrinkFollowEachOther) {
  Hold({{434, 10}, {46, 1}, {148, 40}, {170, 40}, {192, 40}, {214, 40}, {236, 40}});
  Start(2, 1);
  // Half a second from the start, and then once a second, under the lights.
  const Outputs order[] = {{21, 22, 8}, {20, 9}, {0, 5, 10}, {1, 5}, {2, 5}, {3, 5}, {4, 5, 23}};
  Pass(500ms);
  for (Outputs running : order) {
    running.insert({24, 25, 26});
    EXPECT_EQ(On(), running);
    Pass(1s);
  }
  EXPECT_EQ(On(), Outputs{});
}

TEST_F(DrinksOutputsTest, MilkComesFirstWhereTheSelectionSaysSo) {
  Hold({{148, 40}, {170, 40}, {42, 1}});
  Test(2, 1);
  EXPECT_TRUE(Running().contains(1));
  Pass(1s);
  EXPECT_TRUE(Running().contains(0));
}

TEST_F(DrinksOutputsTest, APowderRunsOnBehindItsWater) {
  Hold({{170, 20}, {280, 10}});
  Test(2, 1);
  Pass(600ms);
  EXPECT_EQ(Running(), (Outputs{12, 16}));
}

TEST_F(DrinksOutputsTest, WaterOnlyMovesNoPowder) {
  Hold({{434, 10}, {148, 40}, {170, 40}, {280, 10}});
  Test(4, 1);
  EXPECT_EQ(Running(), (Outputs{0, 5, 10}));
  Pass(1s);
  EXPECT_EQ(Running(), (Outputs{1, 5}));
}

TEST_F(DrinksOutputsTest, GrindsAheadOfTheWaterOrBehindForTheNextDrink) {
  Hold({{434, 12}, {148, 40}, {46, 1}});
  Start(2, 1);
  EXPECT_EQ(Running(), (Outputs{8}));
  EXPECT_TRUE(Doser());
  Pass(999ms);
  EXPECT_EQ(Running(), (Outputs{20, 8}));
  Pass(1ms);
  EXPECT_EQ(Running(), (Outputs{20, 9}));
  EXPECT_FALSE(Doser());
  Pass(999ms);
  EXPECT_EQ(Running(), (Outputs{20, 9}));
  Pass(1ms);
  EXPECT_EQ(Running(), (Outputs{0, 5, 10}));
  Pass(10s);
  Set(1, 46, 0);
  Start(2, 1);
  EXPECT_EQ(Running(), Outputs{});
  Pass(1s);
  EXPECT_EQ(Running(), (Outputs{20, 9}));
  EXPECT_FALSE(Doser());
  Pass(1s);
  EXPECT_EQ(Running(), (Outputs{0, 5, 10, 8}));
  EXPECT_TRUE(Doser());
  Pass(999ms);
  EXPECT_EQ(Running(), (Outputs{0, 5, 10, 8}));
}

TEST_F(DrinksOutputsTest, WithoutSugarTheCoffeeIsThereBeforeItsWaterAsWell) {
  Hold({{148, 40}, {46, 1}});
  Start(3, 1);
  EXPECT_EQ(Running(), Outputs{8});
  Pass(400ms);
  EXPECT_EQ(Running(), Outputs{9});
  Pass(400ms);
  EXPECT_EQ(Running(), (Outputs{0, 5, 10}));
}

TEST_F(DrinksOutputsTest, ACupFallsFirstAndAStirrerLastUnderTheLight) {
  Hold({{148, 88}});
  Start(2, 1);
  EXPECT_EQ(Get(1, 549) & 224, 32u);
  EXPECT_EQ(Get(1, 550), 7u);
  Pass(400ms);
  EXPECT_EQ(Get(1, 549) & 224, 32u + 64u);
  EXPECT_EQ(Running(), Outputs{9}) << "nothing falls or flows ahead of the cup";
  Pass(400ms);
  EXPECT_EQ(Get(1, 549) & 224, 0u);
  Pass(1399ms);
  EXPECT_EQ(Get(1, 549) & 224, 0u);
  Pass(1ms);
  EXPECT_EQ(Get(1, 549) & 224, 128u);
  EXPECT_EQ(Get(1, 550), 7u);
  Pass(800ms);
  EXPECT_EQ(On(), Outputs{});
}

TEST_F(DrinksOutputsTest, ASaleWithoutACupDropsNeitherCupNorStirrer) {
  Hold({{148, 40}, {34, 1}});
  Set(0, 84, 4 + 16);
  EXPECT_EQ(machine_.sales().Vend({.no_cup = true}, Payment::kKey, {}), "");
  Pass(300ms);
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Get(1, 549) & 224, 0u);
    Pass(100ms);
  }
}

TEST_F(DrinksOutputsTest, StirrersGoWithSugarWithPowdersOrAlwaysAsTheOptionsSay) {
  struct {
    std::uint32_t options, command, milk;
    bool stirrer;
  } const drinks[] = {{0, 2, 0, true},   {0, 3, 0, false}, {16, 3, 0, false}, {16, 3, 5, true},
                      {16, 4, 5, false}, {0, 3, 5, false}, {32, 3, 0, true}};
  for (const auto& drink : drinks) {
    Hold({{170, 40}, {46, drink.options}, {280, drink.milk}});
    Test(drink.command, 1);
    Pass(900ms);
    EXPECT_EQ((Get(1, 549) & 128) != 0, drink.stirrer) << drink.options << " " << drink.command;
    Pass(5s);
  }
}

TEST_F(DrinksOutputsTest, DoubleMilkExtraMilkAndExtraSugarRunLonger) {
  Hold({{170, 4}, {280, 10}, {434, 5}, {25, 3}, {26, 4}, {34, 1}});
  Set(0, 84, 4 + 8);
  const auto motors = [&](const Order& order) {
    EXPECT_EQ(machine_.sales().Vend(order, Payment::kKey, {}), "");
    std::pair<int, int> tenths{};
    Pass(350ms);
    for (int i = 0; i < 60; ++i) {
      tenths.first += (Get(1, 549) & 16) != 0;
      tenths.second += (Get(1, 549) & 1) != 0;
      Pass(100ms);
    }
    return tenths;
  };
  EXPECT_EQ(motors({}), (std::pair{5, 10}));
  EXPECT_EQ(motors({.extra_sugar = true, .extra_milk = true}), (std::pair{8, 14}));
  Set(1, 47, 1);
  EXPECT_EQ(motors({}), (std::pair{5, 20}));
  EXPECT_EQ(motors({.extra_milk = true}), (std::pair{5, 24}));
}

TEST_F(DrinksOutputsTest, ASinglePartRunsItsMotorAndItsMixer) {
  struct {
    std::uint32_t code;
    int record;
    Outputs running;
  } const parts[] = {
      {66, 280, {16, 12}}, {68, 302, {17, 13}}, {72, 324, {18}}, {80, 346, {19}}, {192, 434, {20}}};
  for (const auto& part : parts) {
    Set(1, part.record + 5, 10);
    Start(7, 5, part.code);
    EXPECT_EQ(Running(), part.running) << part.code;
    EXPECT_EQ(Get(1, 550), 7u);
    Pass(1s);
    EXPECT_EQ(On(), Outputs{}) << part.code;
  }
}

TEST_F(DrinksOutputsTest, ABrokenPartHoldsItsOutputUntilItsTimeout) {
  Hold({{148, 40}, {32, 3}});
  machine_.defects().Break("pump");
  Start(2, 1);
  Pass(2900ms);
  EXPECT_TRUE(Running().contains(5));
  Pass(100ms);
  EXPECT_EQ(On(), Outputs{});
}

TEST_F(DrinksOutputsTest, TheHeaterIsNotTheDrinks) {
  Hold({{148, 40}, {24, 92}});
  machine_.Set(1, 542, 22);
  Pass(2s);
  ASSERT_EQ(On(), Outputs{6});
  Test(2, 1);
  Pass(1s);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(On(), Outputs{6}) << "at the end of the drink";
  Pass(5s);
  EXPECT_EQ(On(), Outputs{6});
}

TEST_F(DrinksOutputsTest, ARestartPutsThemOff) {
  Hold({{148, 400}});
  Test(2, 1);
  Pass(1s);
  machine_.Restart();
  EXPECT_EQ(On(), Outputs{});
  EXPECT_EQ(Get(1, 544) & 130, 130u);
  EXPECT_EQ(Pulses(5s), 0);
}

TEST_F(DrinksOutputsTest, TheFlowMeterPulsesWithTheWater) {
  Hold({{434, 20}, {148, 70}});
  EXPECT_EQ(Pulses(1s), 0);
  Test(2, 1);
  EXPECT_EQ(Pulses(2s), 1) << "none with the sugar, the first with the water";
  EXPECT_EQ(Pulses(1700ms), 9);
  Pass(200ms);
  EXPECT_EQ(Get(1, 544) & 128, 128u);
  EXPECT_EQ(Pulses(2s), 0);
}

TEST_F(DrinksOutputsTest, TheFlowMeterPulsesWithAPumpThatTheToolDrives) {
  machine_.Write(1, 536, 60);
  machine_.Write(1, 535, 1);
  machine_.Write(1, 536, 32);
  machine_.Write(1, 537, 1);
  machine_.Write(1, 535, 2);
  EXPECT_TRUE(Doser());
  EXPECT_GE(Pulses(2s), 10);
  machine_.defects().Break("flow-meter");
  Pass(200ms);
  EXPECT_EQ(Pulses(2s), 0);
  machine_.defects().Mend("flow-meter");
  Pass(1s);
  EXPECT_GE(Pulses(2s), 10) << "goes on once it is mended";
  Pass(1s);
  EXPECT_GE(Pulses(2s), 10) << "goes on once it is mended";
  machine_.Write(1, 537, 0);
  machine_.Write(1, 535, 2);
  EXPECT_FALSE(Doser());
  EXPECT_GE(Pulses(2s), 10);
  machine_.Write(1, 536, 0);
  machine_.Write(1, 535, 1);
  Pass(200ms);
  EXPECT_EQ(Get(1, 544) & 128, 128u);
  EXPECT_EQ(Pulses(2s), 0) << "leaving the test puts the pump off";
}

}  // namespace
}  // namespace machine
