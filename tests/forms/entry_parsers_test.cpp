// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/entry_parsers.h"

#include <gtest/gtest.h>

#include <QString>
#include <vector>

namespace dosmara {
namespace {

constexpr std::nullopt_t kBad = std::nullopt;

struct Entry {
  const char16_t* text;
  std::optional<int> result;
};

void Expect(EntryParser parse, int min, int max, const std::vector<Entry>& entries) {
  for (const Entry& entry : entries) {
    EXPECT_EQ(parse(entry.text, min, max), entry.result)
        << '"' << QStringView(entry.text).toUtf8().toStdString() << "\" in " << min << " to " << max;
  }
}

TEST(ParseNumeric, IsWhatATechnicianTypesAsANumber) {
  EXPECT_EQ(ParseNumeric(u"12"), 12);
  EXPECT_EQ(ParseNumeric(u"+12"), 12);
  EXPECT_EQ(ParseNumeric(u"-12,5"), -12.5);
  EXPECT_EQ(ParseNumeric(u"12.25"), 12.25);
  EXPECT_EQ(ParseNumeric(u",5"), 0.5);
  EXPECT_EQ(ParseNumeric(u"5,"), 5);
  EXPECT_EQ(ParseNumeric(u" 7 "), 7);
  EXPECT_EQ(ParseNumeric(u"007"), 7);
}

TEST(ParseNumeric, NothingElseIs) {
  for (const char16_t* text : {u"", u" ", u"+", u"-", u",", u".", u"1,2,3", u"1.2,3", u"1e3", u"0x1F", u"1 2",
                               u"--1", u"1-", u"12a", u"OFF", u"\u0661", u"\uff11", u"1'000", u"€1"}) {
    EXPECT_EQ(ParseNumeric(text), kBad) << QStringView(text).toUtf8().toStdString();
  }
}

TEST(ParseNumeric, AVeryLongTextIsStillANumberOrNot) {
  EXPECT_TRUE(ParseNumeric(QString(5000, '9')));
  EXPECT_FALSE(ParseNumeric(QString(5000, '9') + 'x'));
}

TEST(ParseWhole, RoundsHalvesAwayFromNought) {
  Expect(ParseWhole, -9, 9, {{u"2.4", 2}, {u"2.5", 3}, {u"3.5", 4}, {u"-2.5", -3}, {u"-0,4", 0}});
}

TEST(ParseWhole, StaysWithinItsLimits) {
  Expect(ParseWhole, 5, 60,
         {{u"4", kBad}, {u"5", 5}, {u"5.4", 5}, {u"59.6", 60}, {u"60", 60}, {u"61", kBad}});
  Expect(ParseWhole, 70, 110, {{u"69", kBad}, {u"70", 70}, {u"110", 110}, {u"111", kBad}});
  Expect(ParseWhole, 0, 65535,
         {{u"65535", 65535}, {u"65536", kBad}, {u"-1", kBad}, {u"99999999999999", kBad}});
  EXPECT_EQ(ParseWhole(QString(5000, '9'), 0, 65535), kBad);
}

TEST(ParseWhole, JudgesTheNumberBeforeItIsRounded) {
  Expect(ParseWhole, 0, 65535, {{u"-0.4", kBad}, {u"0.4", 0}, {u"65534.6", 65535}, {u"65535.4", kBad}});
  Expect(ParseWhole, 70, 110, {{u"69.6", kBad}, {u"70.4", 70}, {u"109.6", 110}, {u"110.4", kBad}});
  Expect(ParseWhole, 1, 15, {{u"0.6", kBad}, {u".6", kBad}, {u"15.4", kBad}, {u"14,6", 15}});
}

TEST(ParseRounded, JudgesTheNumberAfterItIsRounded) {
  Expect(
      ParseRounded, 1, 30,
      {{u"0.4", kBad}, {u"0.5", 1}, {u"2,5", 3}, {u"2.5", 3}, {u"30.4", 30}, {u"30,5", kBad}, {u"31", kBad}});
  Expect(ParseRounded, 0, 99, {{u"-0.4", 0}, {u"-0.5", kBad}, {u"-1", kBad}, {u"99.4", 99}, {u"99.5", kBad}});
}

TEST(ParseRounded, TakesOnlyWhatIsNumeric) {
  Expect(ParseRounded, 0, 99, {{u"", kBad}, {u"OFF", kBad}, {u"1x", kBad}, {u"1e1", kBad}, {u" 7 ", 7}});
  EXPECT_EQ(ParseRounded(QString(5000, '9'), 0, 65535), kBad);
}

TEST(ParseInt, KnowsFourSpellingsOfOffAsPrescribed) {
  Expect(ParseInt, 0, 999,
         {{u"OFF", 0},
          {u"Off", 0},
          {u"off", 0},
          {u"oFF", 0},
          {u"oFf", kBad},
          {u"OFf", kBad},
          {u"OfF", kBad},
          {u"ofF", kBad},
          {u" OFF", kBad},
          {u"OFFF", kBad}});
}

TEST(ParseInt, TakesANumberWithinItsLimits) {
  Expect(
      ParseInt, 0, 999,
      {{u"0", 0}, {u"999", 999}, {u"1000", kBad}, {u"-1", kBad}, {u"-.4", kBad}, {u"", kBad}, {u"1x", kBad}});
}

TEST(ParseTenthsUpTo, ReadsASeparatedTextInTenths) {
  Expect(
      ParseTenthsUpTo, 0, 255,
      {{u"12,5", 125}, {u"7.0", 70}, {u"25.5", 255}, {u"25.6", kBad}, {u",5", 5}, {u"0,0", 0}, {u"0.1", 1}});
}

TEST(ParseTenthsUpTo, ReadsAPlainTextInWholes) {
  Expect(ParseTenthsUpTo, 0, 255, {{u"12", 120}, {u"25", 250}, {u"26", kBad}, {u"0", 0}, {u"0012", 120}});
  Expect(ParseTenthsUpTo, 0, 100, {{u"10", 100}, {u"11", kBad}});
}

TEST(ParseTenthsUpTo, TheSeparatorNeedsOneDigitAndEndsTheReading) {
  Expect(ParseTenthsUpTo, 0, 255,
         {{u"2,", kBad}, {u"2,x", kBad}, {u"2,55", 25}, {u"2,5x", 25}, {u"2,5,", 25}});
}

TEST(ParseTenthsUpTo, RefusesEverythingElse) {
  Expect(ParseTenthsUpTo, 0, 255,
         {{u"", kBad},
          {u"OFF", kBad},
          {u"-1", kBad},
          {u"+1", kBad},
          {u" 1", kBad},
          {u"1 ", kBad},
          {u".", kBad},
          {u"x", kBad},
          {u"\u0661", kBad}});
}

TEST(ParseTenthsUpTo, ReadsFourCharactersAtMostAsPrescribed) {
  Expect(ParseTenthsUpTo, 0, 99990, {{u"1234x", 12340}, {u"12345", 12340}});
}

TEST(ParseTenthsUpTo, DoesNotLookAtTheMinimumAsPrescribed) {
  Expect(ParseTenthsUpTo, 29, 255, {{u"0.1", 1}, {u"2", 20}});
}

TEST(ParseTenthsUpTo, ReadsARowOfWholeNumbersInTenthsAsPrescribed) {
  Expect(ParseTenthsUpTo, 1, 3, {{u"1", kBad}, {u"2", kBad}, {u"3", kBad}, {u"0.2", 2}});
  Expect(ParseTenthsUpTo, 120, 240, {{u"12", 120}, {u"24", 240}, {u"120", kBad}});
  Expect(ParseTenthsUpTo, 0, 230, {{u"23", 230}, {u"100", kBad}});
  Expect(ParseTenthsUpTo, 0, 10, {{u"1", 10}, {u"1.1", kBad}});
}

TEST(ParseTenths, LooksAtTheMinimumToo) {
  Expect(ParseTenths, 20, 250,
         {{u"2", 20},
          {u"25", 250},
          {u"26", kBad},
          {u"1", kBad},
          {u"1,9", kBad},
          {u"2,0", 20},
          {u"2.5", 25},
          {u"2,55", 25},
          {u"25,1", kBad},
          {u"0020x", 200},
          {u"", kBad},
          {u"2,", kBad},
          {u"x", kBad}});
}

TEST(ParseDelta, IsADigitOrADigitAndATenth) {
  Expect(ParseDelta, 10, 50,
         {{u"3", 30},
          {u"3,5", 35},
          {u"2.0", 20},
          {u"5,5", kBad},
          {u"1", 10},
          {u"0,9", kBad},
          {u"5", 50},
          {u"6", kBad}});
}

TEST(ParseDelta, RefusesEverythingElse) {
  Expect(ParseDelta, 10, 50,
         {{u"", kBad},
          {u"12", kBad},
          {u"3,", kBad},
          {u"3,x", kBad},
          {u"x", kBad},
          {u"x,5", kBad},
          {u"3;5", kBad},
          {u"3,55", kBad},
          {u",", kBad},
          {u",5", kBad}});
}

TEST(ParseOffset, IsStoredFiveHigher) {
  Expect(ParseOffset, 0, 0,
         {{u"+5", 10}, {u"-5", 0}, {u"0", 5}, {u"5", 10}, {u"+0", 5}, {u"-0", 5}, {u"-1", 4}, {u"3", 8}});
}

TEST(ParseOffset, RefusesEverythingElse) {
  Expect(ParseOffset, 0, 0,
         {{u"", kBad},
          {u"6", kBad},
          {u"+6", kBad},
          {u"-6", kBad},
          {u"+", kBad},
          {u"-", kBad},
          {u"12", kBad},
          {u"1,", kBad},
          {u"+12", kBad},
          {u"--1", kBad},
          {u"x", kBad}});
}

// `entries` with that many decimals of money.
void ExpectMoney(int decimals, int max, const std::vector<Entry>& entries) {
  for (const Entry& entry : entries) {
    EXPECT_EQ(ParseMoney(entry.text, max, decimals), entry.result)
        << '"' << QStringView(entry.text).toUtf8().toStdString() << "\" with " << decimals << " decimals";
  }
}

TEST(ParseMoney, ReadsTheDecimalsBehindASeparator) {
  ExpectMoney(2, 65535,
              {{u"1,5", 150}, {u"1,55", 155}, {u"1.5", 150}, {u"1.55", 155}, {u"0,01", 1}, {u"12,34", 1234}});
  ExpectMoney(1, 65535, {{u"1,5", 15}, {u"1.0", 10}, {u"6553,5", 65535}});
  ExpectMoney(3, 65535, {{u"1,5", 1500}, {u"1,55", 1550}, {u"1,555", 1555}, {u"65.535", 65535}});
}

TEST(ParseMoney, DoesNotLookBehindTheLastDecimalAsPrescribed) {
  ExpectMoney(2, 65535, {{u"1,555", 155}, {u"1,55x", 155}, {u"1,55,5", 155}, {u"1,55 ", 155}});
  ExpectMoney(1, 65535, {{u"1,5x", 15}, {u"1,55", 15}});
  ExpectMoney(3, 65535, {{u"1,555x", 1555}});
}

TEST(ParseMoney, ATextWithoutASeparatorIsInWholes) {
  ExpectMoney(0, 65535, {{u"15", 15}, {u"0", 0}, {u"65535", 65535}});
  ExpectMoney(1, 65535, {{u"1", 10}, {u"0", 0}, {u"6553", 65530}, {u"6554", kBad}});
  ExpectMoney(2, 65535, {{u"1", 100}, {u"655", 65500}, {u"656", kBad}});
  ExpectMoney(3, 65535, {{u"1", 1000}, {u"65", 65000}, {u"66", kBad}});
}

TEST(ParseMoney, EitherPartMayBeMissingButNotBoth) {
  ExpectMoney(2, 65535, {{u",5", 50}, {u".05", 5}, {u"1,", 100}, {u"1.", 100}, {u",", kBad}, {u".", kBad}});
  ExpectMoney(3, 65535, {{u",5", 500}, {u"1,", 1000}, {u",", kBad}});
}

TEST(ParseMoney, WithoutDecimalsASeparatorIsBad) {
  ExpectMoney(0, 65535, {{u"1,5", kBad}, {u"1.", kBad}, {u",5", kBad}, {u",", kBad}, {u"1,0", kBad}});
}

TEST(ParseMoney, ReadsSixCharactersOfTheWholePartAsPrescribed) {
  ExpectMoney(0, 65535, {{u"1234567", kBad}, {u"0000159", 15}, {u"000015x", 15}, {u"000015,5", 15}});
  ExpectMoney(0, 999999, {{u"1234567", 123456}, {u"999999", 999999}});
  ExpectMoney(2, 65535, {{u"000001,5", 100}, {u"00001,5", 150}, {u"00001,55", 155}, {u"00001,5x", kBad}});
  ExpectMoney(3, 65535, {{u"00065,535", 65535}, {u"00065,5359", 65535}});
}

TEST(ParseMoney, RefusesEverythingElse) {
  for (const int decimals : {0, 2}) {
    ExpectMoney(decimals, 65535,
                {{u"", kBad},
                 {u"x", kBad},
                 {u"1x", kBad},
                 {u"x1", kBad},
                 {u"-1", kBad},
                 {u"+1", kBad},
                 {u" 1", kBad},
                 {u"1 ", kBad},
                 {u"1e3", kBad},
                 {u"OFF", kBad},
                 {u"1'000", kBad},
                 {u"\u0661", kBad},
                 {u"\uff11", kBad}});
  }
  ExpectMoney(2, 65535,
              {{u"1,x", kBad},
               {u"1,5x", kBad},
               {u"1,,5", kBad},
               {u"1,5,", kBad},
               {u"x,5", kBad},
               {u"1,-5", kBad},
               {u"1, 5", kBad},
               {u",x", kBad},
               {u"1,\u0661", kBad}});
}

TEST(ParseMoney, AResultAboveTheLimitIsRefusedAndThereIsNoLowerOne) {
  ExpectMoney(2, 65535, {{u"655,35", 65535}, {u"655,36", kBad}, {u"999999", kBad}, {u"0", 0}, {u"0,0", 0}});
  ExpectMoney(0, 9999, {{u"9999", 9999}, {u"10000", kBad}});
  ExpectMoney(2, 9999, {{u"99,99", 9999}, {u"100", kBad}, {u"100,00", kBad}});
  ExpectMoney(3, 65535, {{u"99999,999", kBad}, {u"999999", kBad}});
  EXPECT_EQ(ParseMoney(u"1", 65535, 0), 1);
}

TEST(ParseMoney, AVeryLongTextIsReadToItsSixthCharacterAsPrescribed) {
  EXPECT_EQ(ParseMoney(QString(5000, '0'), 65535, 3), 0);
  EXPECT_EQ(ParseMoney(QString(5000, '9'), 65535, 3), kBad);
}

}  // namespace
}  // namespace dosmara
