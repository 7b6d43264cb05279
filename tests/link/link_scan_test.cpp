// SPDX-License-Identifier: GPL-3.0-or-later
// Which record the scan sends, and when.
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkScanWalk : public LinkFixture {
 protected:
  // The low address bytes of the reads of node 0 so far, which are the records' indices.
  std::vector<int> ReadsOfMainBoard() const {
    std::vector<int> indices;
    for (const Bytes& frame : Frames()) {
      if (frame.size() == 5) {
        indices.push_back(frame[3]);
      }
    }
    return indices;
  }
  // Only node 0 has records; the three others take a tick each.
  static constexpr int kTicksPerEmptyPass = 4;
};

TEST_F(LinkScanWalk, FirstRequestLeavesAtTheFirstTick) {
  Records(0, 10);
  Subscribe(0, 5);
  StartScan();
  host_.RunFor(microseconds(39999));
  EXPECT_TRUE(host_.frames.empty());
  host_.RunFor(microseconds(1));
  ASSERT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(host_.frames[0].time, milliseconds(40));
  EXPECT_EQ(host_.frames[0].bytes, (Bytes{0, 0, 0, 5, 5}));
}

TEST_F(LinkScanWalk, IdleRecordsSendNothing) {
  Records(0, 10);
  StartScan();
  Ticks(100);
  EXPECT_TRUE(host_.frames.empty());
}

// Notes whether the tick was enabled as each request left.
class TickWatcher : public SimulatedBoard {
 public:
  std::vector<bool> tick_enabled;
  void FrameBegins(const Bytes& /*frame*/, VirtualHost& line) override {
    tick_enabled.push_back(line.IsEnabled(LinkTimer::Timer1));
  }
};

TEST_F(LinkScanWalk, TheTickIsOffWhileItRunsAndOnAgainAfterwards) {
  TickWatcher watcher;
  host_.board = &watcher;
  Records(0, 10);
  Subscribe(0, 4);
  StartScan();
  Ticks(1);
  EXPECT_EQ(watcher.tick_enabled, (std::vector<bool>{false}));
  EXPECT_TRUE(host_.IsEnabled(LinkTimer::Timer1));
}

TEST_F(LinkScanWalk, SendsOneRequestPerTick) {
  Records(0, 10);
  for (const int index : {2, 3, 7}) {
    Subscribe(0, index);
  }
  StartScan();
  Ticks(3);
  ASSERT_EQ(host_.frames.size(), 3U);
  EXPECT_EQ(ReadsOfMainBoard(), (std::vector<int>{2, 3, 7}));
  EXPECT_EQ(host_.frames[1].time, milliseconds(80));
  EXPECT_EQ(host_.frames[2].time, milliseconds(120));
}

TEST_F(LinkScanWalk, WaitsForTheReplyBeforeTheNextRequest) {
  Records(0, 10);
  Subscribe(0, 2);
  Subscribe(0, 3);
  Board().latency = milliseconds(100);
  StartScan();
  Ticks(3);
  EXPECT_EQ(host_.frames.size(), 1U);
  EXPECT_FALSE(LinkIdle);
  Ticks(1);
  ASSERT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(host_.frames[1].time, milliseconds(160));
}

TEST_F(LinkScanWalk, ARecordWithPeriodZeroIsReadOnceAndGoesSilent) {
  Records(0, 10);
  Subscribe(0, 4);
  StartScan();
  Ticks(50);
  EXPECT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(At(0, 4).Flags, 5);
}

TEST_F(LinkScanWalk, SubscribingAgainReadsASilentRecordAgain) {
  Records(0, 10);
  Subscribe(0, 4);
  StartScan();
  Ticks(10);
  Subscribe(0, 4);
  Ticks(10);
  EXPECT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(Arrivals().size(), 2U);
}

TEST_F(LinkScanWalk, WithPeriodOneARecordIsSentThenPassedOverOnce) {
  Records(0, 10);
  Record(0, 4, {.period = 1});
  Subscribe(0, 4);
  StartScan();
  Ticks(1);
  EXPECT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(At(0, 4).Period, 17);
  Ticks(1 + kTicksPerEmptyPass);  // end of this pass, and the next pass
  EXPECT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(At(0, 4).Period, 1);
  Ticks(kTicksPerEmptyPass);
  EXPECT_EQ(host_.frames.size(), 2U);
  EXPECT_EQ(At(0, 4).Period, 17);
}

TEST_F(LinkScanWalk, PassesOverARecordNTimesAfterSendingIt) {
  Records(0, 10);
  Record(0, 4, {.period = 5});
  Subscribe(0, 4);
  LinkScan();
  EXPECT_EQ(At(0, 4).Period, 85);
  LinkIdle = true;
  int passes = 0;
  do {
    ScanCursor = 0;
    NodeIndex = 0;
    LinkScan();
    ++passes;
  } while (host_.frames.size() == 1);
  EXPECT_EQ(passes, 6);  // five without, the sixth sends
}

TEST_F(LinkScanWalk, ALongestPeriodCountsDownFromFifteen) {
  Records(0, 10);
  Record(0, 4, {.period = 15});
  Subscribe(0, 4);
  LinkScan();
  EXPECT_EQ(At(0, 4).Period, 255);
}

TEST_F(LinkScanWalk, ACountdownWithoutAPeriodRunsOutAndThenSends) {
  Records(0, 10);
  At(0, 4).Period = 0x20;
  Subscribe(0, 4);
  for (const int after : {0x10, 0x00}) {
    ScanCursor = 0;
    NodeIndex = 0;
    LinkScan();
    EXPECT_EQ(At(0, 4).Period, after);
    EXPECT_TRUE(host_.frames.empty());
  }
  ScanCursor = 0;
  NodeIndex = 0;
  LinkScan();
  EXPECT_EQ(host_.frames.size(), 1U);
}

TEST_F(LinkScanWalk, APendingWriteDoesNotShortenTheCountdown) {
  Records(0, 10);
  Record(0, 4, {.period = 3});
  Put(0, 4, 9);
  At(0, 4).Period = 0x23;
  StartScan();
  Ticks(2 * kTicksPerEmptyPass);
  EXPECT_TRUE(host_.frames.empty());
  EXPECT_EQ(At(0, 4).Period, 0x03);
  Ticks(1);
  ASSERT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(host_.frames[0].bytes, (Bytes{128, 0, 0, 4, 9, 141}));
}

TEST_F(LinkScanWalk, AWriteThatNobodyWaitsForAnyMoreLeavesWhenTheRecordIsWantedAgain) {
  Records(0, 10);
  Subscribe(0, 4);
  Put(0, 4, 5);
  Unsubscribe(0, 4);
  StartScan();
  Ticks(20);
  EXPECT_TRUE(host_.frames.empty());
  Subscribe(0, 4);
  Ticks(8);
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{128, 0, 0, 4, 5, 137}}));
}

TEST_F(LinkScanWalk, TheLastRecordOfTheFileIsNeverVisitedAsPrescribed) {
  Records(0, 10);
  Subscribe(0, 10);
  Subscribe(0, 9);
  StartScan();
  Ticks(20);
  EXPECT_EQ(ReadsOfMainBoard(), (std::vector<int>{9}));
}

TEST_F(LinkScanWalk, WalksTheNodesInTurnAndBackToTheFirst) {
  for (int node = 0; node < 4; ++node) {
    Records(node, 5);
    Record(node, 2, {.period = 1});
    Subscribe(node, 2);
  }
  StartScan();
  std::vector<Bytes> expected = {
      {0, 0, 0, 2, 2}, {241, 0, 0, 2, 0, 81, 68}, {241, 0, 0, 2, 0, 86, 73}, {241, 0, 0, 2, 0, 87, 74}};
  Ticks(8);
  EXPECT_EQ(Frames(), expected);
  Ticks(4);  // a whole pass without a request takes a tick for each node
  EXPECT_EQ(Frames(), expected);
  Ticks(1);
  expected.push_back({0, 0, 0, 2, 2});
  EXPECT_EQ(Frames(), expected);
}

TEST_F(LinkScanWalk, ANodeWithoutRecordsCostsOneTick) {
  Records(3, 5);
  Subscribe(3, 2);
  StartScan();
  Ticks(3);
  EXPECT_TRUE(host_.frames.empty());
  EXPECT_EQ(NodeIndex, 3);
  Ticks(1);
  ASSERT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(host_.frames[0].time, milliseconds(160));
}

TEST_F(LinkScanWalk, RecordsOfANodeWithoutAFileAreNotReached) {
  Subscribe(1, 200);
  StartScan();
  Ticks(20);
  ScanCursor = 200;
  NodeIndex = 1;
  Ticks(1);
  EXPECT_TRUE(host_.frames.empty());
  EXPECT_EQ(ScanCursor, 0);
  EXPECT_EQ(NodeIndex, 2);
}

TEST_F(LinkScanWalk, AbsentNodesRecordsAreWalkedOverInSilence) {
  Records(1, 18);
  NodePresent[1] = false;
  Subscribe(1, 4);
  StartScan();
  Ticks(20);
  EXPECT_TRUE(host_.frames.empty());
}

TEST_F(LinkScanWalk, AValuePutOnAnAbsentNodeStaysUnsentAndHoldsUpNobody) {
  Records(1, 18);
  NodePresent[1] = false;
  Put(1, 4, 77);
  Records(0, 10);
  Record(0, 4, {.period = 1});
  Subscribe(0, 4);
  StartScan();
  Ticks(2 + 2 * kTicksPerEmptyPass);
  ASSERT_EQ(Frames(), (std::vector<Bytes>{{0, 0, 0, 4, 4}, {0, 0, 0, 4, 4}}));
  EXPECT_EQ(host_.frames[1].time, milliseconds(400));
  EXPECT_EQ(ParamGet(4, 1), 77);
  EXPECT_EQ(At(1, 4).Flags, 134);
}

TEST_F(LinkScanWalk, AnAbsentNodeCostsOneTickAPass) {
  Records(1, 18);
  NodePresent[1] = false;
  Put(1, 4, 77);
  Records(2, 10);
  Subscribe(2, 4);
  StartScan();
  Ticks(2);
  EXPECT_EQ(NodeIndex, 2);
  Ticks(1);
  ASSERT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(host_.frames[0].time, milliseconds(120));
}

TEST_F(LinkScanWalk, CursorStaysOnTheRecordUntilItCompletes) {
  Records(0, 10);
  Subscribe(0, 4);
  StartScan();
  Ticks(1);
  EXPECT_EQ(ScanCursor, 4);
  EXPECT_FALSE(LinkIdle);
  Ticks(1);
  EXPECT_TRUE(LinkIdle);
}

TEST_F(LinkScanWalk, WalksOverAFullTableInOneTick) {
  Records(0, 32767);
  Subscribe(0, 32766);
  StartScan();
  Ticks(1);
  ASSERT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(host_.frames[0].bytes, (Bytes{0, 0, 0x7F, 0xFE, 0x7D}));
}

TEST_F(LinkScanWalk, RequestsKeepTheirDistanceWhenTheProgramIsLate) {
  Records(0, 3000);
  for (int index = 1; index < 3000; ++index) {
    Subscribe(0, index);
  }
  StartScan();
  for (int late = 0; late < 100; ++late) {
    host_.RunFor(milliseconds(31 + late));
    host_.Stall(milliseconds(late));
  }
  ASSERT_GT(host_.frames.size(), 200U);
  for (std::size_t i = 1; i < host_.frames.size(); ++i) {
    EXPECT_GE(host_.frames[i].time - host_.frames[i - 1].time, milliseconds(38)) << i;
  }
}

TEST_F(LinkScanWalk, AnHourOfPollingKeepsItsPace) {
  Records(0, 10);
  Record(0, 4, {.period = 1});
  Subscribe(0, 4);
  Board().Set(0, 4, 57);
  StartScan();
  host_.RunFor(std::chrono::hours(1));
  // A pass with the request takes one tick more than one without: nine ticks for two passes.
  EXPECT_EQ(host_.frames.size(), 10000U);
  EXPECT_EQ(Arrivals().size(), 10000U);
}

}  // namespace
}  // namespace dosmara
