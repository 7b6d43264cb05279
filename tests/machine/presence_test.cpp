// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/presence.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class PresenceTest : public MachineTest {
 protected:
  // A read of record 5 of each board behind the main board.
  Bytes AskNode(int node) {
    constexpr std::uint8_t kLetters[] = {0, 81, 86, 87};
    return Ask(WithSum({241, 1, 0, 5, 0, kLetters[node]}));
  }
};

TEST_F(PresenceTest, AllBoardsAreThereAtFirst) {
  EXPECT_EQ(Get(0, 312), 4u);
  EXPECT_EQ(Get(0, 313), 4u);
  EXPECT_EQ(Get(0, 357), 4u);
  for (int node = 1; node <= 3; ++node) {
    EXPECT_EQ(AskNode(node).size(), 2u);
  }
}

TEST_F(PresenceTest, AnAbsentBoardIsSilentAndItsBitIsClear) {
  struct {
    int node, record;
  } const gates[] = {{1, 312}, {2, 313}, {3, 357}};
  for (const auto& gate : gates) {
    Set(0, gate.record, 255);
    machine_.presence().SetPresent(gate.node, false);
    EXPECT_EQ(Get(0, gate.record), 251u);
    EXPECT_TRUE(AskNode(gate.node).empty());
    for (int other = 1; other <= 3; ++other) {
      if (other == gate.node) {
        continue;
      }
      EXPECT_EQ(AskNode(other).size(), 2u);
    }
    machine_.presence().SetPresent(gate.node, true);
    EXPECT_EQ(Get(0, gate.record), 255u);
    EXPECT_EQ(AskNode(gate.node).size(), 2u);
  }
}

TEST_F(PresenceTest, ABoardThatIsClosedStillAnswers) {
  Set(0, 312, 0);
  EXPECT_EQ(AskNode(1).size(), 2u);
}

TEST_F(PresenceTest, ARestartLeavesAnAbsentBoardAbsent) {
  machine_.presence().SetPresent(2, false);
  machine_.Restart();
  Pass(3s);
  EXPECT_TRUE(AskNode(2).empty());
}

}  // namespace
}  // namespace machine
