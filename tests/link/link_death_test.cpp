// SPDX-License-Identifier: GPL-3.0-or-later
// Programming errors that stop the program from inside the link.
#include "link/identification.h"
#include "link/link_engine.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkDeathTest : public LinkFixture {};

const auto kStops = ::testing::ExitedWithCode(70);

TEST_F(LinkDeathTest, ARecordThatArrivesUnwantedStops) {
  Records(0, 10);
  At(0, 4).Flags = kDue;
  ReplyData = {57};
  ScanCursor = 4;
  EXPECT_EXIT(LinkComplete(), kStops, "LinkComplete: a record arrived that nobody wanted");
}

TEST_F(LinkDeathTest, IdentifyingANodeThatIsNoneStops) {
  EXPECT_EXIT(BoardIdentify(4), kStops, "BoardIdentify: no such node");
  EXPECT_EXIT(BoardIdentify(-1), kStops, "BoardIdentify: no such node");
}

// Runs in a program of its own, which has attached nothing yet.
TEST(LinkWithoutHostDeathTest, SendingWithoutAHostStops) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(Host(), kStops, "Host: the link has no host");
}

}  // namespace
}  // namespace dosmara
