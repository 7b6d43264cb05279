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
  std::string Mistake(const std::string& text) {
    return Complaint([&] { Read(text); });
  }
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

TEST_F(BoardTableCheck, RefusesAMissingRecord) {
  EXPECT_EQ(Mistake(kFull + "1|code|3|0|0\n3|spare|1|0|0\n"), "t.tsv:3: record 2 is missing after this row");
}

TEST_F(BoardTableCheck, RefusesADoubledRecord) {
  EXPECT_EQ(Mistake(kFull + "1-3|code|3|0|0\n3|spare|1|0|0\n"), "t.tsv:4: record 3 stands in line 3 already");
}

TEST_F(BoardTableCheck, RefusesARecordOutOfRange) {
  EXPECT_EQ(Mistake(kFull + "0|code|3|0|0\n"), "t.tsv:3: record '0' is no number from 1 to 33000");
  EXPECT_EQ(Mistake(kFull + "33001|code|3|0|0\n"), "t.tsv:3: record '33001' is no number from 1 to 33000");
  EXPECT_EQ(Mistake(kFull + "x|code|3|0|0\n"), "t.tsv:3: record 'x' is no number from 1 to 33000");
}

TEST_F(BoardTableCheck, RefusesARangeThatDoesNotRiseToItsEnd) {
  EXPECT_EQ(Mistake(kFull + "4-4|code|3|0|0\n"), "t.tsv:3: record range '4-4' does not rise to its end");
  EXPECT_EQ(Mistake(kFull + "9-4|code|3|0|0\n"), "t.tsv:3: record range '9-4' does not rise to its end");
  EXPECT_EQ(Mistake(kFull + "1-6/2|code|3|0|0\n"), "t.tsv:3: record range '1-6/2' does not rise to its end");
}

TEST_F(BoardTableCheck, RefusesAWidthOutOfRange) {
  EXPECT_EQ(Mistake(kFull + "1|code|0|0|0\n"), "t.tsv:3: bytes '0' is no number from 1 to 4");
  EXPECT_EQ(Mistake(kFull + "1|code|5|0|0\n"), "t.tsv:3: bytes '5' is no number from 1 to 4");
}

TEST_F(BoardTableCheck, RefusesAPeriodOutOfRange) {
  EXPECT_EQ(Mistake(kFull + "1|code|1|16|0\n"), "t.tsv:3: period '16' is no number from 0 to 15");
}

TEST_F(BoardTableCheck, RefusesADefaultWiderThanItsRecord) {
  EXPECT_EQ(Mistake(kFull + "1|spare|1|0|256\n"), "t.tsv:3: default '256' is no number from 0 to 255");
  EXPECT_EQ(Mistake(kFull + "1|spare|2|0|65536\n"), "t.tsv:3: default '65536' is no number from 0 to 65535");
  EXPECT_EQ(Mistake(kFull + "1|spare|1|0|255\n"), "");
  EXPECT_EQ(Mistake(kFull + "1|spare|4|0|4294967295\n"), "");
}

TEST_F(BoardTableCheck, RefusesAnotherNumberOfDefaultsThanRecords) {
  EXPECT_EQ(Mistake(kFull + "1-3|code|1|0|1 2\n"), "t.tsv:3: has 2 defaults for 3 records");
  EXPECT_EQ(Mistake(kFull + "1|code|1|0|\n"), "t.tsv:3: has 0 defaults for 1 records");
}

TEST_F(BoardTableCheck, RefusesARowWithTooFewOrTooManyCells) {
  EXPECT_EQ(Mistake(kFull + "1|code|1|0\n"), "t.tsv:3: has 4 cells");
  EXPECT_EQ(Mistake(kFull + "1|code|1|0|0|0\n"), "t.tsv:3: has 6 cells");
}

TEST_F(BoardTableCheck, RefusesARecordWithoutAName) {
  EXPECT_EQ(Mistake(kFull + "1||1|0|0\n"), "t.tsv:3: has no name");
}

TEST_F(BoardTableCheck, RefusesAMirrorOfARecordThatIsNotThere) {
  EXPECT_EQ(Mistake(kFull + "1|mirror of 2\n"), "t.tsv:3: mirrors record 2, which no row above has");
}

TEST_F(BoardTableCheck, RefusesAMirrorOfAnotherLength) {
  EXPECT_EQ(Mistake(kFull + "1-2|code|1|0|0\n3-5|mirror of 1-2\n"),
            "t.tsv:4: mirrors a range of another length");
}

TEST_F(BoardTableCheck, RefusesATableWhoseLastRecordIsInUse) {
  EXPECT_EQ(Mistake(kFull + "1|code|3|0|0\n"),
            "t.tsv:3: the last record must be a spare, for the scan never visits it");
}

TEST_F(BoardTableCheck, RefusesTooFewOrTooManyIdentificationRecords) {
  EXPECT_EQ(Mistake(kSmall + "1-17|entry {n}|1|0\n"), "t.tsv:3: identification takes 18 to 20 records");
  EXPECT_EQ(Mistake(kSmall + "1-21|entry {n}|1|0\n"), "t.tsv:3: identification takes 18 to 20 records");
  EXPECT_EQ(Mistake(kSmall + "1-20|entry {n}|1|0\n"), "");
}

TEST_F(BoardTableCheck, RefusesANameThatIsNoIndexFile) {
  EXPECT_EQ(Mistake("files|W256\nrecord|name|bytes|period|default\n1|spare|1|0|0\n"),
            "t.tsv:1: 'W256' is no name for an index file of this table");
  EXPECT_EQ(Mistake("files|W0245|W0245AB00\nrecord|name|bytes|period\n1-18|entry|1|0\n"),
            "t.tsv:1: 'W0245AB00' is no name for an index file of this table");
}

TEST_F(BoardTableCheck, RefusesATableWithoutItsTwoFirstRows) {
  EXPECT_EQ(Mistake("record|name\n1|code\n2|spare\n"),
            "t.tsv:1: the first row must be 'files' and their names");
  EXPECT_EQ(Mistake("files|W0256AO01\n1|code|1|0|0\n2|spare|1|0|0\n"),
            "t.tsv:2: the second row must name the columns");
  EXPECT_EQ(Mistake(kFull), "t.tsv:1: has no records");
}

TEST_F(BoardTableCheck, RefusesAFileThatCannotBeRead) {
  EXPECT_EQ(Complaint([&] { ReadBoardTable(folder_ / "none.tsv"); }), "none.tsv:1: cannot be read");
}

}  // namespace
}  // namespace dosmara
