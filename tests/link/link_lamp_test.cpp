// SPDX-License-Identifier: GPL-3.0-or-later
// The three lamps of the status bar. Images: 1 and 4 transmit off and on, 2 and 5 receive, 3 and 6 error.
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkLamp : public LinkFixture {
 protected:
  // Asks for record 4 of node 0; the request leaves at 40 ms.
  void Ask() {
    Records(0, 10);
    Subscribe(0, 4);
    StartScan();
  }
  // Panel and image of each change so far.
  std::vector<std::pair<int, int>> Changes() const {
    std::vector<std::pair<int, int>> changes;
    for (const auto& lamp : host_.lamps) {
      changes.emplace_back(lamp.panel, lamp.image);
    }
    return changes;
  }
};

TEST_F(LinkLamp, EachNumberBelongsToItsPanel) {
  for (const int n : {4, 5, 6, 1, 2, 3}) {
    SetLinkStatus(n);
  }
  EXPECT_EQ(Changes(), (std::vector<std::pair<int, int>>{{2, 4}, {3, 5}, {4, 6}, {2, 1}, {3, 2}, {4, 3}}));
}

TEST_F(LinkLamp, AnImageThatIsShownAlreadyIsNotShownAgain) {
  SetLinkStatus(1);
  SetLinkStatus(2);
  SetLinkStatus(3);
  EXPECT_TRUE(host_.lamps.empty());
  SetLinkStatus(5);
  SetLinkStatus(5);
  EXPECT_EQ(host_.lamps.size(), 1U);
}

TEST_F(LinkLamp, TransmitLightsForHalfASecond) {
  Ask();
  Ticks(1);
  EXPECT_EQ(host_.LampOn(2), 4);
  host_.RunFor(microseconds(499999));
  EXPECT_EQ(host_.LampOn(2), 4);
  host_.RunFor(microseconds(1));
  EXPECT_EQ(host_.LampOn(2), 1);
  EXPECT_FALSE(host_.IsEnabled(LinkTimer::Timer3));
}

TEST_F(LinkLamp, ReceiveLightsForHalfASecond) {
  Ask();
  ASSERT_TRUE(host_.RunUntil([&] { return host_.LampOn(3) == 5; }, milliseconds(100)));
  host_.RunFor(microseconds(499999));
  EXPECT_EQ(host_.LampOn(3), 5);
  host_.RunFor(microseconds(1));
  EXPECT_EQ(host_.LampOn(3), 2);
  EXPECT_FALSE(host_.IsEnabled(LinkTimer::Timer4));
}

TEST_F(LinkLamp, SteadyTrafficKeepsTransmitAndReceiveLitWithoutRepainting) {
  Records(0, 10);
  Record(0, 4, {.period = 1});
  Subscribe(0, 4);
  StartScan();
  host_.RunFor(milliseconds(30000));
  EXPECT_EQ(Changes(), (std::vector<std::pair<int, int>>{{2, 4}, {3, 5}}));
}

TEST_F(LinkLamp, ABadReplyLightsTheErrorLamp) {
  ScriptedBoard script;
  script.replies = {{1, 2}};
  host_.board = &script;
  Ask();
  Ticks(2);
  EXPECT_EQ(host_.LampOn(4), 6);
  host_.RunFor(milliseconds(500));
  EXPECT_EQ(host_.LampOn(4), 3);  // with the receive lamp
}

TEST_F(LinkLamp, AGoodReplyPutsTheErrorLampOut) {
  ScriptedBoard script;
  script.replies = {{1, 2}, {57, 57}};
  host_.board = &script;
  Ask();
  Ticks(2);
  EXPECT_EQ(Changes(), (std::vector<std::pair<int, int>>{{2, 4}, {3, 5}, {4, 6}, {4, 3}}));
}

TEST_F(LinkLamp, TheFifthReplyShowsNoErrorOfItsOwn) {
  ScriptedBoard script;
  script.replies = {{1, 2}, {1, 2}, {1, 2}, {1, 2}, {1, 2}};
  host_.board = &script;
  Ask();
  ASSERT_TRUE(host_.RunUntil([] { return RetryCount == 4; }, milliseconds(200)));
  EXPECT_EQ(host_.LampOn(4), 6);
  ASSERT_TRUE(host_.RunUntil([] { return LinkIdle; }, milliseconds(100)));
  EXPECT_EQ(host_.LampOn(4), 3);
}

TEST_F(LinkLamp, ATimeOutLightsErrorAndPutsReceiveOut) {
  Board().absent = {0};
  Ask();
  SetLinkStatus(5);
  host_.lamps.clear();
  host_.RunFor(milliseconds(1040));
  EXPECT_EQ(host_.LampOn(4), 6);
  EXPECT_EQ(host_.LampOn(3), 2);
}

TEST_F(LinkLamp, WithoutABoardTheErrorLampStaysAndTransmitFlashes) {
  host_.plugged = false;
  Ask();
  host_.RunFor(milliseconds(1100));
  host_.lamps.clear();
  host_.RunFor(milliseconds(10000));
  EXPECT_EQ(host_.LampOn(4), 6);
  std::vector<std::pair<int, int>> flashes;
  for (int i = 0; i < 10; ++i) {
    flashes.insert(flashes.end(), {{2, 1}, {2, 4}});
  }
  EXPECT_EQ(Changes(), flashes);
}

}  // namespace
}  // namespace dosmara
