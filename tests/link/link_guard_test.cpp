// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes that cannot be the reply are never taken for it. Two zero bytes pass the check of a one-byte read, so
// zeros are the noise of choice here.
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkGuard : public LinkFixture {
 protected:
  // Node 0 with record 4, which the machine holds as 57; not yet asked for.
  LinkGuard() {
    Records(0, 10);
    Board().Set(0, 4, 57);
  }
  void Ask() { Subscribe(0, 4); }
  // Sends the request for record 4 now.
  void SendNow() {
    Ask();
    NodeIndex = 0;
    ScanCursor = 0;
    LinkScan();
  }
  bool ReplyCame() {
    return host_.RunUntil([] { return LinkIdle; }, milliseconds(900));
  }
  std::vector<double> Values() {
    std::vector<double> values;
    for (const auto& arrival : Arrivals()) {
      values.push_back(arrival.value);
    }
    return values;
  }
};

TEST_F(LinkGuard, BytesOnAnIdleLineAnswerNothing) {
  ExchControl = 0;
  ExchLength = 0;
  Noise({0, 0, 0, 0});
  host_.RunFor(milliseconds(10));
  EXPECT_EQ(host_.InputCount(), 0U);
  EXPECT_TRUE(host_.frames.empty());
  EXPECT_TRUE(host_.lamps.empty());
  EXPECT_EQ(host_.status_text_clears, 0);
  EXPECT_EQ(RetryCount, 0);
  EXPECT_EQ(ScanCursor, 0);
}

TEST_F(LinkGuard, BytesOnAnIdleLineAreNotCountedTowardTheNextReply) {
  Noise({9});
  host_.RunFor(milliseconds(100));
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  EXPECT_EQ(host_.frames.size(), 1U);
}

TEST_F(LinkGuard, AReplyOnALineThatIsNotYetQuietCountsAsBad) {
  Noise({9});
  host_.RunFor(microseconds(521 + 19999));  // the byte came 19.999 ms ago
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(Values(), (std::vector<double>{57}));
}

TEST_F(LinkGuard, ALineIsQuietTwentyMillisecondsAfterAStrayByte) {
  Noise({9});
  host_.RunFor(microseconds(521 + 20000));
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(host_.frames.size(), 1U);
}

TEST_F(LinkGuard, BytesThatWaitAsARequestLeavesAreNoPartOfItsReply) {
  host_.board = nullptr;
  host_.chunk = 2;
  Noise({57});
  host_.Send({57}, milliseconds(30));
  host_.RunFor(milliseconds(1));
  ASSERT_EQ(host_.InputCount(), 1U);
  SendNow();
  host_.RunFor(milliseconds(100));
  EXPECT_TRUE(Arrivals().empty());
}

TEST_F(LinkGuard, AReplyBehindBytesThatWaitedAsTheRequestLeftCountsAsBad) {
  host_.board = nullptr;
  host_.chunk = 2;
  Noise({0, 0, 0});
  host_.RunFor(microseconds(600));
  ASSERT_EQ(host_.InputCount(), 1U);
  SendNow();
  host_.RunFor(milliseconds(10));
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_EQ(host_.frames.size(), 2U);
}

TEST_F(LinkGuard, AnEventWithoutBytesIsNoByteOnAnIdleLine) {
  ReceiveEvent();
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(host_.frames.size(), 1U);
}

TEST_F(LinkGuard, AnEventWithoutBytesIsNoReply) {
  Put(0, 4, 5);
  NodeIndex = 0;
  LinkScan();
  ReceiveEvent();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(Values(), (std::vector<double>{5}));
}

TEST_F(LinkGuard, AnEventWithoutBytesIsNoLeftover) {
  ScriptedBoard script;
  script.replies = {{9, 8}, {57, 57}};
  host_.board = &script;
  SendNow();
  ASSERT_TRUE(host_.RunUntil([&] { return host_.frames.size() == 2; }, milliseconds(100)));
  ReceiveEvent();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(host_.frames.size(), 2U);
}

TEST_F(LinkGuard, AFloodOfZerosThatBeginsOnAnIdleLineIsNeverTakenForAValue) {
  Noise(Bytes(2000, 0));  // about a second
  Ask();
  StartScan();
  host_.RunFor(milliseconds(1000));
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_GT(host_.frames.size(), 5U);
  host_.RunFor(milliseconds(2000));
  EXPECT_EQ(Values(), (std::vector<double>{57}));
}

TEST_F(LinkGuard, AFloodIsNeverTakenForAValueHoweverItsBytesAreGathered) {
  // Adapters hand over what has come in pieces of any size.
  for (const std::size_t chunk : {1, 2, 3, 5, 8, 16, 31, 62, 500}) {
    SCOPED_TRACE(chunk);
    host_.chunk = chunk;
    Noise(Bytes(20000, 0));  // about ten seconds
    host_.RunFor(WireTime(chunk));
    Ask();
    StartScan();
    host_.RunFor(milliseconds(9000));
    EXPECT_TRUE(Arrivals().empty());
    EXPECT_LE(host_.InputCount(), chunk);
    host_.RunFor(milliseconds(5000));
    EXPECT_EQ(Values(), (std::vector<double>{57}));
    Arrivals().clear();
  }
}

TEST_F(LinkGuard, AFloodOfZerosIsNeverTakenForTheEchoOfAWrite) {
  Put(0, 4, 124);  // 128 + 4 + 124 = 256: checksum 0, echo 0
  Noise(Bytes(400, 0));
  host_.RunFor(milliseconds(1));
  Board().absent = {0};
  StartScan();
  host_.RunFor(milliseconds(150));
  EXPECT_TRUE(Arrivals().empty());
}

TEST_F(LinkGuard, LeftoversOfABrokenReplyAreNotTakenForTheRepeatedOne) {
  // Noise before the reply: the first two bytes fail, the rest would pass with the first byte of the next.
  ScriptedBoard script;
  script.replies = {{9, 8, 0, 0}, {33, 33}, {57, 57}};
  host_.board = &script;
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  EXPECT_EQ(host_.frames.size(), 3U);
}

TEST_F(LinkGuard, ARepeatedRequestWithoutLeftoversTakesItsReply) {
  ScriptedBoard script;
  script.latency = microseconds(0);
  script.replies = {{9, 8}, {57, 57}};
  host_.board = &script;
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  EXPECT_EQ(host_.frames.size(), 2U);
}

TEST_F(LinkGuard, LeftoversCountUntilTheRepeatedRequestHasLeft) {
  // A read of the main board takes 5 x 521 us. A byte just before its end is a leftover, one after it is not.
  for (const auto& [delay, frames] : {std::pair(2604 - 521, 3U), std::pair(2605 - 521, 2U)}) {
    SCOPED_TRACE(delay);
    host_.frames.clear();
    ScriptedBoard script;
    script.latency = milliseconds(50);
    script.replies = {{9, 8}};
    host_.board = &script;
    SendNow();
    ASSERT_TRUE(host_.RunUntil([&] { return host_.frames.size() == 2; }, milliseconds(100)));
    host_.Send({57}, microseconds(delay));
    host_.Send({57, 57, 57}, milliseconds(20));
    ASSERT_TRUE(host_.RunUntil([&] { return LinkIdle || host_.frames.size() == 3; }, milliseconds(100)));
    EXPECT_EQ(host_.frames.size(), frames);
    host_.RunFor(milliseconds(3000));
    LinkIdle = true;
    host_.DisableTimer(LinkTimer::Timer2);
  }
}

TEST_F(LinkGuard, ARepeatedForwardedWriteLeavesInItsOwnTime) {
  // 7 + 2 bytes: 9 x 521 us.
  Records(1, 10);
  Record(1, 4, {.length = 2});
  ScriptedBoard script;
  script.latency = milliseconds(50);
  script.replies = {{1}};
  host_.board = &script;
  Put(1, 4, 5);
  LinkScan();
  ASSERT_TRUE(host_.RunUntil([&] { return host_.frames.size() == 2; }, milliseconds(100)));
  const int retries = RetryCount;
  host_.Send({0x66}, microseconds(9 * 521 - 1 - 521));
  host_.RunFor(microseconds(9 * 521));
  EXPECT_EQ(host_.InputCount(), 0U);
  EXPECT_EQ(RetryCount, retries);  // dropped, not judged
  EXPECT_EQ(host_.frames.size(), 2U);
}

// A port that is faster than 19200 bit/s; the board's second reply comes before a request could have left.
class EarlyReply : public LinkGuard {
 protected:
  EarlyReply() {
    host_.at_wire_pace = false;
    host_.board = &script_;
    script_.latency = microseconds(1000);
    Ask();
    StartScan();
    Records(0, 10, {.period = 1});
  }
  // Runs ticks until the line has been asked so many times.
  bool Asked(std::size_t requests) {
    return host_.RunUntil([&] { return host_.frames.size() == requests; }, milliseconds(3000));
  }

  ScriptedBoard script_;
};

TEST_F(EarlyReply, CostsNoSecond) {
  script_.replies = {{9, 8}, {57, 57}, {57, 57}};
  ASSERT_TRUE(host_.RunUntil([&] { return !Arrivals().empty(); }, milliseconds(3000)));
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  EXPECT_EQ(host_.frames.size(), 3U);
  EXPECT_EQ(host_.Now(), milliseconds(40 + 120 + 1));  // asked anew at the first tick after 100 ms of silence
  EXPECT_EQ(host_.reopens, 0);
}

TEST_F(EarlyReply, IsNotTrusted) {
  script_.replies = {{9, 8}, {33, 33}};
  host_.RunFor(milliseconds(1100));
  EXPECT_TRUE(Arrivals().empty());
}

TEST_F(EarlyReply, CostsNoSecondWhenPartOfItComesInTime) {
  script_.replies = {{9, 8}};
  ASSERT_TRUE(Asked(2));
  host_.Send({57}, microseconds(2000));
  host_.At(host_.Now() + milliseconds(30), [&] { host_.Send({57}); });
  script_.replies = {{}, {57, 57}};
  ASSERT_TRUE(host_.RunUntil([&] { return !Arrivals().empty(); }, milliseconds(3000)));
  EXPECT_LT(host_.Now(), milliseconds(300));
  EXPECT_EQ(Values(), (std::vector<double>{57}));
}

TEST_F(EarlyReply, IsNotOverWhileBytesTrickleIn) {
  script_.replies = {{9, 8}, {57, 57}};
  ASSERT_TRUE(Asked(2));
  const microseconds repeated = host_.Now();
  host_.At(repeated + milliseconds(95), [&] { host_.Send({57}); });
  ASSERT_TRUE(Asked(3));
  EXPECT_GE(host_.Now() - repeated, milliseconds(195));
}

TEST_F(EarlyReply, IsForgottenWhenTheRequestIsRepeatedForAnotherReason) {
  script_.replies = {{9, 8}, {57, 57}};
  ASSERT_TRUE(Asked(2));
  host_.At(host_.Now() + milliseconds(50), [&] { host_.Send({1, 2}); });
  ASSERT_TRUE(Asked(3));
  host_.Send({57, 57}, milliseconds(200));
  ASSERT_TRUE(host_.RunUntil([&] { return !Arrivals().empty(); }, milliseconds(3000)));
  EXPECT_EQ(host_.frames.size(), 3U);
}

TEST_F(EarlyReply, LeavesTheRequestAskedAnewAWholeSecond) {
  script_.replies = {{9, 8}, {57, 57}};
  ASSERT_TRUE(Asked(3));
  host_.Send({57, 57}, milliseconds(990));
  ASSERT_TRUE(host_.RunUntil([&] { return !Arrivals().empty(); }, milliseconds(3000)));
  EXPECT_EQ(host_.reopens, 0);
}

TEST_F(EarlyReply, IsAskedAnewOnItsOwnNode) {
  Unsubscribe(0, 4);
  Records(1, 10);
  Subscribe(1, 4);
  script_.replies = {{9, 8}, {57, 57}};
  ASSERT_TRUE(Asked(2));
  host_.RunFor(milliseconds(5));
  NodeIndex = 0;  // as a form leaves it
  ASSERT_TRUE(Asked(3));
  EXPECT_EQ(host_.frames[2].bytes, host_.frames[0].bytes);
}

TEST_F(EarlyReply, HoldsUpNothingAfterATimeOut) {
  Subscribe(0, 5);
  script_.replies = {{9, 8}, {57, 57}};
  ASSERT_TRUE(host_.RunUntil([&] { return host_.reopens == 1; }, milliseconds(3000)));
  host_.frames.clear();
  script_.replies.assign(9, {57, 57});
  host_.RunFor(milliseconds(40 * 12));
  ASSERT_GE(host_.frames.size(), 3U);
}

TEST_F(EarlyReply, HoldsUpOnlyTheNextRequest) {
  At(0, 5).Period = 0;
  At(0, 6).Period = 0;
  At(0, 7).Period = 0;
  for (const int index : {5, 6, 7}) {
    Subscribe(0, index);
  }
  script_.replies = {{9, 8}, {57, 57}, {57, 57}, {5, 5}, {6, 6}, {7, 7}};
  ASSERT_TRUE(Asked(6));
  EXPECT_EQ(host_.frames[4].time - host_.frames[3].time, milliseconds(40));
  EXPECT_EQ(host_.frames[5].time - host_.frames[4].time, milliseconds(40));
}

TEST_F(EarlyReply, ThatComesTwiceHoldsUpTheNextRequestFromTheFirstTimeOn) {
  At(0, 5).Period = 0;
  Subscribe(0, 5);
  script_.replies = {{9, 8}, {57, 57}, {9, 8}, {57, 57}, {57, 57}, {5, 5}};
  ASSERT_TRUE(Asked(2));
  const microseconds repeated = host_.Now();
  ASSERT_TRUE(host_.RunUntil([] { return LinkIdle; }, milliseconds(3000)));
  const microseconds answered = host_.Now();
  ASSERT_TRUE(Asked(6));
  EXPECT_GE(host_.Now() - answered, answered - repeated);
}

TEST_F(EarlyReply, CountsAsABadReply) {
  script_.replies = {{9, 8}, {57, 57}, {9, 8}, {57, 57}, {57, 57}};
  ASSERT_TRUE(Asked(5));
  EXPECT_EQ(RetryCount, 4);
  host_.RunFor(milliseconds(20));  // the fifth reply ends the exchange, good as it is
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_TRUE(LinkIdle);
  EXPECT_EQ(RetryCount, 0);
}

TEST_F(EarlyReply, AsAFifthReplyEndsTheExchange) {
  script_.replies = {{9, 8}, {9, 8}, {9, 8}, {9, 8}, {57, 57}};
  script_.latency = microseconds(2700);
  ASSERT_TRUE(Asked(5));
  script_.latency = microseconds(1000);
  host_.Send({57, 57}, microseconds(500));
  host_.RunFor(milliseconds(150));
  EXPECT_TRUE(LinkIdle);
  EXPECT_EQ(RetryCount, 0);
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_EQ(host_.reopens, 0);
}

TEST_F(EarlyReply, ASlowBoardIsWaitedForAsLongAsItMayAnswerTwice) {
  // The broken reply leaves two bytes behind; the board needs 150 ms, and so answers the request that was
  // asked anew after the one that was repeated.
  At(0, 5).Period = 0;
  Subscribe(0, 5);
  host_.board = nullptr;
  ASSERT_TRUE(Asked(1));
  host_.Send({9, 8, 33, 33}, milliseconds(5));
  host_.RunFor(milliseconds(6));
  ASSERT_EQ(host_.frames.size(), 2U);
  const microseconds repeated = host_.Now();
  host_.Send({57, 57}, milliseconds(149));
  ASSERT_TRUE(Asked(3));
  host_.Send({57, 57}, milliseconds(150));
  ASSERT_TRUE(host_.RunUntil([&] { return !Arrivals().empty(); }, milliseconds(500)));
  const microseconds answered = host_.Now();
  ASSERT_TRUE(Asked(4));
  EXPECT_EQ(host_.frames[3].bytes, (Bytes{0, 0, 0, 5, 5}));
  EXPECT_GE(host_.Now() - answered, answered - repeated);
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  host_.RunFor(milliseconds(39));
  EXPECT_EQ(Arrivals().size(), 1U);
}

TEST_F(LinkGuard, ABoardThatAnswersAtOnceIsBelievedOnAQuietLine) {
  Board().latency = microseconds(0);
  SendNow();
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  EXPECT_EQ(host_.frames.size(), 1U);
}

TEST_F(LinkGuard, AReplyInsideTheTimeOfAFirstRequestIsBelieved) {
  host_.board = nullptr;
  SendNow();
  Noise({57, 57});
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(Values(), (std::vector<double>{57}));
}

TEST_F(LinkGuard, ARequestAfterATimeOutHasNoLeftovers) {
  At(0, 4).Period = 2;
  ScriptedBoard script;
  script.replies = {{9, 8}};  // the repeated request stays without an answer and times out
  host_.board = &script;
  SendNow();
  ASSERT_TRUE(host_.RunUntil([&] { return host_.reopens == 1; }, milliseconds(1100)));
  ASSERT_EQ(host_.frames.size(), 3U);
  Noise({57, 57});
  ASSERT_TRUE(ReplyCame());
  EXPECT_EQ(Values(), (std::vector<double>{57}));
}

TEST_F(LinkGuard, ASurplusByteAfterAGoodReplyIsDroppedInSilence) {
  ScriptedBoard script;
  script.replies = {{57, 57, 0}};
  host_.board = &script;
  SendNow();
  ASSERT_TRUE(ReplyCame());
  host_.RunFor(milliseconds(100));
  EXPECT_EQ(Values(), (std::vector<double>{57}));
  EXPECT_EQ(host_.LampOn(4), 3);
  EXPECT_EQ(host_.InputCount(), 0U);
}

}  // namespace
}  // namespace dosmara
