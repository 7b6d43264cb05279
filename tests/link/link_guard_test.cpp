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
    for (const auto& arrival : Arrivals()) values.push_back(arrival.value);
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
