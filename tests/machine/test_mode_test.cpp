// SPDX-License-Identifier: GPL-3.0-or-later
// What else the machine has to do while the tool drives its outputs, and when the tool is gone.
#include <string>

#include "console_fixture.h"

namespace machine {
namespace {

class TestModeTest : public ConsoleTest {
 protected:
  TestModeTest() {
    Set(0, 84, 4 + 32);
    Set(0, 317, 4);
    Set(1, 34, 1);
    Set(1, 148, 40);
    Set(1, 585, 60);
    Set(0, 358, 86);
    machine_.Set(1, 542, 91);
    Set(1, 24, 90);
    for (const int node : {2, 3}) {
      Set(node, 51, 16);
    }
  }
  void Command(int node, std::uint32_t data, std::uint32_t command) {
    machine_.Write(node, node == 1 ? 536 : 285, data);
    machine_.Write(node, node == 1 ? 535 : 284, command);
  }
  void Enter(int node) { Command(node, 60, 1); }
  void Leave(int node) { Command(node, 0, 1); }
  // All four output records of the drinks unit as one number, the first in its low byte.
  std::uint32_t Outputs() { return Get(1, 547) | Get(1, 548) << 8 | Get(1, 549) << 16 | Get(1, 550) << 24; }
  void SetTime(int record, std::uint32_t hour, std::uint32_t minute) {
    Set(0, record, minute);
    Set(0, record + 1, hour);
  }
};

TEST_F(TestModeTest, ASaleIsRefusedAndTheReasonTold) {
  for (const int node : {1, 2, 3}) {
    Enter(node);
    const std::string what = node == 1 ? "1" : std::to_string(node) + ":11";
    EXPECT_EQ(Run("vend " + what + " key"),
              "error: the board at node " + std::to_string(node) + " is in test mode");
    Leave(node);
    EXPECT_EQ(Run("vend " + what + " key"), "ok");
    Pass(5s);
  }
}

TEST_F(TestModeTest, TheCustomersWhoComeByThemselvesMoveNothing) {
  for (const int node : {1, 2, 3}) {
    Enter(node);
  }
  Command(1, 1, 2);
  machine_.sales().SetCustomers(3600);
  for (int second = 0; second < 600; ++second) {
    Pass(1s);
    ASSERT_EQ(Outputs(), 1u);
    ASSERT_EQ(Get(0, 317), 4u);
    ASSERT_EQ(Get(2, 288) | Get(2, 289) | Get(3, 288) | Get(3, 289), 0u);
  }
  EXPECT_EQ(Get(0, 124), 0u);
}

TEST_F(TestModeTest, AWashIsRefusedWithARemark) {
  SetTime(95, 6, 0);
  SetTime(320, 5, 59);
  Enter(1);
  Command(1, 1, 2);
  Pass(62s);
  EXPECT_EQ(Outputs(), 1u);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(machine_.remarks().refused(), 1u);
  Pass(2min);
  EXPECT_EQ(machine_.remarks().refused(), 1u) << "once";
}

TEST_F(TestModeTest, AWashThatRunsAlreadyLeavesTheOutputsToTheTool) {
  SetTime(95, 6, 0);
  SetTime(320, 5, 59);
  Pass(60s + 500ms);
  ASSERT_EQ(Get(1, 548), 16u + 32u + 128u);
  Enter(1);
  EXPECT_EQ(Outputs(), 0u);
  Command(1, 32, 2);
  Pass(5s);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Outputs(), 32u);
}

TEST_F(TestModeTest, ADrinkThatIsTakenJustBeforeLeavesTheOutputsToTheTool) {
  EXPECT_EQ(Run("vend 1 key"), "ok");
  Pass(100ms);
  Enter(1);
  Command(1, 16, 2);
  for (int i = 0; i < 50; ++i) {
    Pass(100ms);
    ASSERT_EQ(Outputs(), 16u);
  }
  EXPECT_FALSE(machine_.dispenser().busy());
}

TEST_F(TestModeTest, LeavingInTheMiddleOfADrinkLeavesNothingOnAtItsEnd) {
  Set(1, 148, 200);
  EXPECT_EQ(Run("vend 1 key"), "ok");
  Pass(2s);
  Enter(1);
  Command(1, 32 + 1, 2);
  Leave(1);
  EXPECT_EQ(Outputs(), 0u);
  Pass(10s);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Outputs() & ~64u, 0u) << "but for the heater, which is the machine's again";
}

TEST_F(TestModeTest, AProductThatComesLeavesTheSectorToTheTool) {
  EXPECT_EQ(Run("vend 2:34 key"), "ok");
  Pass(500ms);
  ASSERT_EQ(Get(2, 288), 4u);
  Enter(2);
  EXPECT_EQ(Get(2, 288), 0u);
  EXPECT_EQ(Get(2, 290), 3u) << "the motors still turn";
  machine_.Write(2, 285, 128 + 1);
  machine_.Write(2, 286, 2);
  machine_.Write(2, 284, 2);
  Pass(3s);
  EXPECT_EQ(Get(2, 288), 129u);
  EXPECT_EQ(Get(2, 289), 2u);
  EXPECT_EQ(Get(2, 290), 1u);
}

TEST_F(TestModeTest, TheHeaterIsTheTools) {
  Enter(1);
  Pass(2s);
  machine_.Set(1, 542, 40);
  Pass(1min);
  EXPECT_EQ(Outputs(), 0u) << "off though the boiler is cold";
  machine_.Set(1, 542, 100);
  Command(1, 64, 2);
  Pass(10s);
  EXPECT_EQ(Outputs(), 64u) << "on though it is hot";
  EXPECT_GT(Get(1, 542), 101u);
  Leave(1);
  Pass(2s);
  EXPECT_EQ(Outputs(), 0u);
  machine_.Set(1, 542, 40);
  Pass(1s);
  EXPECT_EQ(Outputs(), 64u) << "the machine's own again";
}

TEST_F(TestModeTest, AUnitThatVanishesComesBackAsItWas) {
  Enter(2);
  machine_.Write(2, 285, 128 + 4);
  machine_.Write(2, 286, 8);
  machine_.Write(2, 284, 2);
  EXPECT_EQ(Run("absent 2"), "ok");
  EXPECT_EQ(Get(0, 313), 0u);
  Enter(3);
  Pass(1min);
  EXPECT_EQ(Run("present 2"), "ok");
  EXPECT_EQ(Get(0, 313), 4u);
  EXPECT_EQ(Get(2, 290), 1u);
  EXPECT_EQ(Get(2, 288), 132u);
  EXPECT_EQ(Get(2, 289), 8u);
  EXPECT_EQ(Get(3, 290), 1u);
  Leave(2);
  EXPECT_EQ(Get(2, 290), 0u);
}

TEST_F(TestModeTest, AToolThatGoesWithoutLeavingIsFoundOutAndARestartHelps) {
  EXPECT_NE(Run("status").find(" testing none "), std::string::npos);
  for (const int node : {1, 3}) {
    Enter(node);
  }
  Command(1, 64 + 32, 2);
  Command(3, 128, 2);
  Pass(24h);
  EXPECT_EQ(Outputs(), 96u);
  EXPECT_EQ(Get(3, 288), 128u);
  EXPECT_EQ(Get(1, 542), 120u) << "boiling, and no hotter";
  EXPECT_LT(static_cast<std::int16_t>(Get(3, 287)) / 256, 0);
  EXPECT_NE(Run("status").find(" testing 1,3 "), std::string::npos);
  EXPECT_EQ(Run("vend 1 key"), "error: the board at node 1 is in test mode");
  EXPECT_EQ(Run("vend 2:11 key"), "ok") << "the other unit sells";
  machine_.Write(3, 284, 3);
  EXPECT_EQ(Get(3, 290), 3u) << "motors go to zero";
  Pass(8s);
  EXPECT_EQ(Get(3, 290), 1u);
  EXPECT_EQ(Run("restart"), "ok");
  Pass(3s);
  EXPECT_NE(Run("status").find(" testing none "), std::string::npos);
  EXPECT_EQ(Get(1, 547) & 32, 0u);
  EXPECT_EQ(Run("vend 1 key"), "ok");
}

}  // namespace
}  // namespace machine
