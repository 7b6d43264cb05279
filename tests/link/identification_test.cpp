// SPDX-License-Identifier: GPL-3.0-or-later
// Reading which boards are on the line.
#include "link/identification.h"

#include "link/link_engine.h"
#include "store/failure.h"
#include "store/index_files.h"
#include "support/index_file_maker.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class Identification : public LinkFixture {
 protected:
  Identification() {
    TempFolder folder;
    folder.Write("small.inx", SmallIndexBytes(18));
    for (int node = 0; node < 4; ++node) {
      LoadSmallIndex(folder.path(), "small.inx", node);
    }
    IdentifyStandardBoards(Board());
    LinkIdentifying = true;
  }
  void MainBoardSays(const BoardFacts& facts) { Identify(Board(), 0, facts); }
  void ExpectRefused(const std::string& text) {
    host_.boxes.clear();
    EXPECT_THROW(BoardIdentify(0), ProgramEnds);
    ASSERT_EQ(host_.boxes.size(), 1U);
    EXPECT_EQ(host_.boxes[0].text, text);
    EXPECT_EQ(host_.boxes[0].title, "ERROR");
    EXPECT_EQ(host_.boxes[0].style, BoxStyle::kCritical);
  }
};

TEST_F(Identification, ReadsTheMainBoardInItsOrder) {
  const BoardIdentity board = BoardIdentify(0);
  EXPECT_EQ(board.file_number, 1);
  EXPECT_EQ(board.revision, 14);
  EXPECT_EQ(board.board_code, 18);
  EXPECT_EQ(board.board_type, 256);
  EXPECT_EQ(ModelCode, 25);
  EXPECT_TRUE(NodePresent[0]);
  std::vector<int> entries;
  for (const Bytes& frame : Frames()) {
    entries.push_back(frame[3]);
  }
  EXPECT_EQ(entries, (std::vector<int>{1, 17, 11, 12, 13, 14, 18}));
}

TEST_F(Identification, ReadsOneByteWhateverTheEntrySaysAsPrescribed) {
  IdentTable[0][1] = {1, 0xFF, 0x23, 0, 0, 0, 7, 0, 0, 0, 0};
  ExchLength = 3;
  ScriptedBoard script;
  script.replies = {{5, 5}};
  host_.board = &script;
  host_.answers = {BoxAnswer::kCancel};
  EXPECT_THROW(BoardIdentify(0), ProgramEnds);
  EXPECT_EQ(Frames()[0], (Bytes{0x23, 7, 0xFF, 1, 0x2A}));
  EXPECT_EQ(Frames()[1][3], 17);  // two bytes were a whole reply
}

TEST_F(Identification, ReadsOtherNodesWithoutComparingAndWithoutTheModel) {
  Identify(Board(), 2, {.file_number = 99, .revision = 7, .code = 3, .type = 1234, .model = 1});
  const BoardIdentity board = BoardIdentify(2);
  EXPECT_EQ(board.file_number, 99);
  EXPECT_EQ(board.revision, 7);
  EXPECT_EQ(board.board_code, 3);
  EXPECT_EQ(board.board_type, 1234);
  EXPECT_EQ(ModelCode, 0);
  EXPECT_EQ(host_.frames.size(), 6U);
  EXPECT_EQ(host_.frames[0].bytes, (Bytes{241, 0, 255, 1, 0, 86, 71}));  // 583 modulo 256
  EXPECT_TRUE(host_.boxes.empty());
}

TEST_F(Identification, ASilentNodeIsAbsentAfterTwoSecondsWithoutAMessage) {
  Board().absent = {1};
  BoardIdentify(1);
  EXPECT_FALSE(NodePresent[1]);
  EXPECT_EQ(host_.Now(), milliseconds(2000));
  EXPECT_TRUE(host_.boxes.empty());
  EXPECT_EQ(ReplyData, (Bytes{0}));
}

TEST_F(Identification, ASilentNodeIsAskedAgainAfterASecond) {
  Board().absent = {1};
  host_.At(milliseconds(500), [this] { Board().absent.clear(); });
  BoardIdentify(1);
  EXPECT_TRUE(NodePresent[1]);
  EXPECT_EQ(host_.reopens, 1);
}

TEST_F(Identification, ANodeThatFallsSilentInTheMiddleIsAbsent) {
  host_.At(milliseconds(10), [this] { Board().absent = {3}; });
  BoardIdentify(3);
  EXPECT_FALSE(NodePresent[3]);
  EXPECT_TRUE(host_.boxes.empty());
}

TEST_F(Identification, EachReadHasTwoSecondsOfItsOwn) {
  Board().latency = milliseconds(900);
  BoardIdentify(1);
  EXPECT_TRUE(NodePresent[1]);
  EXPECT_EQ(host_.frames.size(), 6U);
}

TEST_F(Identification, EachAbsentNodeCostsItsOwnTwoSeconds) {
  Board().absent = {1, 2, 3};
  for (int node = 1; node < 4; ++node) {
    BoardIdentify(node);
  }
  EXPECT_EQ(host_.Now(), milliseconds(6000));
}

TEST_F(Identification, ANodeAfterAnAbsentOneIsFound) {
  Board().absent = {1};
  BoardIdentify(1);
  const BoardIdentity board = BoardIdentify(2);
  EXPECT_TRUE(NodePresent[2]);
  EXPECT_EQ(board.board_type, 245);
}

TEST_F(Identification, ABadCheckByteIsRetried) {
  ScriptedBoard script;
  script.replies = {{1, 2}, {9, 9}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}};
  host_.board = &script;
  const BoardIdentity board = BoardIdentify(1);
  EXPECT_EQ(board.file_number, 1);
  EXPECT_EQ(board.revision, 2);
  EXPECT_EQ(board.board_code, 3);
  EXPECT_EQ(board.board_type, 4 + 256 * 5);
  EXPECT_EQ(host_.frames.size(), 7U);
}

TEST_F(Identification, FiveBadRepliesAreSilence) {
  ScriptedBoard script;
  script.replies.assign(5, {1, 2});
  host_.board = &script;
  BoardIdentify(1);
  EXPECT_FALSE(NodePresent[1]);
  EXPECT_EQ(host_.frames.size(), 5U);
}

TEST_F(Identification, ANoisyAbsentNodeLeavesTheNextOneItsRetries) {
  ScriptedBoard script;
  script.replies = {{1, 2}, {1, 2}};
  host_.board = &script;
  BoardIdentify(1);
  EXPECT_FALSE(NodePresent[1]);
  script.replies = {{1, 2}, {1, 2}, {1, 2}, {9, 9}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}};
  BoardIdentify(2);
  EXPECT_TRUE(NodePresent[2]);
}

TEST_F(Identification, ASilentMainBoardAsksTheOperator) {
  Board().absent = {0};
  host_.answers = {BoxAnswer::kCancel};
  EXPECT_THROW(BoardIdentify(0), ProgramEnds);
  ASSERT_EQ(host_.boxes.size(), 1U);
  EXPECT_EQ(host_.boxes[0].time, milliseconds(2000));
  EXPECT_EQ(host_.boxes[0].text, "Check serial !\nBoard Not Ready");
  EXPECT_EQ(host_.boxes[0].title, "Serial");
  EXPECT_EQ(host_.boxes[0].style, BoxStyle::kRetryCancel);
}

TEST_F(Identification, RetryAsksTheMainBoardAgain) {
  Board().absent = {0};
  host_.answers = {BoxAnswer::kRetry, BoxAnswer::kRetry};
  host_.during_box = [this] {
    if (host_.boxes.size() == 2) {
      Board().absent.clear();
    }
  };
  const BoardIdentity board = BoardIdentify(0);
  EXPECT_EQ(host_.boxes.size(), 2U);
  EXPECT_EQ(board.board_type, 256);
  EXPECT_TRUE(NodePresent[0]);
}

TEST_F(Identification, AMainBoardThatComesBackWhileTheBoxIsOpenIsFoundByRetry) {
  Board().absent = {0};
  host_.answers = {BoxAnswer::kRetry};
  host_.box_time = milliseconds(5000);
  host_.during_box = [this] { Board().absent.clear(); };
  const BoardIdentity board = BoardIdentify(0);
  EXPECT_EQ(board.revision, 14);
  EXPECT_EQ(ModelCode, 25);
}

TEST_F(Identification, RetryRepeatsTheReadThatFailed) {
  ScriptedBoard script;
  script.replies = {{1, 1}, {1, 1}};
  host_.board = &script;
  host_.answers = {BoxAnswer::kRetry};
  host_.during_box = [&] { script.replies = {{14, 14}, {18, 18}, {0, 0}, {1, 1}, {25, 25}}; };
  BoardIdentify(0);
  std::vector<int> entries;
  for (const Bytes& frame : Frames()) {
    entries.push_back(frame[3]);
  }
  // Silence is asked again after a second, then by the operator.
  EXPECT_EQ(entries, (std::vector<int>{1, 17, 11, 11, 11, 12, 13, 14, 18}));
}

TEST_F(Identification, BytesThatComeWhileTheBoxIsOpenAskForNothing) {
  Board().absent = {0};
  host_.answers = {BoxAnswer::kCancel};
  host_.box_time = milliseconds(5000);
  host_.during_box = [this] {
    host_.frames.clear();
    Noise({1, 2});
  };
  EXPECT_THROW(BoardIdentify(0), ProgramEnds);
  EXPECT_TRUE(host_.frames.empty());
  EXPECT_EQ(host_.InputCount(), 0U);
}

TEST_F(Identification, AMainBoardThatFallsSilentInTheMiddleAsksTheOperatorToo) {
  host_.At(milliseconds(10), [this] { Board().absent = {0}; });
  host_.answers = {BoxAnswer::kCancel};
  EXPECT_THROW(BoardIdentify(0), ProgramEnds);
  EXPECT_EQ(host_.boxes.size(), 1U);
}

TEST_F(Identification, AnotherBoardCodeIsRefused) {
  MainBoardSays({.revision = 14, .code = 17, .type = 256, .model = 25});
  ExpectRefused("Not Compatible\nBoard");
}

TEST_F(Identification, AnotherBoardTypeIsRefused) {
  MainBoardSays({.revision = 14, .code = 18, .type = 257, .model = 25});
  ExpectRefused("Not Compatible\nBoard Type");
}

TEST_F(Identification, AnotherRevisionIsRefused) {
  MainBoardSays({.revision = 13, .code = 18, .type = 256, .model = 25});
  ExpectRefused("Not Compatible\nBoard Software");
}

TEST_F(Identification, AModelBelow23IsRefused) {
  MainBoardSays({.revision = 14, .code = 18, .type = 256, .model = 22});
  ExpectRefused("Not Compatible\nBoard Software");
}

TEST_F(Identification, Model23IsAccepted) {
  MainBoardSays({.revision = 14, .code = 18, .type = 256, .model = 23});
  BoardIdentify(0);
  EXPECT_EQ(ModelCode, 23);
  EXPECT_TRUE(host_.boxes.empty());
}

TEST_F(Identification, OfTwoFailingTestsOnlyTheLastIsToldAsPrescribed) {
  MainBoardSays({.revision = 14, .code = 17, .type = 257, .model = 25});
  ExpectRefused("Not Compatible\nBoard Type");
  MainBoardSays({.revision = 13, .code = 17, .type = 256, .model = 25});
  ExpectRefused("Not Compatible\nBoard Software");
}

}  // namespace
}  // namespace dosmara
