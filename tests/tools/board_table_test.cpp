// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/board_table.h"

#include "tools/table_test.h"

namespace dosmara {
namespace {

// The first two rows of a full and of an identification table; records follow from line 3 on.
const std::string kFull = "files|W0256AO01\nrecord|name|bytes|period|default\n";
const std::string kSmall = "files|W0256\nrecord|name|bytes|period\n";

class BoardTableCheck : public TableTest {
 protected:
  BoardTable Read(const std::string& text) { return ReadBoardTable(Table(text)); }
};

TEST_F(BoardTableCheck, ReadsARowAsOneRecord) {
  const BoardTable table = Read(kFull + "1|code|3|0|12345\n2|status|1|4|7\n3|spare|1|0|0\n");
  ASSERT_EQ(table.records.size(), 3u);
  EXPECT_EQ(table.files, std::vector<std::string>{"W0256AO01"});
  EXPECT_FALSE(table.identification);
  EXPECT_EQ(table.records[0].name, "code");
  EXPECT_EQ(table.records[0].bytes, 3);
  EXPECT_EQ(table.records[0].value, 12345u);
  EXPECT_EQ(table.records[1].period, 4);
}

TEST_F(BoardTableCheck, SpreadsARangeOverItsRecords) {
  const BoardTable table = Read(kFull + "1-3|price {n}|2|0|40 50 60\n4|spare|1|0|0\n");
  ASSERT_EQ(table.records.size(), 4u);
  EXPECT_EQ(table.records[2].name, "price 3");
  EXPECT_EQ(table.records[0].value, 40u);
  EXPECT_EQ(table.records[2].value, 60u);
}

TEST_F(BoardTableCheck, GivesOneDefaultToAWholeRange) {
  const BoardTable table = Read(kFull + "1-3|price {n}|2|0|40\n4|spare|1|0|0\n");
  EXPECT_EQ(table.records[2].value, 40u);
}

TEST_F(BoardTableCheck, InterleavesRangesWithAStep) {
  const BoardTable table = Read(kFull + "1-5/2|minute {n}|1|0|0\n2-6/2|hour {n}|1|0|0\n7|spare|1|0|0\n");
  ASSERT_EQ(table.records.size(), 7u);
  EXPECT_EQ(table.records[2].name, "minute 2");
  EXPECT_EQ(table.records[5].name, "hour 3");
}

TEST_F(BoardTableCheck, GivesAMirrorWidthAndDefaultOfItsRecordButNoPeriod) {
  const BoardTable table = Read(kFull + "1-2|price {n}|2|8|40 50\n3-4|mirror of 1-2\n5|spare|1|0|0\n");
  EXPECT_EQ(table.records[3].name, "mirror of price 2");
  EXPECT_EQ(table.records[3].bytes, 2);
  EXPECT_EQ(table.records[3].value, 50u);
  EXPECT_EQ(table.records[3].period, 0);
}

TEST_F(BoardTableCheck, PassesOverBlankLinesAndRemarks) {
  EXPECT_EQ(Read("# remark\n\n" + kFull + "# remark\n1|spare|1|0|0\n").records.size(), 1u);
}

TEST_F(BoardTableCheck, KnowsATableOfIdentificationByItsFileName) {
  EXPECT_TRUE(Read(kSmall + "1-18|entry {n}|1|0\n").identification);
}

TEST_F(BoardTableCheck, NumbersSelectionsWithTheirGap) {
  EXPECT_EQ(ExpandName("dose, selection {selection}", 0), "dose, selection 1");
  EXPECT_EQ(ExpandName("dose, selection {selection}", 15), "dose, selection 16");
  EXPECT_EQ(ExpandName("dose, selection {selection}", 16), "dose, selection 21");
  EXPECT_EQ(ExpandName("dose, selection {selection}", 21), "dose, selection 26");
}

TEST_F(BoardTableCheck, NumbersPositionsByRowAndColumn) {
  EXPECT_EQ(ExpandName("group, position {position}", 0), "group, position 11");
  EXPECT_EQ(ExpandName("group, position {position}", 8), "group, position 21");
  EXPECT_EQ(ExpandName("group, position {position}", 47), "group, position 68");
}

TEST_F(BoardTableCheck, CountsFromElsewhereWhenTold) {
  EXPECT_EQ(ExpandName("price {n+30}", 0), "price 31");
  EXPECT_EQ(ExpandName("entry {n-1}, hour", 9), "entry 9, hour");
}

const Mistake kMistakes[] = {
    {"AMissingRecord", kFull + "1|code|3|0|0\n3|spare|1|0|0\n", "3: record 2 is missing after this row"},
    {"ADoubledRecord", kFull + "1-3|code|3|0|0\n3|spare|1|0|0\n", "4: record 3 stands in line 3 already"},
    {"RecordNought", kFull + "0|code|3|0|0\n", "3: record '0' is no number from 1 to 32767"},
    {"ARecordBeyondTheTable", kFull + "32768|code|3|0|0\n", "3: record '32768' is no number from 1 to 32767"},
    {"ARecordWithoutNumber", kFull + "x|code|3|0|0\n", "3: record 'x' is no number from 1 to 32767"},
    {"ARangeOfOne", kFull + "4-4|code|3|0|0\n", "3: record range '4-4' does not rise to its end"},
    {"AFallingRange", kFull + "9-4|code|3|0|0\n", "3: record range '9-4' does not rise to its end"},
    {"AStepPastTheEnd", kFull + "1-6/2|code|3|0|0\n", "3: record range '1-6/2' does not rise to its end"},
    {"NoBytes", kFull + "1|code|0|0|0\n", "3: bytes '0' is no number from 1 to 4"},
    {"MoreBytesThanAWriteCarries", kFull + "1|code|5|0|0\n", "3: bytes '5' is no number from 1 to 4"},
    {"APeriodOfMoreThanANibble", kFull + "1|code|1|16|0\n", "3: period '16' is no number from 0 to 15"},
    {"ADefaultTooWideForOneByte", kFull + "1|spare|1|0|256\n", "3: default '256' is no number from 0 to 255"},
    {"ADefaultTooWideForTwoBytes", kFull + "1|spare|2|0|65536\n",
     "3: default '65536' is no number from 0 to 65535"},
    {"TooFewDefaults", kFull + "1-3|code|1|0|1 2\n", "3: has 2 defaults for 3 records"},
    {"NoDefault", kFull + "1|code|1|0|\n", "3: has 0 defaults for 1 records"},
    {"TooFewCells", kFull + "1|code|1|0\n", "3: has 4 cells"},
    {"TooManyCells", kFull + "1|code|1|0|0|0\n", "3: has 6 cells"},
    {"ARecordWithoutName", kFull + "1||1|0|0\n", "3: has no name"},
    {"AMirrorOfNothing", kFull + "1|mirror of 2\n", "3: mirrors record 2, which no row above has"},
    {"AMirrorOfAnotherLength", kFull + "1-2|code|1|0|0\n3-5|mirror of 1-2\n",
     "4: mirrors a range of another length"},
    {"ALastRecordInUse", kFull + "1|code|3|0|0\n",
     "3: the last record must be a spare, for the scan never visits it"},
    {"TooFewIdentificationRecords", kSmall + "1-17|entry {n}|1|0\n",
     "3: identification takes 18 to 20 records"},
    {"TooManyIdentificationRecords", kSmall + "1-21|entry {n}|1|0\n",
     "3: identification takes 18 to 20 records"},
    {"AFileNameTooShort", "files|W256\nrecord|name|bytes|period|default\n1|spare|1|0|0\n",
     "1: 'W256' is no name for an index file of this table"},
    {"FilesOfTwoKinds", "files|W0245|W0245AB00\nrecord|name|bytes|period\n1-18|entry|1|0\n",
     "1: 'W0245AB00' is no name for an index file of this table"},
    {"ATableWithoutFiles", "record|name\n1|code\n2|spare\n",
     "1: the first row must be 'files' and their names"},
    {"ATableWithoutColumns", "files|W0256AO01\n1|code|1|0|0\n2|spare|1|0|0\n",
     "2: the second row must name the columns"},
    {"ATableWithoutRecords", kFull, "1: has no records"},
};

class BoardTableRefuses : public BoardTableCheck, public testing::WithParamInterface<Mistake> {};

TEST_P(BoardTableRefuses, SayingFileAndLine) {
  EXPECT_EQ(Complaint([&] { Read(GetParam().table); }), "t.tsv:" + GetParam().complaint);
}

INSTANTIATE_TEST_SUITE_P(Mistakes, BoardTableRefuses, testing::ValuesIn(kMistakes), MistakeName);

TEST_F(BoardTableCheck, TakesTheWidestDefaultOfAWidthAndTheMostIdentificationRecords) {
  EXPECT_EQ(Read(kFull + "1|spare|1|0|255\n").records[0].value, 255u);
  EXPECT_EQ(Read(kFull + "1|spare|4|0|4294967295\n").records[0].value, 4294967295u);
  EXPECT_EQ(Read(kSmall + "1-20|entry {n}|1|0\n").records.size(), 20u);
}

TEST_F(BoardTableCheck, RefusesAFileThatCannotBeRead) {
  EXPECT_EQ(Complaint([&] { ReadBoardTable(folder_ / "none.tsv"); }), "none.tsv:1: cannot be read");
}

}  // namespace
}  // namespace dosmara
