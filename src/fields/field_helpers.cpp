// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/field_helpers.h"

#include <QDate>
#include <QLocale>
#include <cmath>

namespace dosmara {

namespace {

void BindScroll(QLabel& text, Bar& scroll, double value, const QString& shown) {
  scroll.SetValue(scroll.Clamped(value));
  text.setText(shown);
}

constexpr int kMostDecimals = 3;
// Digits that a number is sure to have in decimal; the ones behind them are noise of its binary form.
constexpr int kDecimalDigits = 15;

double InDecimal(double value) { return QString::number(value, 'g', kDecimalDigits).toDouble(); }

constexpr int kMonths = 12;
const QDate kDayZero(1899, 12, 30);

}  // namespace

QString FormatDecimals(double value, int decimals) {
  if (decimals < 0 || decimals > kMostDecimals) {
    return {};
  }
  const double unit = std::pow(10, decimals);
  const double units = std::round(InDecimal(value * unit)) + 0.0;  // the sum makes 0 of -0
  QString text = QString::number(units / unit, 'f', decimals);
  return text.replace('.', QLocale().decimalPoint());
}

QString WholeText(double value) { return QString::number(value, 'g', kDecimalDigits); }

QString TenthsText(double value) { return MoneyText(value, 1); }

QString MoneyText(double value, int decimals) {
  return FormatDecimals(value / std::pow(10, decimals), decimals);
}

void BindScrollText(QLabel& text, Bar& scroll, double value) {
  BindScroll(text, scroll, value, WholeText(value));
}

void BindScrollTenths(QLabel& text, Bar& scroll, double value) {
  BindScroll(text, scroll, value, TenthsText(value));
}

void BindScrollDecimals(QLabel& text, Bar& scroll, double value, int decimals) {
  BindScroll(text, scroll, value, MoneyText(value, decimals));
}

int DayNumber(int day, int month, int year) {
  return static_cast<int>(kDayZero.daysTo(QDate(year, month, 1))) + day - 1;
}

QString TwoDigits(int number) { return QStringLiteral("%1").arg(number, 2, 10, QChar('0')); }

QString DateText(int day, int month, int year) {
  if (month < 1 || month > kMonths) {
    return QStringLiteral("%1/%2/%3").arg(TwoDigits(day), TwoDigits(month)).arg(year);
  }
  return kDayZero.addDays(DayNumber(day, month, year)).toString("dd/MM/yyyy");
}

}  // namespace dosmara
