// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/audit.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class AuditTest : public MachineTest {
 protected:
  AuditTest() {
    constexpr int kLast[] = {390, 600, 380, 380};
    for (int node = 0; node < 4; ++node) {
      for (int record = 1; record <= kLast[node]; ++record) {
        if (node != 0 || record < 310 || record > 320) {
          Set(node, record, 9);
        }
      }
    }
  }

  void ExpectCleared(int node, int first, int last) {
    for (int record = first; record <= last; ++record) {
      EXPECT_EQ(Get(node, record), 0u) << node << " " << record;
    }
  }
  void ExpectKept(int node, int first, int last) {
    for (int record = first; record <= last; ++record) {
      EXPECT_EQ(Get(node, record), 9u) << node << " " << record;
    }
  }
};

TEST_F(AuditTest, Command1ClearsWhatMayBeCleared) {
  Write(314, 1);
  ExpectKept(0, 1, 106);
  ExpectCleared(0, 107, 122);
  ExpectCleared(0, 124, 126);
  ExpectCleared(0, 128, 131);
  ExpectKept(0, 132, 309);
  ExpectKept(0, 321, 335);
  ExpectCleared(0, 336, 338);
  ExpectKept(0, 339, 356);
  ExpectKept(1, 1, 59);
  ExpectCleared(1, 60, 147);
  ExpectKept(1, 148, 600);
  for (const int unit : {2, 3}) {
    ExpectKept(unit, 1, 70);
    ExpectCleared(unit, 71, 214);
    ExpectKept(unit, 215, 380);
  }
}

TEST_F(AuditTest, Command1KeepsTheLifeTotals) {
  Write(314, 1);
  for (const int record : {123, 127, 332}) {
    ExpectKept(0, record, record);
  }
}

TEST_F(AuditTest, Command8ClearsTheLifeTotalsAsWell) {
  Write(314, 8);
  ExpectCleared(0, 107, 131);
  ExpectCleared(0, 332, 332);
  ExpectCleared(0, 336, 338);
  ExpectCleared(1, 60, 147);
}

TEST_F(AuditTest, OtherCommandsClearNothing) {
  for (const std::uint8_t command : {0, 5, 6, 9, 255}) {
    Write(314, command);
  }
  ExpectKept(0, 107, 131);
  ExpectKept(1, 60, 147);
}

class BusyAuditTest : public AuditTest {
 protected:
  // A test drink that takes longer than the commands behind it.
  BusyAuditTest() {
    Set(1, 541, 0);
    Set(1, 148, 250);
    machine_.Write(0, 315, 1);
    machine_.Write(0, 314, 2);
    EXPECT_TRUE(machine_.dispenser().busy());
  }
  void FinishDrink() {
    Pass(20s);
    EXPECT_FALSE(machine_.dispenser().busy());
  }
};

TEST_F(BusyAuditTest, ACommandWaitsForTheEndOfWhatIsHandedOutAndTakesItAlong) {
  Write(314, 1);
  ExpectKept(0, 107, 122);
  ExpectKept(1, 60, 147);
  FinishDrink();
  ExpectCleared(0, 107, 122);
  EXPECT_EQ(Get(0, 126), 0u) << "the test drink as well";
  ExpectCleared(1, 60, 147);
  EXPECT_NE(Get(0, 127), 0u) << "the life totals stay";
}

TEST_F(BusyAuditTest, OfTwoCommandsTheOneForAllIsKept) {
  for (const std::uint8_t command : {8, 1}) {
    Write(314, command);
  }
  FinishDrink();
  ExpectCleared(0, 107, 131);
}

TEST_F(BusyAuditTest, ACommandIsCarriedOutOnce) {
  Write(314, 1);
  FinishDrink();
  machine_.Write(0, 314, 2);
  FinishDrink();
  EXPECT_EQ(Get(0, 126), 1u);
}

TEST_F(BusyAuditTest, ADrinkThatFailsHoldsNothingUp) {
  machine_.Restart();
  Pass(5s);
  Set(1, 32, 1);
  machine_.defects().Break("pump");
  machine_.Write(0, 314, 2);
  ASSERT_TRUE(machine_.dispenser().busy());
  Write(314, 1);
  FinishDrink();
  ExpectCleared(0, 107, 122);
}

TEST_F(BusyAuditTest, ARestartHoldsNothingUp) {
  Write(314, 1);
  ExpectKept(0, 107, 122);
  machine_.Restart();
  ExpectCleared(0, 107, 122);
}

TEST_F(BusyAuditTest, ASaleUnderWayIsClearedWithTheRest) {
  FinishDrink();
  Set(0, 84, 4);
  Set(1, 34, 1);
  ASSERT_EQ(machine_.sales().Vend({}, Payment::kKey, {}), "");
  Write(314, 8);
  FinishDrink();
  ExpectCleared(0, 107, 131);
  ExpectCleared(1, 60, 147);
}

TEST_F(AuditTest, AnAbsentBoardKeepsItsCounters) {
  machine_.presence().SetPresent(2, false);
  Write(314, 1);
  ExpectKept(2, 71, 214);
  ExpectCleared(3, 71, 214);
}

TEST_F(MachineTest, ATestDrinkCountsAtItsEndAndAtItsSelection) {
  Set(1, 148 + 21, 40);
  for (const std::uint8_t command : {2, 3, 4}) {
    machine_.Write(0, 315, 22);
    machine_.Write(0, 314, command);
    Pass(2s);
    EXPECT_EQ(Get(0, 126), command - 2u);
    Pass(1s);
    EXPECT_EQ(Get(0, 126), command - 1u);
    EXPECT_EQ(Get(1, 147), command - 1u);
  }
  EXPECT_EQ(Get(0, 123), 0u);
  EXPECT_EQ(Get(1, 81), 0u);
}

TEST_F(MachineTest, ATestProductCountsAtItsPosition) {
  const std::pair<std::uint8_t, int> units[] = {{86, 2}, {87, 3}};
  for (const auto& [letter, node] : units) {
    machine_.Write(0, 358, letter);
    machine_.Write(0, 316, 96);
    machine_.Write(0, 315, 46);
    machine_.Write(0, 314, 2);
    Pass(3s);
    EXPECT_EQ(Get(node, 214), 1u);
  }
  EXPECT_EQ(Get(0, 126), 2u);
}

TEST_F(MachineTest, ATestOfOnePartIsNoVend) {
  Set(1, 280, 5);
  machine_.Write(0, 316, 66);
  machine_.Write(0, 314, 7);
  Pass(500ms);
  EXPECT_EQ(Get(0, 317) & 2, 2u);
  Pass(1s);
  EXPECT_EQ(Get(0, 126), 0u);
  EXPECT_EQ(Get(1, 126), 0u);
}

}  // namespace
}  // namespace machine
