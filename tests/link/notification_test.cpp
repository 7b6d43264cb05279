// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/notification.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "link/link_engine.h"
#include "support/allocations.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

// A form whose arrival entry does what the test wants.
class ActingForm : public ListeningForm {
 public:
  std::function<void()> act;

  void SLabelChange(std::int32_t index, double value) override {
    ListeningForm::SLabelChange(index, value);
    if (act) {
      act();
    }
  }
};

class Notification : public LinkFixture {
 protected:
  Notification() { LoadedForms = {&a_, &b_, &c_}; }

  ActingForm a_;
  ActingForm b_;
  ActingForm c_;
};

using Arrived = std::vector<ListeningForm::Arrival>;

TEST_F(Notification, ValueIsLeastSignificantByteFirst) {
  EXPECT_EQ(ReplyValue({0x2C, 0x01}), 300);
  EXPECT_EQ(ReplyValue({0}), 0);
  EXPECT_EQ(ReplyValue({255, 255, 255, 255}), 4294967295.0);
}

TEST_F(Notification, ValueHasUpToSixteenBytes) {
  Bytes reply(16, 0);
  reply[15] = 1;
  EXPECT_DOUBLE_EQ(ReplyValue(reply), 1.329227995784916e36);  // 2^120
}

TEST_F(Notification, TellsEveryLoadedForm) {
  NotifyForms(311, {2});
  EXPECT_EQ(a_.arrivals, (Arrived{{0, 311, 2}}));
  EXPECT_EQ(b_.arrivals, (Arrived{{0, 311, 2}}));
  EXPECT_EQ(c_.arrivals, (Arrived{{0, 311, 2}}));
}

TEST_F(Notification, TellsAFormThatIsAlone) {
  LoadedForms = {&a_};
  NotifyForms(311, {2});
  EXPECT_EQ(a_.arrivals, (Arrived{{0, 311, 2}}));
  EXPECT_TRUE(b_.arrivals.empty());
}

TEST_F(Notification, TellsNobodyWhereNoFormIsLoaded) {
  LoadedForms.clear();
  NodeIndex = 2;
  NotifyForms(311, {2});
  EXPECT_TRUE(a_.arrivals.empty());
  EXPECT_EQ(NodeIndex, 2);
}

TEST_F(Notification, TellsTheFormsInTheOrderOfTheirLoading) {
  std::string order;
  a_.act = [&] { order += 'a'; };
  b_.act = [&] { order += 'b'; };
  c_.act = [&] { order += 'c'; };
  NotifyForms(1, {1});
  EXPECT_EQ(order, "abc");
}

TEST_F(Notification, TheSameValueTwiceIsTwoArrivals) {
  NotifyForms(5, {7});
  NotifyForms(5, {7});
  EXPECT_EQ(a_.arrivals, (Arrived{{0, 5, 7}, {0, 5, 7}}));
}

TEST_F(Notification, AFormThatFailsDoesNotKeepTheOthersFromBeingTold) {
  a_.act = [] { throw std::runtime_error("no such control"); };
  NotifyForms(5, {7});
  EXPECT_EQ(b_.arrivals.size(), 1U);
  EXPECT_EQ(c_.arrivals.size(), 1U);
}

TEST_F(Notification, AFormThatUnloadsItselfSkipsNoOther) {
  a_.act = [&] { std::erase(LoadedForms, &a_); };
  NotifyForms(5, {7});
  EXPECT_EQ(b_.arrivals.size(), 1U);
  EXPECT_EQ(c_.arrivals.size(), 1U);
}

TEST_F(Notification, AFormThatUnloadsTheOneBeforeItSkipsNoOther) {
  b_.act = [&] { std::erase(LoadedForms, &a_); };
  NotifyForms(5, {7});
  EXPECT_EQ(c_.arrivals.size(), 1U);
}

TEST_F(Notification, AFormThatWasUnloadedMeanwhileIsNotTold) {
  a_.act = [&] { std::erase(LoadedForms, &c_); };
  NotifyForms(5, {7});
  EXPECT_EQ(b_.arrivals.size(), 1U);
  EXPECT_TRUE(c_.arrivals.empty());
}

TEST_F(Notification, AFormThatIsOpenedMeanwhileSeesOnlyLaterArrivals) {
  ListeningForm late;
  a_.act = [&] {
    if (a_.arrivals.size() == 1) {
      LoadedForms.push_back(&late);
    }
  };
  NotifyForms(5, {7});
  EXPECT_TRUE(late.arrivals.empty());
  NotifyForms(6, {8});
  EXPECT_EQ(late.arrivals, (Arrived{{0, 6, 8}}));
}

TEST_F(Notification, AFormThatIsOpenedInThePlaceOfAnotherSeesOnlyLaterArrivals) {
  ListeningForm late;
  a_.act = [&] { std::ranges::replace(LoadedForms, static_cast<LoadedForm*>(&c_), &late); };
  NotifyForms(5, {7});
  EXPECT_EQ(b_.arrivals.size(), 1U);
  EXPECT_TRUE(c_.arrivals.empty());
  EXPECT_TRUE(late.arrivals.empty());
}

TEST_F(Notification, AFormThatUnloadsAllOthersIsTheLastToBeTold) {
  a_.act = [&] { LoadedForms = {&a_}; };
  NotifyForms(5, {7});
  EXPECT_TRUE(b_.arrivals.empty());
  EXPECT_TRUE(c_.arrivals.empty());
  NotifyForms(5, {7});
  EXPECT_EQ(a_.arrivals.size(), 2U);
}

TEST_F(Notification, AnArrivalDuringAnotherReachesAllFormsTwice) {
  a_.act = [&] {
    if (a_.arrivals.size() == 1) {
      NotifyForms(6, {8});
    }
  };
  NotifyForms(5, {7});
  EXPECT_EQ(a_.arrivals, (Arrived{{0, 5, 7}, {0, 6, 8}}));
  EXPECT_EQ(b_.arrivals, (Arrived{{0, 6, 8}, {0, 5, 7}}));
  EXPECT_EQ(c_.arrivals, (Arrived{{0, 6, 8}, {0, 5, 7}}));
}

TEST_F(Notification, AsksForNoMemoryAtAnArrival) {
  class DeafForm : public LoadedForm {
   public:
    void SLabelChange(std::int32_t /*index*/, double /*value*/) override {}
  };
  std::vector<DeafForm> forms(30);
  LoadedForms.clear();
  for (DeafForm& form : forms) {
    LoadedForms.push_back(&form);
  }
  const Bytes reply = {7};
  NotifyForms(5, reply);
  const std::size_t before = Allocations();
  for (int i = 0; i < 100; ++i) {
    NotifyForms(5, reply);
  }
  EXPECT_EQ(Allocations(), before);
}

TEST_F(Notification, EachFormFindsTheNodeOfTheExchange) {
  Records(2, 10);
  NodeIndex = 2;
  a_.act = [] {
    NodeIndex = 0;
    ParamPut(314, 1);
  };
  NotifyForms(5, {7});
  EXPECT_EQ(b_.arrivals, (Arrived{{2, 5, 7}}));
  EXPECT_EQ(c_.arrivals, (Arrived{{2, 5, 7}}));
}

TEST_F(Notification, AFormThatMovesTheNodeMovesTheScan) {
  Records(0, 10);
  Records(3, 10);
  Subscribe(0, 4);
  a_.act = [] { NodeIndex = 3; };
  StartScan();
  ASSERT_TRUE(host_.RunUntil([&] { return !c_.arrivals.empty() && LinkIdle; }, milliseconds(100)));
  EXPECT_EQ(NodeIndex, 3);
  EXPECT_EQ(ScanCursor, 5);
}

TEST_F(Notification, OfSeveralFormsThatMoveTheNodeTheLastMovesTheScan) {
  a_.act = [] { NodeIndex = 3; };
  b_.act = [] { NodeIndex = 2; };
  NotifyForms(5, {7});
  EXPECT_EQ(NodeIndex, 2);
}

TEST_F(Notification, TheTableIsUpToDateBeforeAnyFormIsTold) {
  Records(0, 10);
  Board().Set(0, 4, 57);
  Subscribe(0, 4);
  double seen = 0;
  bool fresh = false;
  a_.act = [&] {
    seen = ParamGet(4, 0);
    fresh = ParamIsFresh(4, 0);
    EXPECT_FALSE(LinkIdle);
  };
  StartScan();
  Ticks(2);
  EXPECT_EQ(seen, 57);
  EXPECT_TRUE(fresh);
}

TEST_F(Notification, AFormMayPutAndSubscribeDuringAnArrival) {
  Records(0, 10);
  Subscribe(0, 4);
  a_.act = [&] {
    if (a_.arrivals.size() > 1) {
      return;
    }
    NodeIndex = 0;
    ParamPut(6, 9);
    NodeIndex = 0;
    ParamSubscribe(4);
  };
  StartScan();
  Ticks(12);
  EXPECT_EQ(Board().Get(0, 6), 9U);
  EXPECT_EQ(a_.arrivals, (Arrived{{0, 4, 0}, {0, 6, 9}, {0, 4, 0}}));
}

}  // namespace
}  // namespace dosmara
