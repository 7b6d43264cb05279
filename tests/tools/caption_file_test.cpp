// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/caption_file.h"

#include "tools/table_test.h"

namespace dosmara {
namespace {

const std::string kHeader = "line|Italiano|English\n";

class CaptionFileCheck : public TableTest {
 protected:
  std::vector<Language> Read(const std::string& text) { return ReadCaptions(Table(text)); }
};

TEST_F(CaptionFileCheck, GivesEveryLanguageItsColumn) {
  const auto languages = Read(kHeader + "1|Esci|Exit\n2|Tempi|Times\n");
  ASSERT_EQ(languages.size(), 2u);
  EXPECT_EQ(languages[0].name, "Italiano");
  EXPECT_EQ(languages[0].lines, (std::vector<std::string>{"Esci", "Tempi"}));
  EXPECT_EQ(languages[1].name, "English");
  EXPECT_EQ(languages[1].lines, (std::vector<std::string>{"Exit", "Times"}));
}

TEST_F(CaptionFileCheck, LeavesALineWithoutARowEmptyButPresent) {
  EXPECT_EQ(Read(kHeader + "1|a|b\n3|c|d\n")[0].lines, (std::vector<std::string>{"a", "", "c"}));
}

TEST_F(CaptionFileCheck, KeepsABlankAtTheEndOfACaption) {
  EXPECT_EQ(Read(kHeader + "1|Abil.sens.zeth |Sensor\n")[0].lines[0], "Abil.sens.zeth ");
}

TEST_F(CaptionFileCheck, GivesALanguageTheWordsOfTheFirstWhereItsCellIsEmpty) {
  const auto languages =
      Read("line|Italiano|English|Deutsch\n1|Esci||Beenden\n2|;-- Tempi|;-- Times|\n3-4|A {code}||\n");
  ASSERT_EQ(languages.size(), 3u);
  EXPECT_EQ(languages[1].lines, (std::vector<std::string>{"Esci", ";-- Times", "A 000", "A 001"}));
  EXPECT_EQ(languages[2].lines, (std::vector<std::string>{"Beenden", ";-- Tempi", "A 000", "A 001"}));
}

TEST_F(CaptionFileCheck, CountsTheCodesOfARangeFromZeroInThreeDigits) {
  const auto lines = Read(kHeader + "1-101|Allarme {code}|Alarm {code}\n")[1].lines;
  ASSERT_EQ(lines.size(), 101u);
  EXPECT_EQ(lines[0], "Alarm 000");
  EXPECT_EQ(lines[17], "Alarm 017");
  EXPECT_EQ(lines[100], "Alarm 100");
}

TEST_F(CaptionFileCheck, LetsARowOfOneLineOverrideARangeBeforeOrAfterIt) {
  const auto lines = Read(kHeader + "1|Primo|First\n1-3|A {code}|A {code}\n3|Terzo|Third\n")[1].lines;
  EXPECT_EQ(lines, (std::vector<std::string>{"First", "A 001", "Third"}));
}

std::string Accents(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += "è";
  }
  return text;
}

TEST_F(CaptionFileCheck, TakesTheLastLineAndTheLongestCaptionByItsCharactersNotItsBytes) {
  EXPECT_EQ(Read(kHeader + "650|" + Accents(60) + "|b\n")[0].lines.at(649), Accents(60));
}

const Mistake kMistakes[] = {
    {"ADoubledLine", kHeader + "7|a|b\n8|a|b\n7|a|b\n", "4: line 7 stands in line 2 already"},
    {"OverlappingRanges", kHeader + "1-5|a|b\n4-8|a|b\n", "3: line 4 stands in line 2 already"},
    {"AMissingFirstLanguage", kHeader + "7||b\n", "2: Italiano is missing"},
    {"ACellTooFew", kHeader + "6|a|b\n7|a\n", "3: 2 cells, 3 wanted: English"},
    {"TwoCellsTooFew", "line|Italiano|English|Deutsch\n7|a\n", "2: 2 cells, 4 wanted: English, Deutsch"},
    {"ACellTooFewForAFurtherLanguage", "line|Italiano|English|Deutsch\n7|a|b\n",
     "2: 3 cells, 4 wanted: Deutsch"},
    {"ACellTooMany", kHeader + "7|a|b|c\n", "2: 4 cells, 3 wanted"},
    {"ALineBeyondTheTable", kHeader + "651|a|b\n", "2: line '651' is no number from 1 to 650"},
    {"LineNought", kHeader + "0|a|b\n", "2: line '0' is no number from 1 to 650"},
    {"AnOverlongCaption", kHeader + "7|a|" + Accents(61) + "\n", "2: English has more than 60 characters"},
    {"AnOverlongCaptionOfTheFirstLanguage", kHeader + "7|" + Accents(61) + "|\n",
     "2: Italiano has more than 60 characters"},
    {"AMarkerInTheFirstLanguageOnly", kHeader + "7|;-- Tempi|Times\n",
     "2: is a marker in some languages only"},
    {"AMarkerInTheSecondLanguageOnly", kHeader + "7|Tempi|;-- Times\n",
     "2: is a marker in some languages only"},
    {"ATableWithoutLanguages", "1|a|b\n2|a|b\n", "1: the first row must be 'line' and the languages"},
    {"ATableWithoutCaptions", kHeader, "1: has no captions"},
};

class CaptionFileRefuses : public CaptionFileCheck, public testing::WithParamInterface<Mistake> {};

TEST_P(CaptionFileRefuses, SayingFileAndLine) {
  EXPECT_EQ(Complaint([&] { Read(GetParam().table); }), "t.tsv:" + GetParam().complaint);
}

INSTANTIATE_TEST_SUITE_P(Mistakes, CaptionFileRefuses, testing::ValuesIn(kMistakes), MistakeName);

}  // namespace
}  // namespace dosmara
