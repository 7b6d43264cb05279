// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/language.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <algorithm>

#include "shell/caption_table.h"
#include "store/failure.h"
#include "support/box_recorder.h"
#include "support/program_folder.h"

namespace dosmara {
namespace {

const Box kNoFile = {"Reinstall program\nFile missing!", "Error", BoxStyle::kCritical};
const Box kWrongFile = {"Check file message !!!", "Wrong file", BoxStyle::kExclamation};

// `count` lines "<word> 1", "<word> 2" and so on.
QByteArray Numbered(const QByteArray& word, int count) {
  QByteArray text;
  for (int i = 1; i <= count; ++i) {
    text += word + " " + QByteArray::number(i) + "\n";
  }
  return text;
}

class LanguageTest : public testing::Test {
 protected:
  void SetUp() override {
    std::fill(std::begin(CaptionTable), std::end(CaptionTable), QString());
    LanguageName.clear();
  }

  bool Fill() { return FillLanguageMenu(folder_.path(), menu_); }
  void Choose(int index) { ChooseLanguage(folder_.path(), menu_, index); }

  // Indices of the ticked entries.
  std::vector<int> Ticked() const {
    std::vector<int> ticked;
    for (int i = 0; i < 10; ++i) {
      if (menu_[i].ticked) {
        ticked.push_back(i);
      }
    }
    return ticked;
  }

  QStringList Shown() const {
    QStringList names;
    for (const LanguageEntry& entry : menu_) {
      if (entry.shown) {
        names.append(entry.caption);
      }
    }
    return names;
  }

  ProgramFolder folder_;
  LanguageMenu menu_;
  BoxRecorder screen_;
};

using LanguageList = LanguageTest;
using LanguageLoad = LanguageTest;
using LanguageAtStart = LanguageTest;

TEST_F(LanguageList, OffersTheFilesByNameWithoutTheirExtension) {
  folder_.Write("Italiano.lng", "a");
  folder_.Write("English.LNG", "a");
  folder_.Write("deutsch.Lng", "a");
  folder_.Write("English.txt", "a");
  ListLanguages(folder_.path(), menu_);
  EXPECT_EQ(Shown(), QStringList({"deutsch", "English", "Italiano"}));
}

TEST_F(LanguageList, OffersTenOfElevenFiles) {
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}) {
    folder_.Write(QString(name) + ".lng", "x");
  }
  ListLanguages(folder_.path(), menu_);
  EXPECT_EQ(Shown(), QStringList({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}));
}

TEST_F(LanguageList, ForgetsTheListAndTheTickOfBefore) {
  folder_.Write("English.lng", "a");
  folder_.Write("Italiano.lng", "a");
  ListLanguages(folder_.path(), menu_);
  menu_[0].ticked = true;
  QFile::remove(folder_.path() + "/Italiano.lng");
  ListLanguages(folder_.path(), menu_);
  EXPECT_EQ(Shown(), QStringList("English"));
  EXPECT_EQ(Ticked(), std::vector<int>{});
}

TEST_F(LanguageList, EndsTheProgramWithoutAnyFile) {
  EXPECT_THROW(ListLanguages(folder_.path(), menu_), ProgramEnds);
  EXPECT_EQ(screen_.boxes, std::vector<Box>{kNoFile});
}

TEST_F(LanguageLoad, PutsLineNIntoElementN) {
  folder_.Write("English.lng", "File\r\nExit\r\nTimes");
  LoadLanguage(folder_.path(), "English.lng");
  EXPECT_EQ(CaptionTable[0], "");
  EXPECT_EQ(CaptionTable[1], "File");
  EXPECT_EQ(CaptionTable[2], "Exit");
  EXPECT_EQ(CaptionTable[3], "Times");
}

TEST_F(LanguageLoad, LeavesTheElementsBehindTheLastLine) {
  CaptionTable[3] = "old";
  folder_.Write("English.lng", "File\nExit\n");
  LoadLanguage(folder_.path(), "English.lng");
  EXPECT_EQ(CaptionTable[3], "old");
}

TEST_F(LanguageLoad, Takes650LinesAndFailsAt651) {
  folder_.Write("Fits.lng", Numbered("line", 650));
  folder_.Write("Long.lng", Numbered("line", 651));
  LoadLanguage(folder_.path(), "Fits.lng");
  EXPECT_EQ(CaptionTable[650], "line 650");
  EXPECT_THROW(LoadLanguage(folder_.path(), "Long.lng"), RunTimeError);
}

TEST_F(LanguageLoad, CaptionOutsideTheTableIsEmpty) {
  CaptionTable[650] = "last";
  EXPECT_EQ(Caption(650), "last");
  EXPECT_EQ(Caption(651), "");
  EXPECT_EQ(Caption(-1), "");
}

TEST_F(LanguageAtStart, LoadsAndTicksTheLanguageOfTheSettings) {
  folder_.Write("English.lng", "File");
  folder_.Write("Italiano.lng", "Archivio");
  LanguageName = "Italiano";
  EXPECT_TRUE(Fill());
  EXPECT_EQ(CaptionTable[1], "Archivio");
  EXPECT_EQ(Ticked(), std::vector<int>{1});
  EXPECT_EQ(LanguageName, "Italiano");
}

TEST_F(LanguageAtStart, FindsAFileWhoseExtensionIsInCapitals) {
  folder_.Write("Italiano.LNG", "Archivio");
  EXPECT_TRUE(Fill());
  EXPECT_EQ(CaptionTable[1], "Archivio");
}

TEST_F(LanguageAtStart, TakesTheFirstForAnEmptyOrUnknownName) {
  folder_.Write("English.lng", "File");
  folder_.Write("Italiano.lng", "Archivio");
  for (const char* name : {"", "Deutsch"}) {
    LanguageName = name;
    EXPECT_TRUE(Fill());
    EXPECT_EQ(CaptionTable[1], "File");
    EXPECT_EQ(Ticked(), std::vector<int>{0});
    EXPECT_EQ(LanguageName, "English");
  }
}

TEST_F(LanguageAtStart, ChoosesEntryEightButNeverEntryNineAsPrescribed) {
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}) {
    folder_.Write(QString(name) + ".lng", name);
  }
  LanguageName = "i";
  EXPECT_TRUE(Fill());
  EXPECT_EQ(Ticked(), std::vector<int>{8});
  LanguageName = "j";
  EXPECT_TRUE(Fill());
  EXPECT_EQ(Ticked(), std::vector<int>{0});
  EXPECT_EQ(LanguageName, "a");
  EXPECT_EQ(CaptionTable[1], "a");
}

TEST_F(LanguageAtStart, NamesAFileThatHoldsTooManyLines) {
  folder_.Write("English.lng", Numbered("line", 651));
  EXPECT_FALSE(Fill());
  const Box expected = {"English.lng\nMore than 650 lines", "Error", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(LanguageAtStart, RefusesAnEndlessLineWithoutFreezing) {
  folder_.Write("English.lng", QByteArray(10 * 1024 * 1024, 'x'));
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(Fill());
  EXPECT_LT(clock.elapsed(), 1000);
  const Box expected = {"English.lng\nFile too large", "Error", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(LanguageAtStart, TakesAFileWithoutLines) {
  folder_.Write("English.lng", "");
  EXPECT_TRUE(Fill());
  EXPECT_EQ(CaptionTable[1], "");
  EXPECT_TRUE(screen_.boxes.empty());
}

class LanguageChangeTest : public LanguageTest {
 protected:
  // Starts in "A" and offers "B".
  void StartWith(const QByteArray& a, const QByteArray& b) {
    folder_.Write("A.lng", a);
    folder_.Write("B.lng", b);
    ASSERT_TRUE(Fill());
    ASSERT_EQ(LanguageName, "A");
  }

  void ExpectRefused(const QString& first_caption) {
    EXPECT_EQ(LanguageName, "A");
    EXPECT_EQ(Ticked(), std::vector<int>{0});
    EXPECT_EQ(CaptionTable[1], first_caption);
    EXPECT_EQ(screen_.boxes, std::vector<Box>{kWrongFile});
  }

  void ExpectAccepted(const QString& first_caption) {
    EXPECT_EQ(LanguageName, "B");
    EXPECT_EQ(Ticked(), std::vector<int>{1});
    EXPECT_EQ(CaptionTable[1], first_caption);
    EXPECT_TRUE(screen_.boxes.empty());
  }
};

TEST_F(LanguageChangeTest, AcceptsTheSameMarkersAtTheSameLines) {
  StartWith("File\n;--menus\nEsci\n", "Archive\n;--other words\nExit\n");
  Choose(1);
  ExpectAccepted("Archive");
  EXPECT_EQ(CaptionTable[2], ";--other words");
  EXPECT_EQ(CaptionTable[3], "Exit");
}

TEST_F(LanguageChangeTest, RefusesMarkersShiftedByOneLine) {
  StartWith("File\n;--menus\nEsci\n", "Archive\nExit\n;--menus\n");
  Choose(1);
  ExpectRefused("File");
}

TEST_F(LanguageChangeTest, AcceptsAMarkerWhereTheCurrentFileHasNone) {
  StartWith("File\nEsci\n", "Archive\n;--more\n");
  Choose(1);
  ExpectAccepted("Archive");
}

TEST_F(LanguageChangeTest, TakesTwoDashesAloneForNoMarker) {
  StartWith("File\n;--menus\n", "Archive\n;-menus\n");
  Choose(1);
  ExpectRefused("File");
}

TEST_F(LanguageChangeTest, AcceptsALongerFileAndLeavesTheSurplusUnread) {
  StartWith("File\nEsci\n", "Archive\nExit\nSurplus\n");
  Choose(1);
  ExpectAccepted("Archive");
  EXPECT_EQ(CaptionTable[3], "");
}

TEST_F(LanguageChangeTest, RefusesAShorterFileThoughAllItsMarkersFitAsPrescribed) {
  StartWith(";--top\nFile\nEsci\n", ";--head\nArchive\n");
  Choose(1);
  ExpectRefused(";--top");
  EXPECT_EQ(CaptionTable[2], "File");
}

TEST_F(LanguageChangeTest, Accepts650LinesAndRefuses651AsTheNextStartWould) {
  StartWith("File\n", Numbered("line", 650));
  folder_.Write("C.lng", Numbered("linea", 651));
  Choose(1);
  ExpectAccepted("line 1");
  ASSERT_TRUE(Fill());
  Choose(2);
  EXPECT_EQ(LanguageName, "B");
  EXPECT_EQ(CaptionTable[1], "line 1");
  EXPECT_EQ(screen_.boxes, std::vector<Box>{kWrongFile});
}

TEST_F(LanguageChangeTest, RefusesAFileThatVanished) {
  StartWith("File\n", "Archive\n");
  QFile::remove(folder_.path() + "/B.lng");
  Choose(1);
  ExpectRefused("File");
}

TEST_F(LanguageChangeTest, RefusesAFileThatIsTooLarge) {
  StartWith("File\n", QByteArray(2 * 1024 * 1024, 'x'));
  Choose(1);
  ExpectRefused("File");
}

TEST_F(LanguageChangeTest, RefusesMoreThan650LinesThatWouldAllBeRead) {
  StartWith("File\n", Numbered("line", 700));
  folder_.Write("A.lng", Numbered("voce", 700));
  Choose(1);
  ExpectRefused("File");
}

TEST_F(LanguageChangeTest, KeepsTheLanguageThatIsChosenAgain) {
  StartWith("File\nEsci\n", "Archive\nExit\n");
  Choose(0);
  EXPECT_EQ(LanguageName, "A");
  EXPECT_EQ(Ticked(), std::vector<int>{0});
  EXPECT_TRUE(screen_.boxes.empty());
}

TEST_F(LanguageChangeTest, GoesThereAndBack) {
  StartWith("File\nEsci\n", "Archive\nExit\n");
  Choose(1);
  Choose(0);
  EXPECT_EQ(LanguageName, "A");
  EXPECT_EQ(CaptionTable[2], "Esci");
}

}  // namespace
}  // namespace dosmara
