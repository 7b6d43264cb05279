// SPDX-License-Identifier: GPL-3.0-or-later
// What the clock window is made of: the time points of a day, and what sets the clock.
#pragma once

#include <array>

#include "fields/data_form.h"
#include "fields/machine_records.h"

namespace dosmara::orologio {

// The rows of the time points open with the twentieth arrival of any of their records.
inline constexpr FormSetup kSetup = {.name = "FrmOrologio", .title = 29, .opens_with = 20};

// Lines of the language file.
inline constexpr int kClockLine = 261;
inline constexpr int kHoursLine = 268;
inline constexpr int kMinutesLine = 269;

// A time of the day at which the machine does something: an hour and a minute. The record of the minute is
// the one before that of the hour.
struct TimePoint {
  int line = 0;    // of its name
  int number = 0;  // behind the name
  int hour = 0;    // record
};
inline constexpr TimePoint kTimePoints[] = {
    {265, 1, 88}, {266, 1, 92},  {265, 2, 90},  {266, 2, 94},  {267, 1, 96},
    {267, 2, 98}, {265, 1, 100}, {266, 1, 104}, {265, 2, 102}, {266, 2, 106},
};
inline constexpr int kPoints = static_cast<int>(std::size(kTimePoints));

// Frames with the time points of one purpose.
struct PointFrame {
  const char* name;
  int line;
  int first;  // time point
  int count;
};
inline constexpr PointFrame kPointFrames[] = {
    {"Frame2", 262, 0, 4}, {"Frame3", 263, 4, 2}, {"Frame4", 264, 6, 4}};

// The mirrors of the time points are subscribed too. Nothing is done with their values.
inline constexpr int kMirrorOffset = 202;
inline constexpr Records kPointMirrors = {kMainBoard, 289, 2 * kPoints};

// Long enough for a year of four digits, which is refused: cut to two digits it would be another year.
inline constexpr int kLength = 8;

inline constexpr int kLastHour = 23;
inline constexpr int kLastMinute = 59;

constexpr FieldRow HourRow(FieldRow row) {
  row.line = kHoursLine;
  row.max = kLastHour;
  row.large_change = 3;
  row.length = kLength;
  return WholeRow(row);
}

constexpr FieldRow MinuteRow(FieldRow row) {
  row.line = kMinutesLine;
  row.max = kLastMinute;
  row.large_change = 5;
  row.length = kLength;
  return WholeRow(row);
}

constexpr FieldRow DateRow(FieldRow row) {
  row.large_change = 5;
  row.length = kLength;
  return WholeRow(row);
}

constexpr std::array<FieldRow, std::size_t{2} * kPoints> PointRows() {
  std::array<FieldRow, std::size_t{2} * kPoints> rows{};
  for (std::size_t k = 0; k < std::size(kTimePoints); ++k) {
    const int hour = kTimePoints[k].hour;
    const int minute = hour - 1;
    rows[2 * k] = HourRow({.record = hour, .mirror = hour + kMirrorOffset});
    rows[2 * k + 1] = MinuteRow({.record = minute, .mirror = minute + kMirrorOffset});
  }
  return rows;
}
inline constexpr auto kPointRows = PointRows();

// The clock as it runs: its records in their order.
enum { kMinute, kHour };
inline constexpr Records kTime = {kMainBoard, 320, 2};
enum { kDay, kMonth, kYear };
inline constexpr Records kDate = {kMainBoard, 322, 3};  // the year less 2000
inline constexpr int kFirstYear = 2000;

// The clock as it is set, in the order of the records.
inline constexpr FieldRow kTimeRows[] = {HourRow({.record = 326}), MinuteRow({.record = 327})};
inline constexpr FieldRow kDateRows[] = {DateRow({.record = 328, .min = 1, .max = 31}),
                                         DateRow({.record = 329, .min = 1, .max = 12}),
                                         DateRow({.record = 330, .max = 99})};
inline constexpr Records kToSet = {kMainBoard, 326, 5};

// The units of the date, and what they are called in a language that has no words for them.
inline constexpr int kDateUnitLines[] = {641, 642, 643};
inline constexpr const char* kDateUnits[] = {"giorno", "mese", "anno"};

}  // namespace dosmara::orologio
