// SPDX-License-Identifier: GPL-3.0-or-later
// Constants of the model, such as how fast a boiler heats, are made up; these tests hold the directions and
// the limits that the settings ask for.
#include "machine/climate.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class ClimateTest : public MachineTest {
 protected:
  ClimateTest() {
    Set(0, 317, 4);
    machine_.alarms().Clear();
    Set(1, 24, 92);
    machine_.Set(1, 542, 91);
    for (const int node : {2, 3}) {
      const std::pair<int, std::uint32_t> settings[] = {{51, 5}, {52, 5}, {53, 20}, {54, 10},
                                                        {55, 3}, {56, 6}, {57, 15}};
      for (const auto& [record, value] : settings) {
        Set(node, record, value);
      }
      SetTank(node, 5.5);
    }
  }

  void SetTank(int node, double degrees) {
    machine_.Set(node, 287, static_cast<std::uint16_t>(static_cast<int>(degrees * 256)));
  }
  double Raw(int node) { return static_cast<std::int16_t>(Get(node, 287)) / 256.0; }
  bool Heater() { return (Get(1, 547) & 64) != 0; }
  bool Compressor(int node) { return (Get(node, 288) & 128) != 0; }
  std::uint32_t NewestAlarm() { return Get(0, 147 + 6 * static_cast<int>(Get(0, 86))); }

  // Lets time pass until `condition`, in seconds; a day at most.
  template <typename Condition>
  int SecondsUntil(Condition condition) {
    int seconds = 0;
    for (; seconds < 86400 && !condition(); ++seconds) {
      Pass(1s);
    }
    return seconds;
  }
};

TEST_F(ClimateTest, TheBoilerHeatsToTheTemperatureWanted) {
  machine_.Set(1, 542, 22);
  Pass(1s);
  EXPECT_TRUE(Heater());
  EXPECT_LT(SecondsUntil([&] { return Get(1, 542) == 92; }), 600);
  EXPECT_LT(SecondsUntil([&] { return !Heater(); }), 10);
}

TEST_F(ClimateTest, TheBoilerStaysWithinTwoDegreesOfIt) {
  for (const std::uint32_t wanted : {70u, 110u}) {
    machine_.Write(1, 24, wanted);
    Pass(6h);
    for (int minute = 0; minute < 60; ++minute) {
      Pass(1min);
      EXPECT_GE(Get(1, 542), wanted - 2);
      EXPECT_LE(Get(1, 542), wanted + 1);
    }
  }
}

TEST_F(ClimateTest, ADrinkCoolsTheBoiler) {
  Set(1, 148, 200);
  machine_.Set(1, 542, 92);
  ASSERT_EQ(machine_.dispenser().busy(), false);
  machine_.Write(0, 315, 1);
  machine_.Write(0, 314, 2);
  Pass(7s);
  EXPECT_LE(Get(1, 542), 90u);
}

TEST_F(ClimateTest, WhatIsNoDrinkLeavesTheBoilerWarm) {
  Set(1, 24, 70);
  Set(1, 148, 999);
  Set(1, 280, 1);
  machine_.Set(1, 542, 90);
  for (const std::uint32_t command : {7u, 2u}) {
    machine_.Write(0, 358, 86);
    machine_.Write(0, 315, command == 7 ? 0 : 39);
    machine_.Write(0, 316, command == 7 ? 66 : 16);
    machine_.Write(0, 314, command);
    EXPECT_TRUE(machine_.dispenser().busy());
    Pass(4s);
  }
  EXPECT_EQ(Get(1, 542), 90u);
}

TEST_F(ClimateTest, ABrokenHeaterEndsInAColdBoilerAndOneAlarm) {
  machine_.defects().Break("heater");
  Pass(6h);
  EXPECT_LT(Get(1, 542), 60u);
  EXPECT_EQ(NewestAlarm(), 8u);
  EXPECT_EQ(Get(0, 86), 0u);
}

TEST_F(ClimateTest, AMachineThatIsHeatingUpHasNoAlarm) {
  machine_.Restart();
  Pass(1h);
  EXPECT_GT(NewestAlarm(), 203u);
}

TEST_F(ClimateTest, AStuckThermostatOverheatsWithOneAlarm) {
  machine_.defects().Break("thermostat");
  Pass(1h);
  EXPECT_EQ(Get(1, 542), 120u);
  EXPECT_EQ(NewestAlarm(), 9u);
  EXPECT_EQ(Get(0, 86), 0u);
}

TEST_F(ClimateTest, ATankIsCooledFromItsHysteresisDownToTheTemperatureWanted) {
  SetTank(2, 6.9);
  Pass(1s);
  EXPECT_FALSE(Compressor(2));
  SetTank(2, 7.0);
  Pass(1s);
  EXPECT_TRUE(Compressor(2));
  SecondsUntil([&] { return !Compressor(2); });
  EXPECT_NEAR(Raw(2), 5.0, 0.05);
  SecondsUntil([&] { return Compressor(2); });
  EXPECT_NEAR(Raw(2), 7.0, 0.05);
}

TEST_F(ClimateTest, TheSecondTankCoolsAndWarmsFaster) {
  const auto cycle = [this](int node) {
    SetTank(node, 7.0);
    Pass(1s);
    const int cooling = SecondsUntil([&] { return !Compressor(node); });
    return std::pair(cooling, SecondsUntil([&] { return Compressor(node); }));
  };
  const auto [cooling, warming] = cycle(2);
  const auto [faster_cooling, faster_warming] = cycle(3);
  EXPECT_LT(faster_cooling, cooling * 2 / 3);
  EXPECT_LT(faster_warming, warming * 2 / 3);
}

TEST_F(ClimateTest, TheUnitGoesByRawPlusOffset) {
  Set(2, 52, 8);
  SetTank(2, 4.1);
  Pass(1s);
  EXPECT_TRUE(Compressor(2));
  SecondsUntil([&] { return !Compressor(2); });
  EXPECT_NEAR(Raw(2), 2.0, 0.05);
}

TEST_F(ClimateTest, BelowZeroTheRawTemperatureIsTheComplement) {
  SetTank(3, -3);
  EXPECT_EQ(Get(3, 287), 65536u - 768u);
  Pass(10s);
  EXPECT_NEAR(Raw(3), -3, 0.05);
}

TEST_F(ClimateTest, SixteenSwitchesCoolingOff) {
  Set(2, 51, 16);
  SetTank(2, 20);
  Pass(2h);
  EXPECT_FALSE(Compressor(2));
  EXPECT_GT(NewestAlarm(), 203u);
}

TEST_F(ClimateTest, DefrostsAfterItsHoursForItsMinutes) {
  Set(2, 56, 2);
  Set(2, 57, 30);
  Set(2, 51, 1);
  Set(2, 53, 1);
  Pass(2h - 10s);
  EXPECT_LT(Raw(2), 1.3);
  Pass(20s);
  SetTank(2, 20);
  Pass(1min);
  EXPECT_FALSE(Compressor(2));
  Pass(28min);
  EXPECT_FALSE(Compressor(2));
  EXPECT_GT(Raw(2), 19.9);
  Pass(2min);
  EXPECT_TRUE(Compressor(2));
}

TEST_F(ClimateTest, ATankAboveItsBandForItsMinutesHasOneAlarm) {
  for (const int node : {2, 3}) {
    machine_.alarms().Clear();
    machine_.defects().Break("compressor-" + std::to_string(node));
    SetTank(node, 16);
    Pass(2min + 50s);
    EXPECT_GT(NewestAlarm(), 203u);
    Pass(1h);
    EXPECT_EQ(NewestAlarm(), node == 2 ? 22u : 23u);
    EXPECT_EQ(Get(0, 86), 0u);
    machine_.defects().Mend("compressor-" + std::to_string(node));
    SetTank(node, 5);
  }
}

TEST_F(ClimateTest, InTestModeTheToolHasTheCompressor) {
  SetTank(2, 12);
  machine_.Write(2, 285, 60);
  machine_.Write(2, 284, 1);
  Pass(10s);
  EXPECT_FALSE(Compressor(2));
  machine_.Write(2, 285, 128);
  machine_.Write(2, 286, 0);
  machine_.Write(2, 284, 2);
  Pass(10min);
  EXPECT_TRUE(Compressor(2));
  EXPECT_LT(Raw(2), 10);
}

TEST_F(ClimateTest, RunsAsManyTimesFasterAsTheMachinesDay) {
  machine_.SetSpeed(60);
  machine_.Set(1, 542, 22);
  Pass(10s);
  EXPECT_GE(Get(1, 542), 90u);
}

TEST_F(ClimateTest, AQuietMachineHasNoAlarmInADay) {
  Pass(24h);
  EXPECT_GT(NewestAlarm(), 203u);
}

}  // namespace
}  // namespace machine
