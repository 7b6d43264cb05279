// SPDX-License-Identifier: GPL-3.0-or-later
// What a typed text means. Pure functions from the text to the number to write, or to nothing when the text
// is bad. "," and "." are both the decimal separator, whatever the locale. Digits are 0 to 9 only.
//
//   Parser           Accepts                              Gives           Example
//   ParseNumeric     what a technician types as a number  the number      "-12,5" is -12.5
//   ParseWhole       a numeric text from min to max       rounded         "90" is 90
//   ParseRounded     a numeric text that rounds to one    rounded         "2,5" is 3
//                    from min to max
//   ParseInt         as ParseWhole, and OFF               the number      "off" is 0
//   ParseTenthsUpTo  up to two digits, or with a tenth    tenths          "12,5" is 125, "12" is 120
//   ParseTenths      as ParseTenthsUpTo, not below min    tenths          from 20 on "2" is 20, "1,9" is bad
//   ParseDelta       a digit, or with a tenth             tenths          "3" is 30, "3.5" is 35
//   ParseOffset      a digit up to 5 with or without sign offset + 5      "-5" is 0, "5" is 10
//   ParseMoney       an amount, with decimals if there    smallest units  of 2 decimals: 1,5 is 150, 1 is 100
//                    are any
#pragma once

#include <QStringView>
#include <optional>

namespace dosmara {

// A parser as the tables of the forms name it; `min` and `max` are the limits of the row's entry.
using EntryParser = std::optional<int> (*)(QStringView text, int min, int max);

// The number in `text`: blanks around it, one sign, digits with at most one separator among them. Anything
// else, such as an exponent or a grouping mark, is not numeric.
std::optional<double> ParseNumeric(QStringView text);

// A numeric text within min and max, rounded to the nearest whole number, halves away from zero. The limits
// are those of the number as typed: "0.6" is not within 1 and 15.
std::optional<int> ParseWhole(QStringView text, int min, int max);

// A numeric text, rounded to the nearest whole number, halves away from zero. The limits are those of the
// rounded number: "0.6" is within 1 and 15.
std::optional<int> ParseRounded(QStringView text, int min, int max);

// As ParseWhole; "OFF", "Off", "off" and "oFF" give 0, and no other spelling does.
std::optional<int> ParseInt(QStringView text, int min, int max);

// Reads up to four characters. A separator must be followed by one digit, which ends the reading; without a
// separator the number counts in whole units. `max` is in tenths; the minimum is not looked at.
std::optional<int> ParseTenthsUpTo(QStringView text, int min, int max);

// As ParseTenthsUpTo, with `min` in tenths looked at as well.
std::optional<int> ParseTenths(QStringView text, int min, int max);

// One digit in whole units, or digit, separator and digit. `min` and `max` are in tenths.
std::optional<int> ParseDelta(QStringView text, int min, int max);

// An offset of -5 to 5, stored as 0 to 10. The limits are not looked at.
std::optional<int> ParseOffset(QStringView text, int min, int max);

// An amount of money, 0 to 3 decimals. Reads up to six characters as the whole part; behind a separator as
// many digits as money has decimals, and nothing further. Without decimals a separator is bad.
std::optional<int> ParseMoney(QStringView text, int max, int decimals);

}  // namespace dosmara
