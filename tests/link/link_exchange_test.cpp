// SPDX-License-Identifier: GPL-3.0-or-later
// What a request carries, how its reply is judged, and what a finished exchange does to the record.
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkExchange : public LinkFixture {
 protected:
  // Puts a board on the line that says what the test tells it to.
  void Answer(std::deque<Bytes> replies) {
    script_.replies = std::move(replies);
    host_.board = &script_;
  }
  std::array<int, 4> Value(int node, int index) {
    const auto& value = At(node, index).Value;
    return {value[0], value[1], value[2], value[3]};
  }
  // Node 0 with one subscribed record, index 4, asked for at 40 ms.
  void AskFor(RecordPlan plan) {
    Records(0, 10);
    Record(0, 4, plan);
    Subscribe(0, 4);
    StartScan();
  }

  ScriptedBoard script_;
};

TEST_F(LinkExchange, RequestBearsAllFieldsOfTheRecord) {
  Records(0, 10);
  ParamRec& record = At(0, 4);
  record.AddrLo = 3;
  record.AddrHi = 2;
  record.Bank = 1;
  record.Control = 0x50;
  Subscribe(0, 4);
  StartScan();
  Ticks(1);
  EXPECT_EQ(host_.frames[0].bytes, (Bytes{0x50, 1, 2, 3, 0x56}));
  EXPECT_EQ(ExchChecksum, 0x56);
}

TEST_F(LinkExchange, HighNibbleOfControlHasNoPartInTheLength) {
  Answer({{1, 2, 3}});
  AskFor({.length = 2});
  At(0, 4).Control = 0x51;
  Ticks(2);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 513}}));
}

TEST_F(LinkExchange, ReplyReachesTheTableAndTheForms) {
  Board().Set(0, 4, 0x0403);
  AskFor({.length = 2});
  Ticks(2);
  EXPECT_EQ(Value(0, 4), (std::array{3, 4, 0, 0}));
  EXPECT_TRUE(ParamIsFresh(4, 0));
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 1027}}));
  EXPECT_TRUE(LinkIdle);
}

TEST_F(LinkExchange, ExchangeTakesTheWireTimeAndTheBoardsLatency) {
  AskFor({.length = 2});
  ASSERT_TRUE(host_.RunUntil([&] { return !Arrivals().empty(); }, milliseconds(100)));
  // 40 ms, five bytes out at 521 us, 2 ms for the board, three bytes back.
  EXPECT_EQ(host_.Now(), microseconds(40000 + 2605 + 2000 + 1563));
}

TEST_F(LinkExchange, ShorterReplyClearsTheUpperBytes) {
  Board().Set(0, 4, 7);
  AskFor({});
  At(0, 4).Value[1] = 99;
  At(0, 4).Value[3] = 99;
  Ticks(2);
  EXPECT_EQ(Value(0, 4), (std::array{7, 0, 0, 0}));
}

TEST_F(LinkExchange, LongReplyIsCutInTheTableAndWholeForTheForms) {
  Board().Set(0, 4, 0x060504030201);
  AskFor({.length = 6});
  Ticks(2);
  EXPECT_EQ(Value(0, 4), (std::array{1, 2, 3, 4}));
  EXPECT_EQ(At(0, 4).Padding[0], 32);
  ASSERT_EQ(Arrivals().size(), 1U);
  EXPECT_EQ(Arrivals()[0].value, 6618611909121.0);
}

TEST_F(LinkExchange, WriteSendsTheValueAndTakesItOnTheEcho) {
  Records(0, 20);
  Record(0, 16, {.length = 2});
  Put(0, 16, 1000);
  StartScan();
  Ticks(1);
  EXPECT_EQ(host_.frames[0].bytes, (Bytes{129, 0, 0, 16, 232, 3, 124}));
  EXPECT_EQ(At(0, 16).Flags, 6);  // pending no more, not yet arrived
  Ticks(1);
  EXPECT_EQ(Board().Get(0, 16), 1000U);
  EXPECT_EQ(At(0, 16).Flags, 5);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 16, 1000}}));
}

TEST_F(LinkExchange, AValuePutWhileTheRecordIsBeingReadIsNotLost) {
  Board().Set(0, 4, 7);
  AskFor({});
  ASSERT_TRUE(host_.RunUntil([&] { return !LinkIdle; }, milliseconds(100)));
  Put(0, 4, 58);
  ASSERT_TRUE(host_.RunUntil([&] { return LinkIdle; }, milliseconds(100)));
  EXPECT_EQ(Value(0, 4), (std::array{58, 0, 0, 0}));
  EXPECT_FALSE(ParamIsFresh(4, 0));
  EXPECT_TRUE(Arrivals().empty());
  Ticks(8);
  EXPECT_EQ(Board().Get(0, 4), 58U);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 58}}));
}

TEST_F(LinkExchange, ASecondValuePutWhileTheFirstIsBeingWrittenIsNotLost) {
  Records(0, 10);
  Put(0, 4, 57);
  StartScan();
  ASSERT_TRUE(host_.RunUntil([&] { return !LinkIdle; }, milliseconds(100)));
  Put(0, 4, 58);
  Ticks(8);
  EXPECT_EQ(Board().Get(0, 4), 58U);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 58}}));
}

TEST_F(LinkExchange, WriteToNodeTwoIsPassedOn) {
  Records(2, 10);
  Put(2, 1, 5);
  StartScan();
  Ticks(4);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{242, 0, 0, 1, 128, 86, 5, 206}}));
  EXPECT_EQ(Board().Get(2, 1), 5U);
}

TEST_F(LinkExchange, WriteOfALongRecordCarriesFourBytes) {
  Records(0, 10);
  Record(0, 4, {.length = 8});
  Put(0, 4, 0x04030201);
  StartScan();
  Ticks(2);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{0x87, 0, 0, 4, 1, 2, 3, 4, 0x95}}));
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 67305985}}));
}

TEST_F(LinkExchange, AfterAWriteAReadOnceRecordGoesSilent) {
  Records(0, 10);
  Put(0, 4, 5);
  StartScan();
  Ticks(50);
  EXPECT_EQ(host_.frames.size(), 1U);
}

TEST_F(LinkExchange, AfterAWriteAPolledRecordIsReadAgain) {
  Records(0, 10);
  Record(0, 4, {.period = 1});
  Subscribe(0, 4);
  Put(0, 4, 5);
  StartScan();
  Ticks(12);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{128, 0, 0, 4, 5, 137}, {0, 0, 0, 4, 4}}));
}

TEST_F(LinkExchange, OneShotBitsEndThePollingOfAPolledRecord) {
  for (const int bit : {32, 64}) {
    Records(0, 10);
    Record(0, 4, {.period = 1});
    At(0, 4).Flags = static_cast<std::uint8_t>(bit);
    Subscribe(0, 4);
    StartScan();
    const std::size_t before = host_.frames.size();
    Ticks(40);
    EXPECT_EQ(host_.frames.size(), before + 1);
    EXPECT_EQ(At(0, 4).Flags, bit + 5);
    Unsubscribe(0, 4);
  }
}

TEST_F(LinkExchange, FlagsWithoutAMeaningAreKept) {
  At(0, 4).Flags = 0;
  AskFor({});
  At(0, 4).Flags |= 8 | 16;
  Ticks(2);
  EXPECT_EQ(At(0, 4).Flags, 8 + 16 + 5);
}

TEST_F(LinkExchange, ReplyToARecordThatWasUnsubscribedMeanwhileIsDropped) {
  Board().Set(0, 4, 57);
  AskFor({});
  Ticks(1);
  Unsubscribe(0, 4);
  Ticks(1);
  EXPECT_EQ(Value(0, 4), (std::array{0, 0, 0, 0}));
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_TRUE(LinkIdle);
}

TEST_F(LinkExchange, BadCheckByteSendsTheSameRequestAgainAtOnce) {
  Answer({{57, 58}, {57, 57}});
  AskFor({});
  Ticks(2);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{0, 0, 0, 4, 4}, {0, 0, 0, 4, 4}}));
  EXPECT_EQ(host_.frames[1].time, microseconds(40000 + 2605 + 2000 + 1042));
  EXPECT_EQ(Value(0, 4), (std::array{57, 0, 0, 0}));
  EXPECT_EQ(RetryCount, 0);
}

TEST_F(LinkExchange, BadEchoSendsTheSameWriteAgain) {
  Answer({{1}, {18}});  // 128 + 4 + 5 = 137, twice of which is 274
  Records(0, 10);
  Put(0, 4, 5);
  StartScan();
  Ticks(2);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{128, 0, 0, 4, 5, 137}, {128, 0, 0, 4, 5, 137}}));
  EXPECT_TRUE(ParamIsFresh(4, 0));
}

TEST_F(LinkExchange, RetryCountGoesUpWithEachBadReply) {
  Answer({{1, 2}, {1, 2}, {1, 2}, {57, 57}});
  AskFor({});
  std::vector<int> counts;
  for (std::size_t frames = 2; frames <= 4; ++frames) {
    ASSERT_TRUE(host_.RunUntil([&] { return host_.frames.size() == frames; }, milliseconds(50)));
    counts.push_back(RetryCount);
  }
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 3}));
  Ticks(2);
  EXPECT_EQ(RetryCount, 0);
  EXPECT_EQ(Value(0, 4), (std::array{57, 0, 0, 0}));
}

TEST_F(LinkExchange, FourBadRepliesAndAGoodFifthStillFailAsPrescribed) {
  Answer({{1, 2}, {1, 2}, {1, 2}, {1, 2}, {57, 57}});
  AskFor({});
  ASSERT_TRUE(host_.RunUntil([] { return RetryCount == 4; }, milliseconds(100)));
  ASSERT_TRUE(host_.RunUntil([] { return LinkIdle; }, milliseconds(100)));
  EXPECT_EQ(host_.frames.size(), 5U);
  EXPECT_TRUE(ReplyData.empty());
  EXPECT_EQ(RetryCount, 0);
  EXPECT_EQ(Value(0, 4), (std::array{0, 0, 0, 0}));
  EXPECT_EQ(At(0, 4).Flags, 6);
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_EQ(ScanCursor, 5);
}

TEST_F(LinkExchange, FiveBadRepliesLeaveTheTableAloneAndTheNextRecordItsRetries) {
  Answer({{1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {8, 8}});
  AskFor({});
  Subscribe(0, 6);
  NodeIndex = 0;
  Ticks(4);
  EXPECT_EQ(Value(0, 4), (std::array{0, 0, 0, 0}));
  EXPECT_EQ(Value(0, 6), (std::array{8, 0, 0, 0}));
  EXPECT_EQ(host_.frames.size(), 7U);
}

TEST_F(LinkExchange, FailedReadOnceRecordIsAskedForAgainInTheNextPass) {
  Answer({{1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}, {57, 57}});
  AskFor({});
  Ticks(8);
  EXPECT_EQ(Value(0, 4), (std::array{57, 0, 0, 0}));
}

TEST_F(LinkExchange, FailedWriteIsNotRepeatedAndTheNextPassReadsBack) {
  Answer({{1}, {1}, {1}, {1}, {1}, {57, 57}});
  Records(0, 10);
  Subscribe(0, 4);
  Put(0, 4, 5);
  StartScan();
  ASSERT_TRUE(host_.RunUntil([&] { return host_.frames.size() == 5 && LinkIdle; }, milliseconds(200)));
  EXPECT_EQ(Value(0, 4), (std::array{5, 0, 0, 0}));
  EXPECT_EQ(At(0, 4).Flags, 6);
  Ticks(8);
  ASSERT_EQ(host_.frames.size(), 6U);
  EXPECT_EQ(host_.frames[5].bytes, (Bytes{0, 0, 0, 4, 4}));
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 57}}));
}

TEST_F(LinkExchange, ReplyInOneChunkIsTakenAsByteByByte) {
  host_.chunk = 16;
  Board().Set(0, 4, 0x01020304);
  AskFor({.length = 4});
  Ticks(2);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 16909060}}));
}

TEST_F(LinkExchange, SurplusByteInTheSameChunkFailsTheReply) {
  host_.chunk = 16;
  Answer({{57, 57, 3}, {57, 57}});
  AskFor({});
  Ticks(2);
  EXPECT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(Value(0, 4), (std::array{57, 0, 0, 0}));
}

TEST_F(LinkExchange, SurplusByteFailsTheReplyEvenIfItIsTheSum) {
  host_.chunk = 16;
  Answer({{0, 0, 0}, {57, 57}});
  AskFor({});
  Ticks(2);
  EXPECT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 57}}));
}

TEST_F(LinkExchange, WriteReplyOfTwoBytesInOneChunkFails) {
  host_.chunk = 16;
  Answer({{18, 18}, {18}});
  Records(0, 10);
  Put(0, 4, 5);
  StartScan();
  Ticks(2);
  EXPECT_EQ(host_.frames.size(), 2U);
}

TEST_F(LinkExchange, WhileIdentifyingAFinishedExchangeOnlySetsIdle) {
  Board().Set(0, 4, 57);
  AskFor({});
  LinkIdentifying = true;
  Ticks(1);
  ASSERT_TRUE(host_.RunUntil([] { return LinkIdle; }, milliseconds(30)));
  EXPECT_EQ(ReplyData, (Bytes{57}));
  EXPECT_EQ(Value(0, 4), (std::array{0, 0, 0, 0}));
  EXPECT_TRUE(Arrivals().empty());
  EXPECT_EQ(ScanCursor, 4);
}

TEST_F(LinkExchange, AFormThatMovesTheNodeDuringAnExchangeDoesNotMoveTheReply) {
  Board().Set(0, 4, 57);
  AskFor({});
  Records(1, 10);
  Subscribe(1, 4);
  NodeIndex = 0;
  Ticks(1);
  Put(1, 7, 9);  // leaves NodeIndex at 1 while the reply of node 0 is on its way
  Ticks(1);
  EXPECT_EQ(Value(0, 4), (std::array{57, 0, 0, 0}));
  ASSERT_FALSE(Arrivals().empty());
  EXPECT_EQ(Arrivals()[0], (ListeningForm::Arrival{0, 4, 57}));
}

TEST_F(LinkExchange, AFormThatMovesTheNodeDuringAnExchangeDoesNotMoveTheRepeatedRequest) {
  Answer({{1, 2}, {57, 57}});
  AskFor({});
  Ticks(1);
  NodeIndex = 3;
  Ticks(1);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{0, 0, 0, 4, 4}, {0, 0, 0, 4, 4}}));
}

TEST_F(LinkExchange, AfterTheLastRecordButOneTheScanGoesToTheNextNode) {
  Records(0, 5);
  Subscribe(0, 4);
  StartScan();
  Ticks(1);
  ASSERT_TRUE(host_.RunUntil([] { return LinkIdle; }, milliseconds(30)));
  EXPECT_EQ(ScanCursor, 0);
  EXPECT_EQ(NodeIndex, 1);
}

TEST_F(LinkExchange, AttachingBeginsWithoutABadReply) {
  RetryCount = 4;
  IdentTimedOut = true;
  LinkIdle = false;
  ScanCursor = 7;
  LinkAttach(host_);
  EXPECT_EQ(RetryCount, 0);
  EXPECT_FALSE(IdentTimedOut);
  EXPECT_TRUE(LinkIdle);
  EXPECT_EQ(ScanCursor, 0);
}

TEST_F(LinkExchange, AReplyClearsTheStatusText) {
  AskFor({});
  Ticks(2);
  EXPECT_EQ(host_.status_text_clears, 1);
}

}  // namespace
}  // namespace dosmara
