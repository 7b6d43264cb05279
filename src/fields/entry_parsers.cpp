// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/entry_parsers.h"

#include <QString>
#include <algorithm>
#include <cmath>

namespace dosmara {

namespace {

constexpr int kTenthsLength = 4;
constexpr int kMoneyLength = 6;
constexpr int kLargestOffset = 5;

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

bool IsSeparator(QChar c) { return c == u',' || c == u'.'; }

int Digit(QChar c) { return c.unicode() - u'0'; }

}  // namespace

std::optional<double> ParseNumeric(QStringView text) {
  text = text.trimmed();
  const bool negative = text.startsWith(u'-');
  if (negative || text.startsWith(u'+')) {
    text = text.sliced(1);
  }
  double number = 0;
  double unit = 1;
  bool separated = false;
  int digits = 0;
  for (const QChar c : text) {
    if (IsDigit(c)) {
      ++digits;
      number = number * 10 + Digit(c);
      unit = separated ? unit * 10 : unit;
    } else if (IsSeparator(c) && !separated) {
      separated = true;
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0) {
    return std::nullopt;
  }
  return (negative ? -number : number) / unit;
}

std::optional<int> ParseWhole(QStringView text, int min, int max) {
  const std::optional<double> number = ParseNumeric(text);
  if (!number || !(*number >= min && *number <= max)) {
    return std::nullopt;
  }
  return static_cast<int>(std::round(*number));
}

std::optional<int> ParseRounded(QStringView text, int min, int max) {
  const double number = std::round(ParseNumeric(text).value_or(std::nan("")));
  return number >= min && number <= max ? std::optional(static_cast<int>(number)) : std::nullopt;
}

std::optional<int> ParseInt(QStringView text, int min, int max) {
  for (const QStringView off : {u"OFF", u"Off", u"off", u"oFF"}) {
    if (text == off) {
      return 0;
    }
  }
  return ParseWhole(text, min, max);
}

std::optional<int> ParseTenthsUpTo(QStringView text, int /*min*/, int max) {
  if (text.isEmpty()) {
    return std::nullopt;
  }
  int number = 0;
  bool separated = false;
  const qsizetype length = std::min<qsizetype>(text.size(), kTenthsLength);
  for (qsizetype i = 0; i < length && !separated; ++i) {
    separated = IsSeparator(text[i]);
    const qsizetype digit = separated ? i + 1 : i;
    if (digit == text.size() || !IsDigit(text[digit])) {
      return std::nullopt;
    }
    number = number * 10 + Digit(text[digit]);
  }
  if (!separated) {
    number *= 10;
  }
  if (number > max) {
    return std::nullopt;
  }
  return number;
}

std::optional<int> ParseTenths(QStringView text, int min, int max) {
  const std::optional<int> number = ParseTenthsUpTo(text, min, max);
  return number && *number >= min ? number : std::nullopt;
}

std::optional<int> ParseDelta(QStringView text, int min, int max) {
  const bool whole = text.size() == 1 && IsDigit(text[0]);
  const bool tenths = text.size() == 3 && IsDigit(text[0]) && IsSeparator(text[1]) && IsDigit(text[2]);
  if (!whole && !tenths) {
    return std::nullopt;
  }
  const int number = Digit(text[0]) * 10 + (tenths ? Digit(text[2]) : 0);
  if (number < min || number > max) {
    return std::nullopt;
  }
  return number;
}

std::optional<int> ParseOffset(QStringView text, int /*min*/, int /*max*/) {
  const bool negative = text.startsWith(u'-');
  const QStringView digits = negative || text.startsWith(u'+') ? text.sliced(1) : text;
  if (digits.size() != 1 || !IsDigit(digits[0]) || Digit(digits[0]) > kLargestOffset) {
    return std::nullopt;
  }
  return kLargestOffset + (negative ? -Digit(digits[0]) : Digit(digits[0]));
}

std::optional<int> ParseMoney(QStringView text, int max, int decimals) {
  const QStringView read = text.first(std::min<qsizetype>(text.size(), kMoneyLength));
  const auto separator = std::ranges::find_if(read, IsSeparator);
  const bool separated = separator != read.end();
  if (separated && decimals == 0) {
    return std::nullopt;
  }
  const qsizetype whole = separator - read.begin();
  const QStringView rest = separated ? text.sliced(whole + 1) : QStringView();
  QString digits = text.first(whole).toString();
  digits += rest.first(std::min<qsizetype>(rest.size(), decimals));
  if (digits.isEmpty() || !std::ranges::all_of(digits, IsDigit)) {
    return std::nullopt;
  }
  qint64 amount = digits.toLongLong();
  for (qsizetype missing = decimals - (digits.size() - whole); missing > 0; --missing) {
    amount *= 10;
  }
  if (amount > max) {
    return std::nullopt;
  }
  return static_cast<int>(amount);
}

}  // namespace dosmara
