// SPDX-License-Identifier: GPL-3.0-or-later
// What happens when nothing comes back.
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkTimeOut : public LinkFixture {
 protected:
  LinkTimeOut() { Records(0, 10); }
  // Asks for record 4 of node 0 with this period; the request leaves at 40 ms.
  void AskFor(int period) {
    Record(0, 4, {.period = period});
    Subscribe(0, 4);
    StartScan();
  }
  void Mute() { Board().absent = {0, 1, 2, 3}; }
  // Sends the one request for record 4 right now, to a machine that does not answer.
  void AskInVainNow(int period) {
    Record(0, 4, {.period = period});
    Mute();
    Subscribe(0, 4);
    NodeIndex = 0;
    ScanCursor = 4;
    host_.frames.clear();
    LinkIdle = true;
    LinkScan();
  }
  std::vector<long> FrameMilliseconds() const {
    std::vector<long> times;
    for (const auto& frame : host_.frames) {
      times.push_back(frame.time.count() / 1000);
    }
    return times;
  }
};

TEST_F(LinkTimeOut, ComesOneSecondAfterTheRequest) {
  Mute();
  AskFor(0);
  host_.RunFor(microseconds(1039999));
  EXPECT_EQ(host_.reopens, 0);
  EXPECT_FALSE(LinkIdle);
  host_.RunFor(microseconds(1));
  EXPECT_EQ(host_.reopens, 1);
}

TEST_F(LinkTimeOut, ReadOnceRecordIsSentAgainByTheScan) {
  Mute();
  AskFor(0);
  host_.RunFor(milliseconds(2200));
  // The time-out at 1040 makes the link idle; the tick that is due then comes after it.
  EXPECT_EQ(FrameMilliseconds(), (std::vector<long>{40, 1040, 2040}));
  EXPECT_EQ(ScanCursor, 4);
}

TEST_F(LinkTimeOut, ReadOnceRecordIsPolledUntilTheValueComes) {
  Mute();
  AskFor(0);
  host_.RunFor(milliseconds(5500));
  EXPECT_EQ(At(0, 4).Flags, 6);
  Board().absent.clear();
  Board().Set(0, 4, 57);
  host_.RunFor(milliseconds(1000));
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 57}}));
}

TEST_F(LinkTimeOut, PeriodsWithBitValueTwoResendAtOnceAndForEverAsPrescribed) {
  for (const int period : {2, 3, 6, 7, 10, 11, 14, 15}) {
    SCOPED_TRACE(period);
    AskInVainNow(period);
    host_.RunFor(milliseconds(5500));
    EXPECT_EQ(host_.frames.size(), 6U);
    EXPECT_FALSE(LinkIdle);
    EXPECT_EQ(At(0, 4).Period, period * 17);
    Board().absent.clear();
    host_.RunFor(milliseconds(600));
    EXPECT_TRUE(LinkIdle);
    Unsubscribe(0, 4);
  }
}

TEST_F(LinkTimeOut, OtherPeriodsReturnThroughTheScanAndArePassedOver) {
  for (const int period : {1, 4, 5, 8, 9, 12, 13}) {
    SCOPED_TRACE(period);
    AskInVainNow(period);
    host_.RunFor(milliseconds(1000));
    EXPECT_EQ(host_.frames.size(), 1U);
    EXPECT_TRUE(LinkIdle);
    EXPECT_EQ(ScanCursor, 4);
    LinkScan();
    EXPECT_EQ(host_.frames.size(), 1U);
    EXPECT_EQ(At(0, 4).Period, period * 17 - 16);
    EXPECT_EQ(NodeIndex, 1);
    Unsubscribe(0, 4);
  }
}

TEST_F(LinkTimeOut, DoesNotChangeTheRetryCount) {
  AskFor(2);
  ScriptedBoard script;
  script.replies = {{1, 2}, {1, 2}};
  host_.board = &script;
  host_.RunFor(milliseconds(900));
  EXPECT_EQ(RetryCount, 2);
  host_.RunFor(milliseconds(3000));
  EXPECT_EQ(RetryCount, 2);
}

TEST_F(LinkTimeOut, AnsweredRequestsDoNotTimeOut) {
  AskFor(1);
  host_.RunFor(milliseconds(60000));
  EXPECT_EQ(host_.reopens, 0);
}

TEST_F(LinkTimeOut, ARepeatedRequestGetsAWholeSecondOfItsOwn) {
  ScriptedBoard script;
  script.latency = milliseconds(600);
  script.replies = {{1, 2}, {57, 57}};
  host_.board = &script;
  AskFor(0);
  host_.RunFor(milliseconds(1500));
  EXPECT_EQ(host_.reopens, 0);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 57}}));
}

TEST_F(LinkTimeOut, AnIncompleteReplyTimesOutAndItsBytesAreGone) {
  ScriptedBoard script;
  script.replies = {{57}, {58, 58}};
  host_.board = &script;
  AskFor(0);
  host_.RunFor(milliseconds(1500));
  EXPECT_EQ(host_.reopens, 1);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 58}}));
}

TEST_F(LinkTimeOut, AReplyThatArrivesAfterTheTimeOutOfAnIdleLinkIsLost) {
  Records(0, 10);
  Mute();
  AskFor(1);
  host_.RunFor(milliseconds(1041));  // timed out; the record waits for its next turn
  ASSERT_TRUE(LinkIdle);
  Noise({57, 57});
  host_.RunFor(milliseconds(30));
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_EQ(host_.InputCount(), 0U);
}

TEST_F(LinkTimeOut, AnExchangeOfAnotherNodeIsRepeatedOnThatNode) {
  Records(2, 10);
  Record(2, 4, {.period = 2});
  Mute();
  Subscribe(2, 4);
  StartScan();
  Ticks(3);
  ASSERT_EQ(host_.frames.size(), 1U);
  NodeIndex = 0;  // as a form leaves it
  host_.RunFor(milliseconds(1000));
  ASSERT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(host_.frames[1].bytes, host_.frames[0].bytes);
}

TEST_F(LinkTimeOut, RecoversByItselfWhenTheCableIsBack) {
  Board().Set(0, 4, 57);
  AskFor(1);
  host_.RunFor(milliseconds(500));
  const std::size_t before = Arrivals().size();
  host_.plugged = false;
  host_.RunFor(milliseconds(10000));
  EXPECT_LE(Arrivals().size(), before + 1);
  host_.plugged = true;
  host_.RunFor(milliseconds(2000));
  EXPECT_GT(Arrivals().size(), before + 1);
}

}  // namespace
}  // namespace dosmara
