// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/field_helpers.h"

#include <gtest/gtest.h>

#include <QLocale>

#include "fields/entry_parsers.h"

namespace dosmara {
namespace {

class FieldHelpers : public testing::Test {
 protected:
  FieldHelpers() {
    QLocale::setDefault(QLocale::c());
    bar_.SetSpan(0, 100, 10);
  }
  ~FieldHelpers() override { QLocale::setDefault(QLocale::c()); }

  std::string Format(double value, int decimals) { return FormatDecimals(value, decimals).toStdString(); }
  std::string Text() { return text_.text().toStdString(); }

  QLabel text_;
  Bar bar_;
};

TEST_F(FieldHelpers, FormatsWithThatManyDecimals) {
  EXPECT_EQ(Format(5, 0), "5");
  EXPECT_EQ(Format(5, 1), "5.0");
  EXPECT_EQ(Format(5, 2), "5.00");
  EXPECT_EQ(Format(5, 3), "5.000");
  EXPECT_EQ(Format(0, 2), "0.00");
  EXPECT_EQ(Format(65535, 0), "65535");
  EXPECT_EQ(Format(4294967295.0, 3), "4294967295.000");
}

TEST_F(FieldHelpers, AnyOtherNumberOfDecimalsIsEmpty) {
  EXPECT_EQ(Format(5, 4), "");
  EXPECT_EQ(Format(5, -1), "");
}

TEST_F(FieldHelpers, RoundsTheHalvesThatOneSees) {
  EXPECT_EQ(Format(12.345, 2), "12.35");
  EXPECT_EQ(Format(1.005, 2), "1.01");
  EXPECT_EQ(Format(2.675, 2), "2.68");
  EXPECT_EQ(Format(0.5, 0), "1");
  EXPECT_EQ(Format(2.5, 0), "3");
  EXPECT_EQ(Format(12.3449, 2), "12.34");
  EXPECT_EQ(Format(-12.345, 2), "-12.35");
}

TEST_F(FieldHelpers, NoughtHasNoSign) { EXPECT_EQ(Format(-0.04, 1), "0.0"); }

TEST_F(FieldHelpers, TheSeparatorIsTheLocales) {
  QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
  EXPECT_EQ(Format(1234.5, 1), "1234,5");
}

TEST_F(FieldHelpers, ATextOfAWholeNumberHasAllItsDigits) {
  EXPECT_EQ(WholeText(0).toStdString(), "0");
  EXPECT_EQ(WholeText(1234567).toStdString(), "1234567");
  EXPECT_EQ(WholeText(4294967295.0).toStdString(), "4294967295");
  EXPECT_EQ(WholeText(-5).toStdString(), "-5");
}

TEST_F(FieldHelpers, ATextOfTenthsHasOneDecimal) {
  EXPECT_EQ(TenthsText(0).toStdString(), "0.0");
  EXPECT_EQ(TenthsText(5).toStdString(), "0.5");
  EXPECT_EQ(TenthsText(125).toStdString(), "12.5");
}

TEST_F(FieldHelpers, ATextOfMoneyHasTheDecimalsOfMoney) {
  const char* const texts[] = {"65535", "6553.5", "655.35", "65.535"};
  const char* const small[] = {"7", "0.7", "0.07", "0.007"};
  for (const int decimals : {0, 1, 2, 3}) {
    EXPECT_EQ(MoneyText(65535, decimals).toStdString(), texts[decimals]);
    EXPECT_EQ(MoneyText(7, decimals).toStdString(), small[decimals]);
  }
  EXPECT_EQ(MoneyText(7, 255).toStdString(), "");
  QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
  EXPECT_EQ(MoneyText(65535, 2).toStdString(), "655,35");
  EXPECT_EQ(TenthsText(125).toStdString(), "12,5");
}

TEST_F(FieldHelpers, EveryAmountReadsBackAsItself) {
  for (const int decimals : {0, 1, 2, 3}) {
    for (int amount = 0; amount <= 65535; amount += amount < 2000 ? 1 : 37) {
      ASSERT_EQ(ParseMoney(MoneyText(amount, decimals), 65535, decimals), amount) << decimals;
    }
  }
}

TEST_F(FieldHelpers, BindsAWholeNumber) {
  BindScrollText(text_, bar_, 42);
  EXPECT_EQ(bar_.Value(), 42);
  EXPECT_EQ(Text(), "42");
}

TEST_F(FieldHelpers, BindsTenths) {
  BindScrollTenths(text_, bar_, 42);
  EXPECT_EQ(bar_.Value(), 42);
  EXPECT_EQ(Text(), "4.2");
}

TEST_F(FieldHelpers, BindsDecimals) {
  BindScrollDecimals(text_, bar_, 42, 3);
  EXPECT_EQ(bar_.Value(), 42);
  EXPECT_EQ(Text(), "0.042");
}

TEST_F(FieldHelpers, AValueOutsideTheSpanPutsTheBarAtItsEndAndKeepsItsText) {
  BindScrollTenths(text_, bar_, 123);
  EXPECT_EQ(bar_.Value(), 100);
  EXPECT_EQ(Text(), "12.3");
  BindScrollText(text_, bar_, 4294967295.0);
  EXPECT_EQ(bar_.Value(), 100);
  EXPECT_EQ(Text(), "4294967295");
  bar_.SetSpan(10, 100, 1);
  BindScrollText(text_, bar_, 3);
  EXPECT_EQ(bar_.Value(), 10);
  EXPECT_EQ(Text(), "3");
}

TEST(DayNumber, CountsFromTheEndOf1899) {
  EXPECT_EQ(DayNumber(1, 1, 1900), 2);
  EXPECT_EQ(DayNumber(31, 12, 1900), 366);
  EXPECT_EQ(DayNumber(1, 1, 1901), 367);
}

TEST(DayNumber, KnowsTheLeapDays) {
  EXPECT_EQ(DayNumber(1, 3, 1900), 61);
  EXPECT_EQ(DayNumber(29, 2, 2000), 36585);
  EXPECT_EQ(DayNumber(1, 3, 2000), 36586);
  EXPECT_EQ(DayNumber(1, 1, 2001), 36892);
  EXPECT_EQ(DayNumber(1, 3, 2024), 45352);
  EXPECT_EQ(DayNumber(1, 3, 2100), 73110);
}

// An own count, day by day. A month goes on for as many days as a byte of the machine can name.
TEST(DayNumber, IsRightForEveryDayFrom1900To2155AndForDaysThatAMonthLacks) {
  int first = 2;  // of the month
  for (int year = 1900; year <= 2155; ++year) {
    const bool leap = year % 4 == 0 && year != 1900 && year != 2100;
    const int lengths[] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
      for (int day = 0; day <= 255; ++day) {
        ASSERT_EQ(DayNumber(day, month, year), first + day - 1) << day << '/' << month << '/' << year;
      }
      first += lengths[month - 1];
    }
  }
  EXPECT_EQ(first, 93504) << "1 January 2156";
}

TEST(DateText, HasTwoDigitsForDayAndMonthAndFourForTheYear) {
  EXPECT_EQ(DateText(1, 2, 2024), "01/02/2024");
  EXPECT_EQ(DateText(29, 2, 2024), "29/02/2024");
  EXPECT_EQ(DateText(31, 12, 2099), "31/12/2099");
  EXPECT_EQ(DateText(1, 1, 2000), "01/01/2000");
}

TEST(DateText, ADayThatItsMonthLacksIsSoManyDaysBehindIt) {
  EXPECT_EQ(DateText(29, 2, 2023), "01/03/2023");
  EXPECT_EQ(DateText(31, 2, 2023), "03/03/2023");
  EXPECT_EQ(DateText(31, 2, 2024), "02/03/2024");
  EXPECT_EQ(DateText(31, 4, 2024), "01/05/2024");
  EXPECT_EQ(DateText(31, 11, 2024), "01/12/2024");
}

TEST(DateText, AMonthThatNoCalendarHasIsShownAsItCame) {
  EXPECT_EQ(DateText(5, 0, 2024), "05/00/2024");
  EXPECT_EQ(DateText(5, 13, 2024), "05/13/2024");
  EXPECT_EQ(DateText(0, 255, 2255), "00/255/2255");
}

TEST(TwoDigits, FillsUpWithAZero) {
  EXPECT_EQ(TwoDigits(0), "00");
  EXPECT_EQ(TwoDigits(7), "07");
  EXPECT_EQ(TwoDigits(59), "59");
  EXPECT_EQ(TwoDigits(255), "255");
}

TEST(DayNumber, EveryMonthFollowsTheOneBefore) {
  const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month < 12; ++month) {
    EXPECT_EQ(DayNumber(1, month + 1, 2023), DayNumber(lengths[month - 1], month, 2023) + 1) << month;
  }
}

}  // namespace
}  // namespace dosmara
