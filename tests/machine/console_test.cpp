// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/console.h"

#include "console_fixture.h"

namespace machine {
namespace {

TEST_F(ConsoleTest, GetPrintsNodeRecordAndValue) {
  Set(1, 150, 1000);
  EXPECT_EQ(Run("get 1 150"), "ok 1 150 1000");
}

TEST_F(ConsoleTest, SetChangesWhatABoardHolds) {
  EXPECT_EQ(Run("set 1 150 65535"), "ok");
  EXPECT_EQ(Get(1, 150), 65535u);
}

TEST_F(ConsoleTest, SetIsNoCommandToTheMachine) {
  Set(1, 148, 40);
  Set(0, 315, 1);
  EXPECT_EQ(Run("set 0 314 2"), "ok");
  EXPECT_FALSE(machine_.dispenser().busy());
}

TEST_F(ConsoleTest, ABadCommandIsRefusedInOneLineAndChangesNothing) {
  Set(0, 5, 9);
  EXPECT_EQ(Run("set 0 5 256"), "error: value must be 0 to 255, not '256'");
  EXPECT_EQ(Run("set 0 5 -1"), "error: value must be 0 to 255, not '-1'");
  EXPECT_EQ(Run("set 0 5 7x"), "error: value must be 0 to 255, not '7x'");
  EXPECT_EQ(Run("set 0 5"), "error: usage: set NODE RECORD VALUE");
  EXPECT_EQ(Run("set 0 5 7 8"), "error: usage: set NODE RECORD VALUE");
  EXPECT_EQ(Run("set 4 5 7"), "error: node must be 0 to 3, not '4'");
  EXPECT_EQ(Run("set 0 391 7"), "error: record of node 0 must be 1 to 390, not '391'");
  EXPECT_EQ(Run("set 0 0 7"), "error: record of node 0 must be 1 to 390, not '0'");
  EXPECT_EQ(Run("dance"), "error: no command 'dance', try help");
  EXPECT_EQ(Get(0, 5), 9u);
}

TEST_F(ConsoleTest, TestStartsDispensingAsTheToolWould) {
  Set(1, 148, 40);
  EXPECT_EQ(Run("test 2 1"), "ok");
  EXPECT_TRUE(machine_.dispenser().busy());
  EXPECT_EQ(Run("test 2 1"), "error: the machine is dispensing");
  Pass(3s);
  Set(1, 280, 5);
  EXPECT_EQ(Run("test 7 0 66"), "ok");
  EXPECT_TRUE(machine_.dispenser().busy());
}

TEST_F(ConsoleTest, ATestThatTheMachineDoesNotStartIsRefusedAndChangesNothing) {
  Set(0, 315, 7);
  Set(0, 316, 8);
  EXPECT_EQ(Run("test 2 1"), "error: the machine does not start that") << "no water is set";
  Set(1, 148, 40);
  EXPECT_EQ(Run("test 5 1"), "error: the machine does not start that");
  EXPECT_EQ(Run("test 2 23"), "error: the machine does not start that");
  EXPECT_EQ(Run("test 1 1"), "error: command must be 2 to 7, not '1'");
  EXPECT_EQ(Get(0, 315), 7u);
  EXPECT_EQ(Get(0, 316), 8u);
  EXPECT_EQ(Get(0, 314), 0u);
}

TEST_F(ConsoleTest, AbsentAndPresentMoveABoard) {
  EXPECT_EQ(Run("absent 2"), "ok");
  EXPECT_FALSE(machine_.presence().IsPresent(2));
  EXPECT_EQ(Run("present 2"), "ok");
  EXPECT_TRUE(machine_.presence().IsPresent(2));
  EXPECT_EQ(Run("absent 0"), "error: node must be 1 to 3, not '0'");
}

TEST_F(ConsoleTest, ModelChangesTheCodeThatNode0Reports) {
  EXPECT_EQ(Run("model 22"), "ok");
  EXPECT_EQ(Ask({0, 2, 0, 18, 20}), (Bytes{22, 22}));
  EXPECT_EQ(Ask({0, 2, 0, 11, 13}), (Bytes{14, 14}));
  EXPECT_EQ(Run("model 256"), "error: number must be 0 to 255, not '256'");
}

TEST_F(ConsoleTest, FaultTakesACountARateOrOff) {
  EXPECT_EQ(Run("fault lost 1"), "ok");
  EXPECT_TRUE(Ask({0, 1, 0, 5, 6}).empty());
  EXPECT_FALSE(Ask({0, 1, 0, 5, 6}).empty());
  EXPECT_EQ(Run("fault lost 100%"), "ok");
  for (int i = 0; i < 10; ++i) {
    EXPECT_TRUE(Ask({0, 1, 0, 5, 6}).empty());
  }
  EXPECT_EQ(Run("fault lost off"), "ok");
  EXPECT_FALSE(Ask({0, 1, 0, 5, 6}).empty());
  Run("fault lost 5");
  EXPECT_EQ(Run("fault off"), "ok");
  EXPECT_FALSE(Ask({0, 1, 0, 5, 6}).empty());
}

TEST_F(ConsoleTest, FaultRefusesWhatItDoesNotKnow) {
  EXPECT_EQ(Run("fault fire 1"), "error: no fault 'fire', try help fault");
  EXPECT_EQ(Run("fault lost 101%"), "error: rate must be 0 to 100, not '101'");
  EXPECT_EQ(Run("fault lost many"), "error: count must be 0 to 1000000, not 'many'");
  EXPECT_EQ(Run("fault lost"), "error: a count, a rate such as 5%, or off is missing");
}

TEST_F(ConsoleTest, MuteAndRestartReachTheMachine) {
  EXPECT_EQ(Run("mute on"), "ok");
  EXPECT_TRUE(Ask({0, 1, 0, 5, 6}).empty());
  EXPECT_EQ(Run("mute off"), "ok");
  EXPECT_FALSE(Ask({0, 1, 0, 5, 6}).empty());
  EXPECT_EQ(Run("mute maybe"), "error: on or off, not 'maybe'");
  EXPECT_EQ(Run("restart"), "ok");
  EXPECT_TRUE(Ask({0, 1, 0, 5, 6}).empty());
}

TEST_F(ConsoleTest, UnplugAndReplugTakeTurns) {
  EXPECT_EQ(Run("replug"), "error: plugged in already");
  EXPECT_EQ(Run("unplug"), "ok");
  EXPECT_FALSE(plug_.plugged_);
  EXPECT_EQ(Run("unplug"), "error: unplugged already");
  plug_.failure_ = "no line left";
  EXPECT_EQ(Run("replug"), "error: no line left");
  plug_.failure_.clear();
  EXPECT_EQ(Run("replug"), "ok");
  EXPECT_TRUE(plug_.plugged_);
}

TEST_F(ConsoleTest, StatusTellsHowTheMachineIs) {
  Ask({0, 1, 0, 5, 6});
  Ask({0, 9, 0, 5, 14});
  Ask({1, 2, 3});
  Run("absent 2");
  Run("absent 3");
  Run("fault lost 3");
  Run("fault corrupt 5%");
  Run("unplug");
  EXPECT_EQ(
      Run("status"),
      "ok time 1.500 model 25 plugged no muted no absent 2,3 dispensing no faults lost,corrupt requests 2 "
      "replies 1 dropped 3 serving nothing connection alive frames/s 2 errors 1 speed 1 clock 00:00 scenario "
      "0 selling yes testing none refused 0");
}

TEST_F(ConsoleTest, HelpNamesAllCommandsInOneLineOrExplainsOne) {
  EXPECT_TRUE(Run("help").starts_with("ok help, get, set, test, vend, "));
  EXPECT_EQ(Run("help get"), "ok get NODE RECORD: prints node, record and value");
  EXPECT_EQ(Run("help quit"), "ok quit: ends the program");
  EXPECT_EQ(Run("help dance"), "error: no command 'dance'");
}

TEST_F(ConsoleTest, QuitEndsTheProgram) {
  EXPECT_EQ(Run("quit"), "ok");
  EXPECT_TRUE(plug_.quit_);
}

TEST_F(ConsoleTest, RunsLinesInOrderAndPassesOverCommentsAndEmptyLines) {
  for (const char* line : {"# a comment", "", "   ", "get 0 5", " get 0 6 "}) {
    console_.Add(line);
  }
  EXPECT_EQ(console_.RunNext(), "ok 0 5 0");
  EXPECT_EQ(console_.RunNext(), "ok 0 6 0");
  EXPECT_EQ(console_.RunNext(), std::nullopt);
}

TEST_F(ConsoleTest, WaitHoldsTheNextLineBack) {
  console_.Add("wait 250");
  console_.Add("get 0 5");
  EXPECT_EQ(console_.RunNext(), "ok");
  EXPECT_EQ(console_.RunNext(), std::nullopt);
  EXPECT_EQ(console_.resumes_at(), Time(250ms));
  Pass(249ms);
  EXPECT_EQ(console_.RunNext(), std::nullopt);
  Pass(1ms);
  EXPECT_EQ(console_.RunNext(), "ok 0 5 0");
  EXPECT_EQ(console_.resumes_at(), std::nullopt);
}

}  // namespace
}  // namespace machine
