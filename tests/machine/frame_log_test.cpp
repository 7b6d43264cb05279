// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/frame_log.h"

#include <fstream>

#include "machine_fixture.h"
#include "temp_folder.h"

namespace machine {
namespace {

class FrameLogTest : public testing::Test {
 protected:
  FrameLogTest() {
    std::ofstream(folder_ / "W0257AC01.tsv") << "record\tname\tbytes\tperiod\tdefault\n"
                                             << "5\tprice number, selection 5\t1\t0\t4\n";
    machine_.emplace(PlainBoards(), 1,
                     FrameLog(RecordNames::Load(folder_.path()),
                              [this](const std::string& line) { lines_.push_back(line); }));
    machine_->log().Switch(true);
  }

  void Ask(const Bytes& request) {
    machine_->Receive(request);
    machine_->AdvanceTo(machine_->now() + 100ms);
  }

  TempFolder folder_;
  std::vector<std::string> lines_;
  std::optional<Machine> machine_;
};

TEST_F(FrameLogTest, TellsTimeDirectionNodeRecordNameValueAndBytes) {
  Ask({242, 1, 0, 5, 128, 81, 57, 2});
  ASSERT_EQ(lines_.size(), 2u);
  EXPECT_EQ(
      lines_[0],
      "      0.004167  in   node 1  write  record 5 price number, selection 5 = 57  F2 01 00 05 80 51 39 02");
  EXPECT_EQ(lines_[1], "      0.007167  out  node 1  write  record 5 price number, selection 5 = 57  04");
}

TEST_F(FrameLogTest, TellsTheValueOfAReadWithItsReply) {
  machine_->board(0).Set(6, 9);
  Ask({0, 1, 0, 6, 7});
  ASSERT_EQ(lines_.size(), 2u);
  EXPECT_EQ(lines_[0],
            "      0.002604  in   node 0  read   record 6                             00 01 00 06 07");
  EXPECT_EQ(lines_[1], "      0.003604  out  node 0  read   record 6 = 9                         09 09");
}

TEST_F(FrameLogTest, NamesIdentificationAndUnknownAddresses) {
  Ask({0, 2, 0, 18, 20});
  Ask({0, 9, 10, 11, 30});
  ASSERT_EQ(lines_.size(), 3u);
  EXPECT_NE(lines_[0].find("node 0  read   identification 18 "), std::string::npos);
  EXPECT_NE(lines_[2].find("node 0  read   address 09:0A:0B control 00 "), std::string::npos);
}

TEST_F(FrameLogTest, NamesTheReadThatLooksForAMachine) {
  Ask({0, 0, 0, 0, 0});
  ASSERT_EQ(lines_.size(), 2u);
  EXPECT_NE(lines_[0].find("in   node 0  read   port test "), std::string::npos);
  EXPECT_NE(lines_[1].find("out  node 0  read   port test "), std::string::npos);
}

TEST_F(FrameLogTest, TellsBytesThatAreNoRequest) {
  Ask({1, 2, 3});
  ASSERT_EQ(lines_.size(), 1u);
  EXPECT_NE(lines_[0].find("in   no request"), std::string::npos);
  EXPECT_TRUE(lines_[0].ends_with(" 01 02 03"));
}

TEST_F(FrameLogTest, TellsARestart) {
  machine_->Restart();
  EXPECT_EQ(lines_, std::vector<std::string>{"      0.000000  ---  restart"});
}

TEST_F(FrameLogTest, SwitchedOffItIsStill) {
  machine_->log().Switch(false);
  Ask({0, 1, 0, 6, 7});
  Ask({1, 2, 3});
  machine_->Restart();
  EXPECT_TRUE(lines_.empty());
}

TEST_F(FrameLogTest, ABoardWithoutATableHasNoNames) {
  const RecordNames names = RecordNames::Load(folder_.path());
  EXPECT_EQ(names.NameOf(1, 5), "price number, selection 5");
  EXPECT_EQ(names.NameOf(1, 6), "");
  EXPECT_EQ(names.NameOf(2, 5), "");
}

}  // namespace
}  // namespace machine
