// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/output_test.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class OutputTestTest : public MachineTest {
 protected:
  // Data first, then the command.
  void CommandUnit(int node, std::uint32_t command, std::uint32_t row, std::uint32_t column = 0) {
    machine_.Write(node, 285, row);
    machine_.Write(node, 286, column);
    machine_.Write(node, 284, command);
  }
  void CommandDrinksUnit(std::uint32_t command, std::array<std::uint32_t, 4> images) {
    for (int i = 0; i < 4; ++i) {
      machine_.Write(1, 536 + i, images[static_cast<std::size_t>(i)]);
    }
    machine_.Write(1, 535, command);
  }
  void EnterAll() {
    CommandDrinksUnit(1, {60, 0, 0, 0});
    CommandUnit(2, 1, 60);
    CommandUnit(3, 1, 60);
  }
  std::array<std::uint32_t, 4> DrinksUnitOutputs() {
    return {Get(1, 547), Get(1, 548), Get(1, 549), Get(1, 550)};
  }
  void ExpectSector(int node, std::uint32_t row, std::uint32_t column) {
    EXPECT_EQ(Get(node, 288), row);
    EXPECT_EQ(Get(node, 289), column);
  }
};

using Outputs = std::array<std::uint32_t, 4>;

TEST_F(OutputTestTest, SixtyEntersAndZeroLeaves) {
  EnterAll();
  EXPECT_EQ(Get(1, 541), 1u);
  EXPECT_EQ(Get(2, 290), 1u);
  EXPECT_EQ(Get(3, 290), 1u);
  CommandDrinksUnit(1, {0, 0, 0, 0});
  CommandUnit(2, 1, 0);
  EXPECT_EQ(Get(1, 541), 0u);
  EXPECT_EQ(Get(2, 290), 0u);
  EXPECT_EQ(Get(3, 290), 1u);
}

TEST_F(OutputTestTest, NothingHappensBeforeTheCommand) {
  machine_.Write(1, 536, 60);
  machine_.Write(2, 285, 60);
  EXPECT_EQ(Get(1, 541), 0u);
  EXPECT_EQ(Get(2, 290), 0u);
}

TEST_F(OutputTestTest, OtherDataNeitherEntersNorLeaves) {
  CommandDrinksUnit(1, {61, 0, 0, 0});
  EXPECT_EQ(Get(1, 541), 0u);
  EnterAll();
  CommandUnit(2, 1, 1);
  EXPECT_EQ(Get(2, 290), 1u);
}

TEST_F(OutputTestTest, AllFourOutputRecordsAreReadBackAsCommanded) {
  EnterAll();
  CommandDrinksUnit(2, {1, 130, 60, 5});
  EXPECT_EQ(DrinksUnitOutputs(), (Outputs{1, 130, 60, 5}));
  Pass(10s);
  EXPECT_EQ(DrinksUnitOutputs(), (Outputs{1, 130, 60, 5}));
}

TEST_F(OutputTestTest, OutsideOfTestModeOutputsAreNotTheTools) {
  CommandDrinksUnit(2, {1, 130, 60, 5});
  CommandUnit(2, 2, 1, 1);
  EXPECT_EQ(DrinksUnitOutputs(), (Outputs{0, 0, 0, 0}));
  ExpectSector(2, 0, 0);
}

TEST_F(OutputTestTest, EnteringAgainAndLeavingPutAllOutputsOff) {
  EnterAll();
  CommandDrinksUnit(2, {1, 2, 3, 4});
  CommandDrinksUnit(1, {60, 2, 3, 4});
  EXPECT_EQ(DrinksUnitOutputs(), (Outputs{0, 0, 0, 0}));
  EXPECT_EQ(Get(1, 541), 1u);
  CommandUnit(2, 2, 129, 1);
  CommandUnit(2, 1, 0, 1);
  ExpectSector(2, 0, 0);
}

TEST_F(OutputTestTest, EachSectorIsReadBackWithTheCompressor) {
  EnterAll();
  for (const int node : {2, 3}) {
    for (std::uint32_t row = 0; row < 6; ++row) {
      for (std::uint32_t column = 0; column < 8; ++column) {
        CommandUnit(node, 2, 1u << row, 1u << column);
        ExpectSector(node, 1u << row, 1u << column);
        CommandUnit(node, 2, 128u | 1u << row, 1u << column);
        ExpectSector(node, 128u | 1u << row, 1u << column);
      }
    }
  }
}

TEST_F(OutputTestTest, TheCompressorRunsWithoutASector) {
  EnterAll();
  CommandUnit(2, 2, 128, 0);
  ExpectSector(2, 128, 0);
  Pass(5s);
  ExpectSector(2, 128, 0);
}

TEST_F(OutputTestTest, OfSeveralSectorsOnlyTheLowestTurns) {
  EnterAll();
  CommandUnit(2, 2, 0b10001100, 0b11010000);
  ExpectSector(2, 0b10000100, 0b00010000);
  CommandUnit(2, 2, 64, 1);
  ExpectSector(2, 0, 1);
}

TEST_F(OutputTestTest, ARestartLeavesTestMode) {
  EnterAll();
  CommandDrinksUnit(2, {1, 2, 3, 4});
  machine_.Restart();
  EXPECT_EQ(Get(1, 541), 0u);
  EXPECT_EQ(Get(2, 290), 0u);
  EXPECT_EQ(DrinksUnitOutputs(), (Outputs{0, 0, 0, 0}));
}

TEST_F(OutputTestTest, ABoardInTestModeDispensesNothing) {
  Set(1, 148, 40);
  EnterAll();
  machine_.Write(0, 315, 1);
  machine_.Write(0, 314, 2);
  EXPECT_FALSE(machine_.dispenser().busy());
  machine_.Write(0, 358, 86);
  machine_.Write(0, 316, 16);
  machine_.Write(0, 315, 39);
  machine_.Write(0, 314, 2);
  EXPECT_FALSE(machine_.dispenser().busy());
}

TEST_F(OutputTestTest, ADrinkThatEndsInTestModeLeavesTheToolsOutputsAlone) {
  Set(1, 148, 40);
  machine_.Write(0, 315, 1);
  machine_.Write(0, 314, 2);
  Pass(1200ms);
  EXPECT_EQ(Get(1, 547) & 32, 32u);
  EnterAll();
  CommandDrinksUnit(2, {32, 0, 0, 0});
  Pass(5s);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Get(1, 547), 32u);
}

}  // namespace
}  // namespace machine
