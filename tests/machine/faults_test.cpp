// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/faults.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class FaultTest : public MachineTest {
 protected:
  FaultTest() { Set(0, 5, 77); }

  Bytes AskForRecord5() { return Ask({0, 1, 0, 5, 6}); }
  void Arm(std::string_view name) { machine_.faults().SetCount(FaultByName(name).value(), 1); }

  static inline const Bytes kGood = {77, 77};
};

TEST_F(FaultTest, CorruptSpoilsTheCheckAndNothingElse) {
  Arm("corrupt");
  const Bytes reply = AskForRecord5();
  ASSERT_EQ(reply.size(), 2u);
  EXPECT_EQ(reply[0], 77);
  EXPECT_NE(reply[1], 77);
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, CorruptSpoilsTheEchoOfAWriteThatIsCarriedOut) {
  Arm("corrupt");
  const Bytes reply = Ask({128, 1, 0, 5, 9, 143});
  ASSERT_EQ(reply.size(), 1u);
  EXPECT_NE(reply[0], 30);
  EXPECT_EQ(Get(0, 5), 9u);
}

TEST_F(FaultTest, LostCarriesTheRequestOutWithoutAReply) {
  Arm("lost");
  EXPECT_TRUE(Ask({128, 1, 0, 5, 9, 143}).empty());
  EXPECT_EQ(Get(0, 5), 9u);
  EXPECT_EQ(AskForRecord5(), (Bytes{9, 9}));
}

TEST_F(FaultTest, SilenceDoesNotCarryTheRequestOut) {
  Arm("silence");
  EXPECT_TRUE(Ask({128, 1, 0, 5, 9, 143}).empty());
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, SurplusAddsOneByteBehindTheReply) {
  Arm("surplus");
  const Bytes reply = AskForRecord5();
  ASSERT_EQ(reply.size(), 3u);
  EXPECT_EQ(Bytes(reply.begin(), reply.begin() + 2), kGood);
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, NoiseComesAheadOfTheReply) {
  Arm("noise");
  const Bytes reply = AskForRecord5();
  ASSERT_GE(reply.size(), 3u);
  ASSERT_LE(reply.size(), 5u);
  EXPECT_EQ(Bytes(reply.end() - 2, reply.end()), kGood);
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, LateRepliesAfterMoreThanASecond) {
  Arm("late");
  machine_.Receive(Bytes{0, 1, 0, 5, 6});
  Pass(1100ms);
  EXPECT_TRUE(Sent().empty());
  Pass(200ms);
  EXPECT_EQ(Sent(), kGood);
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, FloodSendsHundredsOfBytesInsteadOfTheReply) {
  Arm("flood");
  EXPECT_EQ(AskForRecord5().size(), 500u);
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, ACountStrikesThatManyReplies) {
  machine_.faults().SetCount(Fault::kLost, 3);
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(AskForRecord5().empty());
  }
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, ARateStrikesAboutThatShareOfTheReplies) {
  machine_.faults().SetRate(Fault::kLost, 0.25);
  int lost = 0;
  for (int i = 0; i < 1000; ++i) {
    lost += AskForRecord5().empty() ? 1 : 0;
  }
  EXPECT_GT(lost, 200);
  EXPECT_LT(lost, 300);
}

TEST_F(FaultTest, ARateOfOneStrikesEveryReply) {
  machine_.faults().SetRate(Fault::kLost, 1);
  for (int i = 0; i < 100; ++i) {
    ASSERT_TRUE(AskForRecord5().empty());
  }
}

TEST_F(FaultTest, ClearAllEndsEveryFault) {
  machine_.faults().SetRate(Fault::kLost, 1);
  machine_.faults().SetCount(Fault::kCorrupt, 5);
  machine_.faults().ClearAll();
  EXPECT_EQ(AskForRecord5(), kGood);
}

TEST_F(FaultTest, ARequestThatGetsNoReplyUsesNoFaultUp) {
  Arm("corrupt");
  Ask({0, 9, 0, 5, 14});
  EXPECT_TRUE(machine_.faults().Armed(Fault::kCorrupt));
}

std::vector<bool> Losses(std::uint32_t seed) {
  Faults faults(seed);
  faults.SetRate(Fault::kLost, 0.5);
  std::vector<bool> losses;
  for (int i = 0; i < 64; ++i) {
    losses.push_back(faults.Strikes(Fault::kLost));
  }
  return losses;
}

TEST(Faults, TheSameSeedGivesTheSameFaults) {
  EXPECT_EQ(Losses(3), Losses(3));
  EXPECT_NE(Losses(3), Losses(4));
}

TEST(Faults, AreKnownByName) {
  EXPECT_EQ(FaultByName("silence"), Fault::kSilence);
  EXPECT_EQ(FaultByName("lost"), Fault::kLost);
  EXPECT_EQ(FaultByName("late"), Fault::kLate);
  EXPECT_EQ(FaultByName("flood"), Fault::kFlood);
  EXPECT_EQ(FaultByName("noise"), Fault::kNoise);
  EXPECT_EQ(FaultByName("corrupt"), Fault::kCorrupt);
  EXPECT_EQ(FaultByName("surplus"), Fault::kSurplus);
  EXPECT_EQ(FaultByName("Lost"), std::nullopt);
}

}  // namespace
}  // namespace machine
