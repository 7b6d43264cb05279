// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/board.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "machine/board_files.h"
#include "machine/schedule.h"
#include "temp_folder.h"

namespace machine {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

TEST(Board, NumbersRecordsFrom1InTheOrderOfAdding) {
  Board board;
  ASSERT_TRUE(board.AddRecord({.bank = 1, .low = 7}, 70));
  ASSERT_TRUE(board.AddRecord({.bank = 1, .low = 3}, 30));
  EXPECT_EQ(board.record_count(), 2);
  EXPECT_EQ(board.Get(1), 70u);
  EXPECT_EQ(board.Get(2), 30u);
  EXPECT_EQ(board.Find({.bank = 1, .low = 3})->number, 2);
  EXPECT_FALSE(board.HasRecord(0));
  EXPECT_FALSE(board.HasRecord(3));
}

TEST(Board, RefusesAnAddressThatIsTaken) {
  Board board;
  ASSERT_TRUE(board.AddIdentification({.bank = 2, .low = 1}));
  ASSERT_TRUE(board.AddRecord({.bank = 1, .low = 1}, 0));
  EXPECT_FALSE(board.AddRecord({.bank = 1, .low = 1}, 0));
  EXPECT_FALSE(board.AddRecord({.bank = 2, .low = 1}, 0));
  EXPECT_EQ(board.record_count(), 1);
}

TEST(Board, AValueIsCutToTheWidthOfItsRecord) {
  Board board;
  ASSERT_TRUE(board.AddRecord({.low = 1, .control = 0}, 0x1234));
  ASSERT_TRUE(board.AddRecord({.low = 2, .control = 2}, 0x12345678));
  EXPECT_EQ(board.Get(1), 0x34u);
  EXPECT_EQ(board.Get(2), 0x345678u);
  EXPECT_EQ(board.Largest(1), 255u);
  EXPECT_EQ(board.Largest(2), 16777215u);
}

TEST(Board, TakesTheLengthFromTheLowHalfOfControl) {
  Board board;
  ASSERT_TRUE(board.AddRecord({.low = 1, .control = 0x53}, 0));
  EXPECT_EQ(board.Largest(1), 4294967295u);
}

TEST(Schedule, RunsActionsInOrderOfTimeAndAtTheirTime) {
  Schedule schedule;
  std::string ran;
  schedule.At(20ms, [&] { ran += schedule.now() == 20ms ? "b" : "?"; });
  schedule.At(10ms, [&] { ran += schedule.now() == 10ms ? "a" : "?"; });
  schedule.At(20ms, [&] { ran += "c"; });
  schedule.AdvanceTo(19ms);
  EXPECT_EQ(ran, "a");
  EXPECT_EQ(schedule.next(), Time(20ms));
  schedule.AdvanceTo(30ms);
  EXPECT_EQ(ran, "abc");
  EXPECT_EQ(schedule.next(), std::nullopt);
}

TEST(Schedule, RunsAnActionThatAnActionAddsWithinTheSameStep) {
  Schedule schedule;
  int ran = 0;
  schedule.At(10ms, [&] { schedule.In(5ms, [&] { ++ran; }); });
  schedule.AdvanceTo(14ms);
  EXPECT_EQ(ran, 0);
  schedule.AdvanceTo(15ms);
  EXPECT_EQ(ran, 1);
}

TEST(Schedule, NeverRunsBackward) {
  Schedule schedule;
  schedule.AdvanceTo(10ms);
  schedule.AdvanceTo(5ms);
  EXPECT_EQ(schedule.now(), 10ms);
}

class BoardFilesTest : public testing::Test {
 protected:
  BoardFilesTest() {
    for (const char* small : {"W0256.inx", "W0257.inx", "W0245.inx"}) {
      Put(small, SmallFile());
    }
    Put("W0256AO01.inx", {1, 0, 1, 5, 3, 232, 3, 0, 0, 2, 0, 0, 0, 3, 8, 0, 0, 0});
    Put("W0257AC01.inx", {1, 0, 0, 0, 3, 21, 0, 0, 0});
    Put("W0245AB00.inx", {1, 0, 0, 0, 3, 22, 0, 0, 0});
    Put("W0245AC00.inx", {1, 0, 0, 0, 3, 23, 0, 0, 0});
  }

  // Entry k at bank 9, high byte 8, low byte k.
  static Bytes SmallFile() {
    Bytes bytes;
    for (std::uint8_t k = 1; k <= 18; ++k) {
      bytes.insert(bytes.end(), {k, 8, 0, 0, 9});
    }
    return bytes;
  }

  void Put(const std::string& name, const Bytes& bytes) {
    std::ofstream(folder_ / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }

  std::string FailureOfLoad() {
    try {
      LoadBoards(folder_.path());
    } catch (const FileError& error) {
      return error.what();
    }
    return {};
  }

  TempFolder folder_;
};

TEST_F(BoardFilesTest, ReadsRowsOfNineBytes) {
  Boards boards = LoadBoards(folder_.path());
  EXPECT_EQ(boards[0].record_count(), 2);
  const Cell* first = boards[0].Find({.bank = 3, .high = 0, .low = 1, .control = 1});
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->number, 1);
  EXPECT_EQ(boards[0].Get(1), 1000u);
  EXPECT_EQ(boards[0].Get(2), 8u);
}

TEST_F(BoardFilesTest, EachNodeHasItsOwnFileAndTheUnitsShareTheSmallOne) {
  Boards boards = LoadBoards(folder_.path());
  EXPECT_EQ(boards[1].Get(1), 21u);
  EXPECT_EQ(boards[2].Get(1), 22u);
  EXPECT_EQ(boards[3].Get(1), 23u);
}

TEST_F(BoardFilesTest, TheIdentificationNamesTheFullFile) {
  struct {
    std::size_t node;
    int revision, type_low, type_high, file_number, model;
  } const boards_told[] = {
      {0, 14, 0, 1, 1, 25}, {1, 2, 1, 1, 1, 0}, {2, 1, 245, 0, 0, 0}, {3, 2, 245, 0, 0, 0}};
  Boards boards = LoadBoards(folder_.path());
  for (const auto& told : boards_told) {
    const auto entry = [&](std::uint8_t k) {
      return boards[told.node].Find({.bank = 9, .high = 8, .low = k})->bytes[0];
    };
    EXPECT_EQ(entry(11), told.revision);
    EXPECT_EQ(entry(12), 18);
    EXPECT_EQ(entry(13), told.type_low);
    EXPECT_EQ(entry(14), told.type_high);
    EXPECT_EQ(entry(17), told.file_number);
    EXPECT_EQ(entry(18), told.model);
  }
}

TEST_F(BoardFilesTest, NamesAFileThatIsMissing) {
  fs::remove(folder_ / "W0245AC00.inx");
  EXPECT_EQ(FailureOfLoad(), (folder_ / "W0245AC00.inx").string() + ": cannot be read");
}

TEST_F(BoardFilesTest, NamesAFullFileThatIsEmptyOrEndsWithinARecord) {
  const std::string name = (folder_ / "W0257AC01.inx").string();
  for (const std::size_t length : {8u, 10u, 17u}) {
    Put("W0257AC01.inx", Bytes(length, 1));
    EXPECT_EQ(FailureOfLoad(), name + ": ends within a record") << length;
  }
  Put("W0257AC01.inx", {});
  EXPECT_EQ(FailureOfLoad(), name + ": holds no records");
}

TEST_F(BoardFilesTest, PassesOverARestOfASmallFile) {
  Bytes bytes = SmallFile();
  bytes.push_back(7);
  Put("W0257.inx", bytes);
  EXPECT_EQ(FailureOfLoad(), "");
}

TEST_F(BoardFilesTest, NamesTheRowWhoseAddressIsTaken) {
  Put("W0257AC01.inx", {1, 0, 0, 0, 3, 21, 0, 0, 0, 1, 0, 0, 7, 3, 0, 0, 0, 0});
  EXPECT_EQ(FailureOfLoad(),
            (folder_ / "W0257AC01.inx").string() + ": row 2 lies at an address already taken");
}

}  // namespace
}  // namespace machine
