// SPDX-License-Identifier: GPL-3.0-or-later
// Which records a form hears of, how long they are subscribed, and what runs when one arrives.
#include "fields/record_watch.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "store/failure.h"
#include "store/parameter_table.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class RecordWatchTest : public testing::Test {
 protected:
  RecordWatchTest() { ResetCore(); }
  ~RecordWatchTest() override { ResetCore(); }

  // A take that writes down its name, the number in its run and the value.
  RecordWatch::Take Note(const std::string& name) {
    return [this, name](int n, double value) {
      heard_ += name + std::to_string(n) + "=" + std::to_string(static_cast<int>(value)) + " ";
    };
  }
  // The arrival of a record that is heard of. Returns whether it is the first.
  bool Arrive(int node, int record, double value) {
    ParamTable[node][record].Flags |= kArrived;
    return watch_.RunTakes(watch_.Find(node, record), value);
  }
  static int Subscribers(int node, int record) { return ParamTable[node][record].Subscribers; }

  RecordWatch watch_;
  std::string heard_;
};

TEST_F(RecordWatchTest, SubscribesARunWhileItIsOn) {
  watch_.Hear({2, 40, 3}, Counts::kYes, Note("a"));
  EXPECT_EQ(Subscribers(2, 40), 0);
  watch_.Start();
  for (const int record : {40, 41, 42}) {
    EXPECT_EQ(Subscribers(2, record), 1) << record;
  }
  EXPECT_EQ(Subscribers(2, 39) + Subscribers(2, 43) + Subscribers(1, 40), 0);
  watch_.Stop({});
  for (const int record : {40, 41, 42}) {
    EXPECT_EQ(Subscribers(2, record), 0) << record;
  }
}

TEST_F(RecordWatchTest, SubscribesAtOnceWhatIsHeardOfLater) {
  watch_.Start();
  watch_.Hear({1, 7}, Counts::kNo, Note("a"));
  EXPECT_EQ(Subscribers(1, 7), 1);
}

TEST_F(RecordWatchTest, LeavesSubscribedWhatIsKept) {
  watch_.Hear({0, 73, 2}, Counts::kYes, Note("a"));
  watch_.Start();
  const Records kept[] = {{0, 74}};
  watch_.Stop(kept);
  EXPECT_EQ(Subscribers(0, 73), 0);
  EXPECT_EQ(Subscribers(0, 74), 1);
}

TEST_F(RecordWatchTest, RunsATakeWithTheNumberInItsRun) {
  watch_.Hear({1, 10, 5}, Counts::kYes, Note("a"));
  watch_.Hear({2, 10}, Counts::kYes, Note("b"));
  Arrive(1, 13, 99);
  Arrive(2, 10, 5);
  EXPECT_EQ(heard_, "a3=99 b0=5 ");
}

TEST_F(RecordWatchTest, ARecordThatIsHeardTwiceIsSubscribedOnceAndRunsBothInTheirOrder) {
  watch_.Hear({1, 10, 2}, Counts::kNo, Note("a"));
  watch_.Hear({1, 11}, Counts::kNo, Note("b"));
  watch_.Start();
  EXPECT_EQ(Subscribers(1, 11), 1);
  Arrive(1, 11, 4);
  EXPECT_EQ(heard_, "a1=4 b0=4 ");
  watch_.Stop({});
  EXPECT_EQ(Subscribers(1, 11), 0);
}

TEST_F(RecordWatchTest, ARecordCountsIfAnyOfItsTakesSaysSo) {
  watch_.Hear({1, 10, 2}, Counts::kNo, Note("a"));
  watch_.Hear({1, 11}, Counts::kYes, Note("b"));
  EXPECT_FALSE(watch_.IsCounted(watch_.Find(1, 10)));
  EXPECT_TRUE(watch_.IsCounted(watch_.Find(1, 11)));
}

TEST_F(RecordWatchTest, AnEchoIsHeardAndNotSubscribedUntilTheRecordIsReadToo) {
  watch_.HearEcho(0, 315,
                  [this](double value) { heard_ += "echo " + std::to_string(static_cast<int>(value)); });
  watch_.Start();
  EXPECT_EQ(Subscribers(0, 315), 0);
  EXPECT_FALSE(Arrive(0, 315, 3)) << "nothing has been waited for";
  EXPECT_EQ(heard_, "echo 3");
  watch_.Hear({0, 315}, Counts::kNo, Note("a"));
  EXPECT_EQ(Subscribers(0, 315), 1);
}

TEST_F(RecordWatchTest, TellsTheFirstArrivalSinceARecordWasSubscribed) {
  watch_.Hear({1, 10}, Counts::kYes, Note("a"));
  watch_.Start();
  EXPECT_TRUE(Arrive(1, 10, 1));
  EXPECT_FALSE(Arrive(1, 10, 1));
  watch_.Refresh();
  EXPECT_TRUE(Arrive(1, 10, 1));
}

TEST_F(RecordWatchTest, ARefreshAsksAnewAndLeavesOneSubscription) {
  watch_.Hear({1, 10}, Counts::kYes, Note("a"));
  watch_.Start();
  ParamTable[1][10].Flags = 0;
  watch_.Refresh();
  EXPECT_EQ(Subscribers(1, 10), 1);
  EXPECT_EQ(ParamTable[1][10].Flags & kDue, kDue);
  watch_.Stop({});
  watch_.Refresh();
  EXPECT_EQ(Subscribers(1, 10), 0) << "a form that has closed";
}

TEST_F(RecordWatchTest, ForgetsOneBoard) {
  watch_.Hear({1, 10, 2}, Counts::kYes, Note("a"));
  watch_.Hear({0, 10}, Counts::kYes, Note("b"));
  watch_.Hear({2, 10}, Counts::kYes, Note("c"));
  watch_.Start();
  watch_.Forget(1);
  EXPECT_EQ(Subscribers(1, 10) + Subscribers(1, 11), 0);
  EXPECT_EQ(watch_.Find(1, 10), RecordWatch::kForeign);
  Arrive(0, 10, 1);
  Arrive(2, 10, 2);
  EXPECT_EQ(heard_, "b0=1 c0=2 ");
}

TEST_F(RecordWatchTest, AllIsFreshWithTheLastRecordThatCounts) {
  watch_.Hear({1, 10, 2}, Counts::kYes, Note("a"));
  watch_.Hear({3, 5}, Counts::kNo, Note("b"));
  watch_.Start();
  EXPECT_FALSE(watch_.AllFresh());
  Arrive(1, 11, 0);
  EXPECT_FALSE(watch_.AllFresh());
  Arrive(1, 10, 0);
  EXPECT_TRUE(watch_.AllFresh());
  NodeIndex = 1;
  ParamPut(11, 4);
  EXPECT_FALSE(watch_.AllFresh()) << "its echo is still to come";
}

TEST_F(RecordWatchTest, ProgressPassesOverBoardsThatAreNotThereAndOverEchoes) {
  watch_.Hear({1, 10, 2}, Counts::kYes, Note("a"));
  watch_.Hear({3, 10, 2}, Counts::kYes, Note("b"));
  watch_.HearEcho(0, 315, [](double) {});
  NodePresent[3] = false;
  watch_.Start();
  EXPECT_EQ(watch_.GetProgress().total, 2);
  EXPECT_EQ(watch_.GetProgress().arrived, 0);
  Arrive(1, 11, 0);
  Arrive(1, 11, 0);
  EXPECT_EQ(watch_.GetProgress().arrived, 1);
}

TEST_F(RecordWatchTest, ATakeThatThrowsLeavesTheWatchInOrder) {
  watch_.Hear({1, 10}, Counts::kYes, [](int, double) { throw std::runtime_error("cannot"); });
  EXPECT_THROW(Arrive(1, 10, 0), std::runtime_error);
  watch_.Hear({1, 11}, Counts::kYes, Note("a"));
  Arrive(1, 11, 1);
  EXPECT_EQ(heard_, "a0=1 ");
}

TEST(RecordWatchDeathTest, AnArrivalMustNotChangeWhatIsHeardOf) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  for (const bool forgets : {true, false}) {
    RecordWatch watch;
    watch.Hear({1, 10}, Counts::kYes, [&watch, forgets](int, double) {
      if (forgets) {
        watch.Forget(1);
      } else {
        watch.HearEcho(1, 11, [](double) {});
      }
    });
    EXPECT_EXIT(watch.RunTakes(watch.Find(1, 10), 0), testing::ExitedWithCode(kStopExitCode),
                "an arrival must not change")
        << forgets;
  }
}

TEST(ArrivalMap, KnowsARecordOfItsNodeAlone) {
  ArrivalMap map;
  map.Set(1, 31, 7);
  EXPECT_EQ(map.Find(1, 31), 7);
  for (const int node : {0, 2, 3}) {
    EXPECT_EQ(map.Find(node, 31), ArrivalMap::kForeign);
  }
  for (const int index : {-1, 0, 30, 32, 33000}) {
    EXPECT_EQ(map.Find(1, index), ArrivalMap::kForeign);
  }
  map.Set(1, 31, 8);
  EXPECT_EQ(map.Find(1, 31), 8);
  map.Clear();
  EXPECT_EQ(map.Find(1, 31), ArrivalMap::kForeign);
}

TEST(RecordsTest, BitsOfARecordThatIsTooWideAreItsLowOnes) {
  EXPECT_EQ(LowBits(0), 0);
  EXPECT_EQ(LowBits(255), 255);
  EXPECT_EQ(LowBits(4294967295.0), 2147483647);
  EXPECT_EQ(LowBits(4294967300.0), 4);
  EXPECT_EQ(LowBits(18446744073709551616.0), 0);
}

}  // namespace
}  // namespace dosmara
