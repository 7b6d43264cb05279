// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/text_file.h"

#include <gtest/gtest.h>

#include "store/failure.h"
#include "support/program_folder.h"

namespace dosmara {
namespace {

TEST(DecodeText, TakesValidUtf8AsUtf8) { EXPECT_EQ(DecodeText("Qualit\xC3\xA0"), u"Qualit\u00E0"); }

TEST(DecodeText, TakesOtherBytesAsWindows1252) {
  EXPECT_EQ(DecodeText("Qualit\xE0 \x80 \x92 \x9F"), u"Qualit\u00E0 \u20AC \u2019 \u0178");
}

TEST(DecodeText, LeavesTheByteOrderMarkOut) {
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF"
                       "File"),
            u"File");
}

TEST(DecodeText, TakesASequenceCutAtTheEndAsWindows1252) { EXPECT_EQ(DecodeText("a\xC3"), u"a\u00C3"); }

TEST(TextLines, EndsALineAtLfCrLfAndCr) {
  EXPECT_EQ(TextLines("a\nb\r\nc\rd"), QStringList({"a", "b", "c", "d"}));
}

TEST(TextLines, KeepsEmptyLinesButAddsNoneAfterTheLastEnd) {
  EXPECT_EQ(TextLines("\n\r\n\na\n"), QStringList({"", "", "", "a"}));
}

TEST(TextLines, HasNoneInAnEmptyFile) { EXPECT_TRUE(TextLines("").isEmpty()); }

TEST(TextLines, CutsALineAt500Characters) {
  const QStringList lines = TextLines(QByteArray(501, 'x') + "\nnext");
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines[0].size(), 500);
  EXPECT_EQ(lines[1], "next");
}

TEST(ReadLines, RefusesAFileOverOneMebibyte) {
  ProgramFolder folder;
  folder.Write("fits.lng", QByteArray(1024 * 1024, 'x'));
  folder.Write("large.lng", QByteArray(1024 * 1024 + 1, 'x'));
  EXPECT_EQ(ReadLines(folder.path() + "/fits.lng").size(), 1);
  try {
    ReadLines(folder.path() + "/large.lng");
    FAIL() << "was read";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), 9);
  }
}

TEST(ReadLines, ReportsAMissingFileAsFileNotFound) {
  for (const QString& path : {QString(), QString("/nonexistent/file.lng")}) {
    try {
      ReadLines(path);
      FAIL() << "was read";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), 53);
    }
  }
}

TEST(FindFile, MatchesWithoutRegardToCase) {
  ProgramFolder folder;
  folder.Write("ENGLISH.LNG", "x");
  EXPECT_EQ(FindFile(folder.path(), "English.lng"), folder.path() + "/ENGLISH.LNG");
  EXPECT_EQ(FindFile(folder.path(), "Italiano.lng"), "");
}

TEST(FindFile, PrefersTheExactName) {
  ProgramFolder folder;
  folder.Write("DOSMARA.INI", "x");
  folder.Write("dosmara.ini", "y");
  EXPECT_EQ(FindFile(folder.path(), "dosmara.ini"), folder.path() + "/dosmara.ini");
}

TEST(FindFile, TakesTheSignsOfAFilterForWhatTheyAre) {
  ProgramFolder folder;
  folder.Write("dosmara1.ini", "x");
  for (const char* name : {"dosmara[1].ini", "dosmara*.ini", "dosmara?.ini", "dosmara[!2].ini"}) {
    EXPECT_EQ(FindFile(folder.path(), name), "") << name;
  }
  folder.Write("DOSMARA[1].INI", "y");
  EXPECT_EQ(FindFile(folder.path(), "dosmara[1].ini"), folder.path() + "/DOSMARA[1].INI");
}

TEST(FindFile, PassesOverAFolderOfThatName) {
  ProgramFolder folder;
  QDir(folder.path()).mkdir("English.lng");
  EXPECT_EQ(FindFile(folder.path(), "English.lng"), "");
}

}  // namespace
}  // namespace dosmara
