// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/unit_motors.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class UnitMotorsTest : public MachineTest {
 protected:
  void EnterTest(int node) {
    machine_.Write(node, 285, 60);
    machine_.Write(node, 284, 1);
  }
  // A product from row 3, column 4 of a unit.
  void Vend(int node) {
    machine_.Write(0, 358, node == 2 ? 86 : 87);
    machine_.Write(0, 316, 3 * 16);
    machine_.Write(0, 315, 4 + 38);
    machine_.Write(0, 314, 2);
  }
  void ExpectSector(int node, std::uint32_t row, std::uint32_t column) {
    EXPECT_EQ(Get(node, 288), row);
    EXPECT_EQ(Get(node, 289), column);
  }
};

TEST_F(UnitMotorsTest, GoToZeroForEightSeconds) {
  for (const int node : {2, 3}) {
    machine_.Write(node, 284, 3);
    EXPECT_EQ(Get(node, 290), 2u);
    Pass(7999ms);
    EXPECT_EQ(Get(node, 290), 2u);
    Pass(1ms);
    EXPECT_EQ(Get(node, 290), 0u);
  }
}

TEST_F(UnitMotorsTest, GoToZeroInTestModeAsWellAndPutTheSectorOff) {
  EnterTest(2);
  machine_.Write(2, 285, 128 + 4);
  machine_.Write(2, 286, 8);
  machine_.Write(2, 284, 2);
  machine_.Write(2, 284, 3);
  EXPECT_EQ(Get(2, 290), 3u);
  ExpectSector(2, 128, 0);
  Pass(8s);
  EXPECT_EQ(Get(2, 290), 1u);
}

TEST_F(UnitMotorsTest, ASecondCommandDoesNotProlongTheFirst) {
  machine_.Write(2, 284, 3);
  Pass(6s);
  machine_.Write(2, 284, 3);
  Pass(2s);
  EXPECT_EQ(Get(2, 290), 0u);
  EXPECT_EQ(machine_.remarks().refused(), 0u);
}

TEST_F(UnitMotorsTest, OnlyTheCommandStartsThem) {
  machine_.Write(2, 284, 3);
  Pass(8s);
  machine_.Write(2, 285, 3);
  EXPECT_EQ(Get(2, 290), 0u);
}

TEST_F(UnitMotorsTest, ARestartStopsThem) {
  machine_.Write(3, 284, 3);
  machine_.Restart();
  EXPECT_EQ(Get(3, 290), 0u);
  Pass(5s);
  machine_.Write(3, 284, 3);
  EXPECT_EQ(Get(3, 290), 2u);
}

TEST_F(UnitMotorsTest, ABrokenMotorEndsItWithItsAlarmAfterItsTimeoutAndTheOtherMotors) {
  struct {
    std::uint32_t timeout;
    Time way;
  } const runs[] = {{120, 12s}, {60, 8s}, {0, 8s}};
  for (const auto& run : runs) {
    for (const int node : {2, 3}) {
      machine_.alarms().Clear();
      Set(node, 58, run.timeout);
      machine_.defects().Break("motor-" + std::to_string(node));
      machine_.Write(node, 284, 3);
      Pass(run.way - 1ms);
      EXPECT_EQ(Get(node, 290), 2u) << run.timeout;
      EXPECT_GT(Get(0, 147), 203u) << run.timeout;
      Pass(1ms);
      EXPECT_EQ(Get(node, 290), 0u) << run.timeout;
      EXPECT_EQ(Get(0, 147), 22u + static_cast<unsigned>(node)) << run.timeout;
    }
  }
}

TEST_F(UnitMotorsTest, AProductShowsItsSectorAndTheMotorsWhileItComes) {
  for (const int node : {2, 3}) {
    Set(node, 51, 16);
    Vend(node);
    Pass(299ms);
    EXPECT_EQ(Get(node, 290), 0u);
    Pass(1ms);
    EXPECT_EQ(Get(node, 290), 2u);
    ExpectSector(node, 4, 8);
    Pass(1499ms);
    EXPECT_EQ(Get(node, 290), 2u);
    Pass(1ms);
    EXPECT_EQ(Get(node, 290), 0u);
    ExpectSector(node, 0, 0);
  }
}

TEST_F(UnitMotorsTest, AProductLeavesTheCompressorAlone) {
  machine_.board(2).Set(288, 128);
  Vend(2);
  Pass(500ms);
  ExpectSector(2, 128 + 4, 8);
  Pass(300ms);
  machine_.board(2).Set(288, 128 + 4);
  Pass(1200ms);
  EXPECT_EQ(Get(2, 288) & 63, 0u);
}

TEST_F(UnitMotorsTest, ACommandDuringAProductWaitsForItsEnd) {
  Vend(2);
  Pass(100ms);
  machine_.Write(2, 284, 3);
  EXPECT_EQ(Get(2, 290), 0u);
  machine_.Write(3, 284, 3);
  EXPECT_EQ(Get(3, 290), 2u) << "the other unit has nothing to wait for";
  Pass(1700ms);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Get(2, 290), 2u);
  Pass(8s);
  EXPECT_EQ(Get(2, 290), 0u);
}

TEST_F(UnitMotorsTest, ACommandDuringAProductThatFailsIsCarriedOutAsWell) {
  Set(2, 58, 20);
  machine_.defects().Break("motor-2");
  Vend(2);
  Pass(1s);
  machine_.Write(2, 284, 3);
  machine_.defects().Mend("motor-2");
  Pass(1300ms);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Get(2, 290), 2u);
}

TEST_F(UnitMotorsTest, TheTurnOfASpiralCanBeMadeLonger) {
  machine_.dispenser().SetSpiralTurn(4s);
  Vend(3);
  Pass(4299ms);
  EXPECT_EQ(Get(3, 290), 2u);
  Pass(1ms);
  EXPECT_EQ(Get(3, 290), 0u);
}

}  // namespace
}  // namespace machine
