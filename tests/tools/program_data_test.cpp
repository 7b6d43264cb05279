// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/program_data.h"

#include <sys/wait.h>

#include <cstdlib>

#include "tools/table_test.h"

namespace dosmara {
namespace {

class ProgramData : public TableTest {
 protected:
  // Runs the program in the test's folder; its complaint goes to the file "said".
  int Run(const std::string& arguments) {
    const std::string command =
        "cd '" + folder_.string() + "' && '" DATA_PROGRAM "' " + arguments + " 2> said";
    return WEXITSTATUS(std::system(command.c_str()));
  }
};

TEST_F(ProgramData, MakesEveryFileThatATableNames) {
  Table("files|W0245AB00|W0245AC00\nrecord|name|bytes|period|default\n1|spare|1|0|5\n");
  BuildBoards(folder_, folder_ / "out");
  const std::string bytes("\x00\x01\x20\x00\x00\x05\x00\x00\x00", 9);
  EXPECT_EQ(ReadWhole(folder_ / "out/W0245AB00.inx"), bytes);
  EXPECT_EQ(ReadWhole(folder_ / "out/W0245AC00.inx"), bytes);
  EXPECT_EQ(ReadWhole(folder_ / "out/W0245AC00.tsv"),
            "record\tname\tbytes\tperiod\tdefault\n1\tspare\t1\t0\t5\n");
}

TEST_F(ProgramData, MakesOneFileForEachLanguage) {
  BuildCaptions(Table("line|Italiano|English\n1|Esci|Exit\n3|Tè|Tea\n"), folder_ / "out");
  EXPECT_EQ(ReadWhole(folder_ / "out/Italiano.lng"), "Esci\n\nTè\n");
  EXPECT_EQ(ReadWhole(folder_ / "out/English.lng"), "Exit\n\nTea\n");
}

TEST_F(ProgramData, RefusesTwoTablesThatMakeTheSameFile) {
  const std::string table = "files|W0256AO01\nrecord|name|bytes|period|default\n1|spare|1|0|0\n";
  Table(table, "a.tsv");
  Table(table, "b.tsv");
  EXPECT_EQ(Complaint([&] { BuildBoards(folder_, folder_ / "out"); }),
            "b.tsv:1: another table makes 'W0256AO01' already");
}

TEST_F(ProgramData, WritesNothingWhenOneTableIsWrong) {
  Table("files|W0256AO01\nrecord|name|bytes|period|default\n1|spare|1|0|0\n", "a.tsv");
  Table("files|W0257AC01\nrecord|name|bytes|period|default\n1|code|1|0|0\n", "b.tsv");
  EXPECT_NE(Complaint([&] { BuildBoards(folder_, folder_ / "out"); }), "");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "out"));
}

TEST_F(ProgramData, EndsInOrderAfterMakingTheFiles) {
  Table("line|English\n1|Exit\n");
  EXPECT_EQ(Run("captions t.tsv out"), 0);
  EXPECT_EQ(ReadWhole(folder_ / "out/English.lng"), "Exit\n");
}

TEST_F(ProgramData, SaysFileAndLineOfAMistakeInOneLine) {
  Table("line|English\n1|\n");
  EXPECT_EQ(Run("captions t.tsv out"), 1);
  EXPECT_EQ(ReadWhole(folder_ / "said"), "t.tsv:2: English is missing\n");
  Table("line|English|Deutsch\n1|Exit\n");
  EXPECT_EQ(Run("captions t.tsv out"), 1);
  EXPECT_EQ(ReadWhole(folder_ / "said"), "t.tsv:2: 2 cells, 3 wanted: Deutsch\n");
}

TEST_F(ProgramData, SaysWhatItTakesWhenTheArgumentsAreWrong) {
  EXPECT_EQ(Run("captions"), 2);
  EXPECT_EQ(ReadWhole(folder_ / "said").substr(0, 7), "usage: ");
  EXPECT_EQ(Run("words t.tsv out"), 2);
  EXPECT_EQ(ReadWhole(folder_ / "said"), "dosmara-data: unknown command 'words'\n");
}

}  // namespace
}  // namespace dosmara
