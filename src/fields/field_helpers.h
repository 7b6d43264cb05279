// SPDX-License-Identifier: GPL-3.0-or-later
// The shared ways in which forms show numbers.
//
// The bindings show a value on a bar and a text at once. A value outside the bar's span puts the bar at its
// end, while the text goes on showing the value as it is.
#pragma once

#include <QLabel>
#include <QString>

#include "controls/bar.h"

namespace dosmara {

// `value` with 0 to 3 decimals and the locale's separator, halves rounded away from zero as they stand in
// decimal: 12.345 with 2 decimals is "12.35". Empty for any other number of decimals.
QString FormatDecimals(double value, int decimals);

// The text of a value, as the tables of the forms name it: a whole number, one held in tenths.
using ValueText = QString (*)(double value);
QString WholeText(double value);
QString TenthsText(double value);
// The text of an amount of money, which is held in units of 10 to the power minus `decimals`.
QString MoneyText(double value, int decimals);

// Shows a whole number.
void BindScrollText(QLabel& text, Bar& scroll, double value);

// Shows a number held in tenths.
void BindScrollTenths(QLabel& text, Bar& scroll, double value);

// Shows a number held in units of 10 to the power minus `decimals`.
void BindScrollDecimals(QLabel& text, Bar& scroll, double value, int decimals);

// Days from 30 December 1899 to a date, 1 January 1900 being day 2. `month` is 1 to 12; a day that it lacks
// is so many days behind it.
int DayNumber(int day, int month, int year);

// "07": a number of a date or a time with two digits at least.
QString TwoDigits(int number);

// A date as "dd/mm/yyyy". A day that its month lacks is so many days behind it: 31 February 2023 is
// "03/03/2023". A month that no calendar has is shown as it came.
QString DateText(int day, int month, int year);

}  // namespace dosmara
