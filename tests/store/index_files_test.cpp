// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/index_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

#include "store/failure.h"
#include "support/index_file_maker.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class IndexFiles : public ::testing::Test {
 protected:
  IndexFiles() { ResetCore(); }
  // Number of the failure of a load, 0 when it succeeds; `what` takes its sentence.
  int FailureOf(decltype(LoadFullIndex) load, const std::string& name, int node) {
    try {
      load(folder_.path(), name, node);
      return 0;
    } catch (const RunTimeError& error) {
      what_ = error.what();
      return error.number();
    }
  }

  TempFolder folder_;
  std::string what_;
};

using Entry = std::array<std::uint8_t, 11>;

TEST_F(IndexFiles, NodeTablesNameTheFourBoards) {
  InitNodeTables();
  EXPECT_EQ(NodeType[0], 256);
  EXPECT_EQ(NodeType[1], 257);
  EXPECT_EQ(NodeType[2], 245);
  EXPECT_EQ(NodeType[3], 245);
  EXPECT_EQ(NodeRevision[0], 14);
  EXPECT_EQ(NodeRevision[1], 2);
  EXPECT_EQ(NodeRevision[2], 1);
  EXPECT_EQ(NodeRevision[3], 2);
  EXPECT_EQ(NodeFileNumber[0], 1);
  EXPECT_EQ(NodeFileNumber[1], 1);
  EXPECT_EQ(NodeFileNumber[2], 0);
  EXPECT_EQ(NodeFileNumber[3], 0);
  EXPECT_EQ(NodeLetter[0], 0);
  EXPECT_EQ(NodeLetter[1], 81);
  EXPECT_EQ(NodeLetter[2], 86);
  EXPECT_EQ(NodeLetter[3], 87);
}

TEST_F(IndexFiles, ModelNamesAreTheTwelveOfTheFamily) {
  InitModelNames();
  const std::vector<std::string> names = {
      "Kelmar", "Lumeno", "Corvane",        "Zeth",        "Lumeno S",         "Corvane S",
      "Brevo",  "Galdo",  "Lumeno Nord EU", "Zeth Kestra", "Lumeno S Nord EU", "Corvane Plus"};
  EXPECT_EQ(std::vector<std::string>(std::begin(ModelNames), std::end(ModelNames)), names);
}

TEST_F(IndexFiles, SmallNamesPadTheTypeToFourDigits) {
  EXPECT_EQ(SmallIndexName(256), "W0256.inx");
  EXPECT_EQ(SmallIndexName(257), "W0257.inx");
  EXPECT_EQ(SmallIndexName(245), "W0245.inx");
  EXPECT_EQ(SmallIndexName(7), "W0007.inx");
  EXPECT_EQ(SmallIndexName(65535), "W65535.inx");
}

TEST_F(IndexFiles, FullNamesBearRevisionLetterAndFileNumber) {
  EXPECT_EQ(FullIndexName(256, 14, 1), "W0256AO01.inx");
  EXPECT_EQ(FullIndexName(245, 1, 0), "W0245AB00.inx");
  EXPECT_EQ(FullIndexName(245, 0, 0), "W0245AA00.inx");
  EXPECT_EQ(FullIndexName(257, 25, 42), "W0257AZ42.inx");
  EXPECT_EQ(FullIndexName(257, 26, 42), "W0257A[42.inx");
}

TEST_F(IndexFiles, OnlyTheLastTwoDigitsOfAFileNumberCountAsPrescribed) {
  EXPECT_EQ(FullIndexName(256, 14, 100), "W0256AO00.inx");
  EXPECT_EQ(FullIndexName(256, 14, 255), "W0256AO55.inx");
}

TEST_F(IndexFiles, SmallFileFillsTheIdentificationTableFromIndexOne) {
  std::vector<std::uint8_t> bytes(18 * 5, 0);
  const std::vector<std::uint8_t> first = {0x11, 0x22, 0x33, 0x44, 0x55};
  const std::vector<std::uint8_t> last = {0xA1, 0xB2, 0xC3, 0xD4, 0xE5};
  std::ranges::copy(first, bytes.begin());
  std::ranges::copy(last, bytes.begin() + 17 * 5);
  folder_.Write("W0257.inx", bytes);

  LoadSmallIndex(folder_.path(), "W0257.inx", 1);

  EXPECT_EQ(IdentTable[1][1], (Entry{0x11, 0x22, 0x33, 0x44, 0, 0, 0x55, 0, 0, 0, 0}));
  EXPECT_EQ(IdentTable[1][18], (Entry{0xA1, 0xB2, 0xC3, 0xD4, 0, 0, 0xE5, 0, 0, 0, 0}));
  EXPECT_EQ(IdentTable[1][0], Entry{});
  EXPECT_EQ(IdentTable[1][19], Entry{});
  EXPECT_EQ(IdentTable[0][1], Entry{});
  EXPECT_EQ(NodeRecordCount[1], 18);
}

TEST_F(IndexFiles, SmallFileOfTwentyRecordsFills) {
  folder_.Write("W0257.inx", SmallIndexBytes(20));
  LoadSmallIndex(folder_.path(), "W0257.inx", 1);
  EXPECT_EQ(NodeRecordCount[1], 20);
  EXPECT_EQ(IdentTable[1][20][0], 20);
}

TEST_F(IndexFiles, SmallFileTailIsIgnored) {
  std::vector<std::uint8_t> bytes = SmallIndexBytes(20);
  bytes.insert(bytes.end(), 4, 0xEE);
  folder_.Write("W0257.inx", bytes);
  EXPECT_EQ(FailureOf(LoadSmallIndex, "W0257.inx", 1), 0);
  EXPECT_EQ(NodeRecordCount[1], 20);
}

TEST_F(IndexFiles, SmallFileWithTooFewOrTooManyRecordsIsRefused) {
  for (const int count : {0, 17, 21, 4000}) {
    folder_.Write("W0257.inx", SmallIndexBytes(count));
    EXPECT_EQ(FailureOf(LoadSmallIndex, "W0257.inx", 1), 9) << count;
    EXPECT_EQ(what_, "W0257.inx is damaged: it must hold 18 to 20 records");
    EXPECT_EQ(IdentTable[1][1], Entry{});
  }
}

TEST_F(IndexFiles, FullFileFillsTheTableFromIndexOne) {
  folder_.Write("W0256AO01.inx", {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 148, 15, 16, 17, 18, 19});
  ParamRec& second = ParamTable[0][2];
  second.Subscribers = 3;
  second.Flags = 255;

  LoadFullIndex(folder_.path(), "W0256AO01.inx", 0);

  EXPECT_EQ(NodeRecordCount[0], 2);
  EXPECT_EQ(second.AddrLo, 11);
  EXPECT_EQ(second.AddrHi, 12);
  EXPECT_EQ(second.Control, 13);
  EXPECT_EQ(second.Period, 148);  // a countdown in the file is kept
  EXPECT_EQ(second.Subscribers, 0);
  EXPECT_EQ(second.Flags, 0);
  EXPECT_EQ(second.Bank, 15);
  EXPECT_EQ(second.Value[0], 16);
  EXPECT_EQ(second.Value[1], 17);
  EXPECT_EQ(second.Value[2], 18);
  EXPECT_EQ(second.Value[3], 19);
  for (const std::uint8_t blank : second.Padding) {
    EXPECT_EQ(blank, 32);
  }
  EXPECT_EQ(ParamTable[0][1].AddrLo, 1);
  EXPECT_EQ(ParamTable[0][3].AddrLo, 0);
}

TEST_F(IndexFiles, IndexZeroStaysEmpty) {
  folder_.Write("W0256AO01.inx", FullIndexBytes(10));
  LoadFullIndex(folder_.path(), "W0256AO01.inx", 0);
  const ParamRec empty{};
  EXPECT_EQ(std::memcmp(&ParamTable[0][0], &empty, sizeof empty), 0);
}

TEST_F(IndexFiles, FullFileTailIsIgnored) {
  std::vector<std::uint8_t> bytes = FullIndexBytes(3);
  bytes.insert(bytes.end(), 8, 0xEE);
  folder_.Write("W0256AO01.inx", bytes);
  LoadFullIndex(folder_.path(), "W0256AO01.inx", 0);
  EXPECT_EQ(NodeRecordCount[0], 3);
  EXPECT_EQ(ParamTable[0][4].AddrLo, 0);
}

TEST_F(IndexFiles, EmptyFullFileLeavesNoRecords) {
  NodeRecordCount[0] = 18;
  folder_.Write("W0256AO01.inx", {});
  EXPECT_EQ(FailureOf(LoadFullIndex, "W0256AO01.inx", 0), 0);
  EXPECT_EQ(NodeRecordCount[0], 0);
}

TEST_F(IndexFiles, FullFileOf32767RecordsFills) {
  folder_.Write("W0256AO01.inx", FullIndexBytes(32767));
  EXPECT_EQ(FailureOf(LoadFullIndex, "W0256AO01.inx", 0), 0);
  EXPECT_EQ(NodeRecordCount[0], 32767);
  EXPECT_EQ(ParamTable[0][32767].AddrLo, 0xFF);
  EXPECT_EQ(ParamTable[0][32767].AddrHi, 0x7F);
}

TEST_F(IndexFiles, FullFileOfMoreThan32767RecordsIsRefusedBeforeAnythingIsStored) {
  NodeRecordCount[0] = 18;
  for (const int count : {32768, 33001, 65536 + 5}) {
    folder_.Write("W0256AO01.inx", FullIndexBytes(count));
    EXPECT_EQ(FailureOf(LoadFullIndex, "W0256AO01.inx", 0), 6) << count;
    EXPECT_EQ(what_, "W0256AO01.inx is damaged: it holds more than 32767 records");
    EXPECT_EQ(ParamTable[0][1].AddrLo, 0);
    EXPECT_EQ(NodeRecordCount[0], 18);
  }
}

TEST_F(IndexFiles, AMissingFileIsNotFound) {
  NodeRecordCount[0] = 30;
  EXPECT_EQ(FailureOf(LoadSmallIndex, "W0256.inx", 0), 53);
  EXPECT_EQ(what_, "W0256.inx not found !");
  EXPECT_EQ(NodeRecordCount[0], 0);
  EXPECT_EQ(FailureOf(LoadFullIndex, "W0256AO01.inx", 0), 53);
  EXPECT_EQ(what_, "W0256AO01.inx not found !");
}

TEST_F(IndexFiles, AFolderOfTheNameIsNotTheFile) {
  std::filesystem::create_directory(folder_.path() / "W0256.inx");
  EXPECT_EQ(FailureOf(LoadSmallIndex, "W0256.inx", 0), 53);
}

TEST_F(IndexFiles, APipeOfTheNameIsNotTheFileAndIsNotWaitedFor) {
  ASSERT_EQ(mkfifo((folder_.path() / "W0256.inx").c_str(), 0600), 0);
  EXPECT_EQ(FailureOf(LoadSmallIndex, "W0256.inx", 0), 53);
}

TEST_F(IndexFiles, AMissingFolderIsAMissingFile) {
  EXPECT_THROW(LoadSmallIndex(folder_.path() / "nowhere", "W0256.inx", 0), RunTimeError);
}

TEST_F(IndexFiles, NamesMatchWithoutRegardToCase) {
  folder_.Write("w0256.INX", SmallIndexBytes(18));
  EXPECT_EQ(FailureOf(LoadSmallIndex, "W0256.inx", 0), 0);
}

TEST_F(IndexFiles, CaseMeansNothingFromTheFirstLetterToTheLast) {
  folder_.Write("w0245aa00.inx", FullIndexBytes(3));
  folder_.Write("w0245az00.inx", FullIndexBytes(4));
  LoadFullIndex(folder_.path(), "W0245AA00.INX", 2);
  EXPECT_EQ(NodeRecordCount[2], 3);
  LoadFullIndex(folder_.path(), "W0245AZ00.INX", 2);
  EXPECT_EQ(NodeRecordCount[2], 4);
}

TEST_F(IndexFiles, OnlyLettersDifferInCase) {
  // The characters beside the letters lie as far from one another as the two cases of a letter.
  folder_.Write("W0256A`01.inx", FullIndexBytes(3));
  EXPECT_EQ(FailureOf(LoadFullIndex, "W0256A@01.inx", 0), 53);
  folder_.Write("W0256A{01.inx", FullIndexBytes(3));
  EXPECT_EQ(FailureOf(LoadFullIndex, "W0256A[01.inx", 0), 53);
}

TEST_F(IndexFiles, TheExactNameGoesBeforeOneThatDiffersInCase) {
  folder_.Write("w0256.inx", SmallIndexBytes(18));
  folder_.Write("W0256.inx", SmallIndexBytes(19));
  folder_.Write("W0256.INX", SmallIndexBytes(20));
  LoadSmallIndex(folder_.path(), "W0256.inx", 0);
  EXPECT_EQ(NodeRecordCount[0], 19);
}

TEST_F(IndexFiles, AStrangeRevisionNeverLeavesTheFolder) {
  // 'A' + 238 wraps round to '/'.
  EXPECT_EQ(FailureOf(LoadFullIndex, FullIndexName(256, 238, 1), 0), 53);
}

}  // namespace
}  // namespace dosmara
