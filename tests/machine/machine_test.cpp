// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine answers, and when.
#include "machine/machine.h"

#include <random>

#include "machine_fixture.h"

namespace machine {
namespace {

constexpr Time kCharacter{520833};

TEST_F(MachineTest, AnswersAReadWithTheValueAndItsSum) {
  Set(0, 5, 77);
  EXPECT_EQ(Ask({0, 1, 0, 5, 6}), (Bytes{77, 77}));
}

TEST_F(MachineTest, AnswersAReadOfTwoBytesLeastSignificantFirst) {
  Set(1, 148, 1000);
  EXPECT_EQ(Ask({241, 1, 0, 148, 1, 81, 216}), (Bytes{232, 3, 235}));
}

TEST_F(MachineTest, SumsModulo256) {
  Set(1, 148, 0xC0FF);
  EXPECT_EQ(Ask({241, 1, 0, 148, 1, 81, 216}), (Bytes{0xFF, 0xC0, 0xBF}));
}

TEST_F(MachineTest, AnswersAWriteWithTwiceItsCheckAndHoldsTheValue) {
  EXPECT_EQ(Ask({128, 1, 0, 5, 9, 143}), Bytes{30});
  EXPECT_EQ(Get(0, 5), 9u);
  EXPECT_EQ(Ask({242, 1, 0, 7, 128, 86, 5, 213}), Bytes{170});
  EXPECT_EQ(Get(2, 7), 5u);
  EXPECT_EQ(Get(3, 7), 0u);
}

TEST_F(MachineTest, AnswersZeroToAWriteWithCheck128) { EXPECT_EQ(Ask({128, 1, 0, 5, 250, 128}), Bytes{0}); }

TEST_F(MachineTest, ReadsBackWhatAFrameWrote) {
  Ask({243, 1, 0, 148, 129, 81, 232, 3, 69});
  EXPECT_EQ(Ask({241, 1, 0, 148, 1, 81, 216}), (Bytes{232, 3, 235}));
}

TEST_F(MachineTest, AnswersThePortTestWithTwoEqualBytes) { EXPECT_EQ(Ask({0, 0, 0, 0, 0}), (Bytes{0, 0})); }

TEST_F(MachineTest, SaysNothingToAnAddressThatNoBoardHas) {
  EXPECT_TRUE(Ask({0, 9, 0, 5, 14}).empty());
  EXPECT_TRUE(Ask({128, 9, 0, 5, 1, 143}).empty());
  EXPECT_TRUE(Ask({1, 1, 0, 5, 7}).empty()) << "the length in the control is part of the address";
  EXPECT_TRUE(Ask({241, 0, 0, 0, 0, 81, 66}).empty()) << "the port test is for node 0 alone";
}

TEST_F(MachineTest, TellsItsIdentification) {
  EXPECT_EQ(Ask({0, 2, 0, 11, 13}), (Bytes{14, 14}));
  EXPECT_EQ(Ask({0, 2, 0, 12, 14}), (Bytes{18, 18}));
  EXPECT_EQ(Ask({0, 2, 0, 13, 15}), (Bytes{0, 0}));
  EXPECT_EQ(Ask({0, 2, 0, 14, 16}), (Bytes{1, 1}));
  EXPECT_EQ(Ask({0, 2, 0, 17, 19}), (Bytes{1, 1}));
  EXPECT_EQ(Ask({0, 2, 0, 18, 20}), (Bytes{25, 25}));
}

TEST(Machine, AnswersAReadOfSixteenBytesWithSixteenBytes) {
  Boards boards;
  ASSERT_TRUE(boards[0].AddRecord({.bank = 1, .low = 1, .control = 15}, 0x04030201));
  Machine machine(std::move(boards), 1);
  machine.Receive(Bytes{15, 1, 0, 1, 17});
  machine.AdvanceTo(100ms);
  const auto sent = machine.TakeSent();
  ASSERT_EQ(sent.size(), 17u);
  EXPECT_EQ(sent[3].byte, 4);
  EXPECT_EQ(sent[4].byte, 0);
  EXPECT_EQ(sent[16].byte, 10);
}

TEST(Machine, StoresAtMostFourBytesOfAWriteToALongerValue) {
  Boards boards;
  ASSERT_TRUE(boards[0].AddRecord({.bank = 1, .low = 1, .control = 5}, 0));
  Machine machine(std::move(boards), 1);
  machine.Receive(Bytes{133, 1, 0, 1, 1, 2, 3, 4, 145});
  machine.AdvanceTo(100ms);
  const auto sent = machine.TakeSent();
  ASSERT_EQ(sent.size(), 1u);
  EXPECT_EQ(sent[0].byte, 34);
  EXPECT_EQ(machine.board(0).Get(1), 0x04030201u);
}

TEST_F(MachineTest, AReplyStartsAfterTheRequestCouldHaveArrivedAndKeepsThePaceOfTheLine) {
  machine_.Receive(Bytes{0, 1, 0, 5, 6});
  Pass(100ms);
  const auto sent = machine_.TakeSent();
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0].at, 5 * kCharacter + 1ms + kCharacter);
  EXPECT_EQ(sent[1].at, sent[0].at + kCharacter);
}

TEST_F(MachineTest, ABoardBehindTheMainBoardTakesLonger) {
  machine_.Receive(Bytes{241, 1, 0, 5, 0, 81, 72});
  Pass(100ms);
  const auto sent = machine_.TakeSent();
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0].at, 7 * kCharacter + 3ms + kCharacter);
}

TEST_F(MachineTest, BytesWrittenInPiecesTravelBehindEachOther) {
  machine_.Receive(Bytes{0, 1});
  machine_.Receive(Bytes{0, 5, 6});
  Pass(5 * kCharacter - Time(1));
  EXPECT_EQ(machine_.traffic().requests, 0u);
  Pass(Time(1));
  EXPECT_EQ(machine_.traffic().requests, 1u);
}

TEST_F(MachineTest, APauseOfThreeCharactersEndsARequest) {
  machine_.Receive(Bytes{0, 1, 0});
  Pass(3 * kCharacter + 3 * kCharacter);
  EXPECT_TRUE(Ask({5, 6}).empty());
  EXPECT_EQ(Ask({0, 1, 0, 5, 6}).size(), 2u) << "the rest of the first request is out of the way";
}

TEST_F(MachineTest, AShorterPauseDoesNot) {
  machine_.Receive(Bytes{0, 1, 0});
  Pass(3 * kCharacter + 3 * kCharacter - Time(1));
  EXPECT_EQ(Ask({5, 6}).size(), 2u);
}

TEST_F(MachineTest, NoSingleDamagedByteGetsAReply) {
  for (const Bytes& request :
       {Bytes{0, 1, 0, 5, 6}, Bytes{241, 1, 0, 5, 0, 81, 72}, Bytes{128, 1, 0, 5, 9, 143},
        Bytes{242, 1, 0, 7, 128, 86, 5, 213}, Bytes{243, 1, 0, 148, 129, 81, 232, 3, 69}}) {
    for (std::size_t at = 0; at < request.size(); ++at) {
      for (int change = 1; change < 256; ++change) {
        Bytes damaged = request;
        damaged[at] = static_cast<std::uint8_t>(damaged[at] ^ change);
        ASSERT_TRUE(Ask(damaged).empty()) << "byte " << at << " of a frame from " << int{request[0]};
      }
    }
  }
}

TEST_F(MachineTest, AMillionRandomBytesLeaveItInOrder) {
  std::mt19937 random(7);
  for (int burst = 0; burst < 1000; ++burst) {
    Bytes noise(1000);
    for (std::uint8_t& byte : noise) {
      byte = static_cast<std::uint8_t>(random() >> 24);
    }
    machine_.Receive(noise);
    Pass(1s);
  }
  EXPECT_GT(machine_.traffic().dropped_bytes, 900000u);
  machine_.TakeSent();
  EXPECT_EQ(Ask({0, 0, 0, 0, 0}), (Bytes{0, 0}));
}

TEST_F(MachineTest, MutedItHearsAndSaysNothing) {
  machine_.Mute(true);
  EXPECT_TRUE(Ask({128, 1, 0, 5, 9, 143}).empty());
  machine_.Mute(false);
  EXPECT_EQ(Ask({0, 1, 0, 5, 6}), (Bytes{0, 0}));
}

TEST_F(MachineTest, ARestartTakesBackAReplyThatHasNotLeft) {
  machine_.Receive(Bytes{0, 1, 0, 5, 6});
  Pass(6 * kCharacter);
  machine_.Restart();
  Pass(10s);
  EXPECT_TRUE(Sent().empty());
}

TEST_F(MachineTest, ARestartLosesWhatIsUnderWayAndKeepsValues) {
  Set(0, 5, 77);
  machine_.Receive(Bytes{0, 1, 0});
  Pass(2 * kCharacter);
  machine_.Restart();
  machine_.Receive(Bytes{0, 1, 0, 5, 6});
  Pass(1999ms);
  EXPECT_TRUE(Sent().empty()) << "it starts up for two seconds";
  Pass(1ms);
  EXPECT_EQ(Ask({0, 1, 0, 5, 6}), (Bytes{77, 77}));
}

}  // namespace
}  // namespace machine
