// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the tool: which port, which boards, and what the operator is told when it fails.
#include <QTimer>

#include "link/identification.h"
#include "link/link_engine.h"
#include "store/parameter_table.h"
#include "system/system_test.h"

namespace dosmara {
namespace {

const Box kBoardNotReady = {"Check serial !\nBoard Not Ready", "Serial", BoxStyle::kRetryCancel};

class Connects : public SystemTest {
 protected:
  // Makes the machine on port 1 fall silent as soon as the identification has begun.
  void FallSilentAfterThePortTest() {
    silencer_.callOnTimeout([this] {
      if (LinkIdentifying) {
        silencer_.stop();
        machine().Command("mute on");
      }
    });
    silencer_.start(0);
  }

 private:
  QTimer silencer_;
};

TEST_F(Connects, FindsTheBoardsOfAllNodes) {
  Connect();
  EXPECT_EQ(PortNumber, 1);
  EXPECT_EQ(ModelCode, 25);
  for (int node = 0; node < 4; ++node) {
    EXPECT_TRUE(NodePresent[node]) << node;
    EXPECT_GT(NodeRecordCount[node], 20) << node;
  }
  EXPECT_EQ(Lamp(4), 3);
  EXPECT_TRUE(screen_.boxes.empty());
}

class ConnectsWithoutABoard : public SystemTest, public testing::WithParamInterface<int> {};

TEST_P(ConnectsWithoutABoard, TakesItAsAbsentWithoutAWord) {
  Connect({"--absent", QString::number(GetParam())});
  for (int node = 0; node < 4; ++node) {
    EXPECT_EQ(NodePresent[node], node != GetParam()) << node;
  }
  EXPECT_TRUE(screen_.boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Nodes, ConnectsWithoutABoard, testing::Values(1, 2, 3));

struct Foreign {
  const char* name;
  QStringList options;
  const char* text;
};

void PrintTo(const Foreign& foreign, std::ostream* out) { *out << foreign.name; }

class Refuses : public SystemTest, public testing::WithParamInterface<Foreign> {};

TEST_P(Refuses, TellsWhyAndEnds) {
  machine_ = &rig_.StartMachine(1, GetParam().options);
  EXPECT_FALSE(ToolStarts());
  const Box expected = {GetParam().text, "ERROR", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

INSTANTIATE_TEST_SUITE_P(
    Boards, Refuses,
    testing::Values(Foreign{"Code17", {"--board-code", "17"}, "Not Compatible\nBoard"},
                    Foreign{"Type255", {"--type", "255"}, "Not Compatible\nBoard Type"},
                    Foreign{"Revision13", {"--revision", "13"}, "Not Compatible\nBoard Software"},
                    Foreign{"Model22", {"--model", "22"}, "Not Compatible\nBoard Software"},
                    Foreign{"Code17AndModel22",
                            {"--board-code", "17", "--model", "22"},
                            "Not Compatible\nBoard Software"}),
    [](const auto& foreign) { return std::string(foreign.param.name); });

TEST_F(Connects, AcceptsTheLowestModel) {
  Connect({"--model", "23"});
  EXPECT_EQ(ModelCode, 23);
}

TEST_F(Connects, AsksWhatToDoAboutASilentMainBoardAndEndsOnCancel) {
  machine_ = &rig_.StartMachine();
  FallSilentAfterThePortTest();
  screen_.answers = {BoxAnswer::kCancel};
  EXPECT_FALSE(ToolStarts());
  EXPECT_EQ(screen_.boxes, std::vector<Box>{kBoardNotReady});
}

TEST_F(Connects, TriesASilentMainBoardAgainOnRetry) {
  machine_ = &rig_.StartMachine();
  FallSilentAfterThePortTest();
  const MsgBoxHandler recorder = SetMsgBoxHandler({});
  SetMsgBoxHandler([&](const QString& text, const QString& title, BoxStyle style) {
    recorder(text, title, style);
    // A technician is slower than a repeated request that is still on the line.
    machine().Command("wait 100");
    machine().Command("mute off");
    return BoxAnswer::kRetry;
  });
  EXPECT_TRUE(ToolStarts());
  EXPECT_EQ(screen_.boxes, std::vector<Box>{kBoardNotReady});
  EXPECT_TRUE(NodePresent[0] && NodePresent[3]);
}

TEST_F(Connects, FindsTheMachineOnAnotherPortThanTheSettingsSay) {
  machine_ = &rig_.StartMachine(3);
  EXPECT_TRUE(ToolStarts());
  EXPECT_EQ(PortNumber, 3);
  EXPECT_TRUE(Ticked("mnuCox(3)"));
  EXPECT_FALSE(Ticked("mnuCox(1)"));
  EXPECT_EQ(rig_.folder().Read("dosmara.ini"), "Com=1\nLingua=English\n")
      << "a port that was found is not saved";
}

TEST_F(Connects, BeginsWithThePortOfTheSettings) {
  rig_.folder().Write("dosmara.ini", "Com=3\nLingua=English\n");
  rig_.StartMachine(1);
  machine_ = &rig_.StartMachine(3);
  EXPECT_TRUE(ToolStarts());
  EXPECT_EQ(PortNumber, 3);
}

TEST_F(Connects, EndsWhenNoPortHasAMachine) {
  EXPECT_FALSE(ToolStarts());
  ASSERT_EQ(screen_.boxes.size(), 1u);
  EXPECT_EQ(screen_.boxes[0].text, "Check serial !\nSerial device unavailable\nor Board Not Ready");
  EXPECT_EQ(screen_.boxes[0].title, "ERROR 8002");
}

}  // namespace
}  // namespace dosmara
