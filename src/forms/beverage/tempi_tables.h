// SPDX-License-Identifier: GPL-3.0-or-later
// The timings of the machine: the rows of FrmTempi and where they lie.
#pragma once

#include <array>

#include "fields/boards_form.h"

namespace dosmara::tempi {

// The mirrors are only ever written.
inline constexpr Records kMirrors[] = {{kHotDrinks, 503, 2}, {kHotDrinks, 508, 3}, {kHotDrinks, 562},
                                       {kHotDrinks, 586},    {kHotDrinks, 588},    {kZeth, 273},
                                       {kZeth, 310, 18},     {kZeth2, 273},        {kZeth2, 310, 18}};

inline constexpr FormSetup kSetup = {
    .name = "FrmTempi", .title = 4, .opens_with = 21, .also_released = kMirrors};

inline constexpr BoardFrame kBoards[] = {
    {.name = "Frame1", .line = 47, .node = kHotDrinks},
    {.name = "Frame2", .line = 54, .node = kZeth},
    {.name = "Frame3", .line = 56, .node = kZeth2},
};

// Shown as a whole number but typed like tenths: "12" is 120.
constexpr FieldRow WholeTypedInTenths(FieldRow row) {
  row.text = WholeText;
  row.parse = ParseTenthsUpTo;
  return row;
}

constexpr FieldRow TimeRow(int line, int node, int record, int mirror, int max) {
  return TenthsRow({.line = line, .node = node, .record = record, .mirror = mirror, .max = max, .length = 4});
}

// Gives a row a bar that begins at `min`, and an entry another limit than the end of the bar.
constexpr FieldRow Limited(FieldRow row, int min, int limit) {
  row.min = min;
  row.limit = limit;
  return row;
}

// The rows that belong to no drawer. Rows 8 and 9 have each other's limit of an entry; their bars refuse what
// they cannot hold.
inline constexpr FieldRow kTimes[] = {
    TimeRow(48, kHotDrinks, 31, 509, 100),
    TimeRow(49, kHotDrinks, 25, 503, 100),
    TimeRow(50, kHotDrinks, 26, 504, 100),
    TimeRow(51, kHotDrinks, 30, 508, 255),
    WholeRow({.line = 52, .node = kHotDrinks, .record = 32, .mirror = 510, .max = 90, .length = 2}),
    TimeRow(55, kZeth, 58, 273, 250),
    WholeRow(
        {.line = 53, .node = kHotDrinks, .record = 561, .mirror = 562, .min = 5, .max = 60, .length = 2}),
    TimeRow(55, kZeth2, 58, 273, 250),
    Limited(TimeRow(622, kHotDrinks, 587, 588, 230), 29, 255),
    WholeTypedInTenths({.line = 623,
                        .node = kHotDrinks,
                        .record = 585,
                        .mirror = 586,
                        .max = 255,
                        .limit = 230,
                        .length = 3}),
};
inline constexpr int kFillTimeout = 6;
inline constexpr int kHotDrinksRows[] = {0, 1, 2, 3, 4, kFillTimeout, 8, 9};
// The row of no drawer on the tab of each Zeth unit.
inline constexpr int kMotorTimeouts[] = {5, 7};

inline constexpr int kModelWithoutFillTimeout = 20;

inline constexpr int kZethUnits = 2;
inline constexpr int kDrawers = 8;

// Rows of one Zeth unit: the drawers' times, their attempts, and the two of the sensor.
inline constexpr int kFirstAttempts = kDrawers;
inline constexpr int kFirstSensorRow = 2 * kDrawers;
inline constexpr int kDrawerRows = kFirstSensorRow + 2;

using DrawerTable = std::array<FieldRow, kDrawerRows>;

constexpr DrawerTable DrawerRows(int node, int attempts_length) {
  DrawerTable rows{};
  for (int k = 0; k < kDrawers; ++k) {
    rows[k] = TenthsRow({.line = 618, .number = k + 1, .max = 10, .large_change = 10, .length = 3});
    rows[kFirstAttempts + k] = WholeTypedInTenths(
        {.line = 619, .number = k + 1, .min = 1, .max = 3, .limit = 3, .length = attempts_length});
  }
  rows[kFirstSensorRow] = TenthsRow({.line = 620, .min = 10, .max = 30, .large_change = 10, .length = 3});
  rows[kFirstSensorRow + 1] = WholeTypedInTenths(
      {.line = 621, .min = 120, .max = 240, .large_change = 10, .limit = 240, .length = 3});
  for (int n = 0; n < kDrawerRows; ++n) {
    rows[n].node = node;
    rows[n].record = 292 + n;
    rows[n].mirror = 310 + n;
  }
  return rows;
}

// On the first unit's tab the box of the attempts is too short for a separator: only the bar changes them.
inline constexpr DrawerTable kDrawersOfUnit[kZethUnits] = {DrawerRows(kZeth, 1), DrawerRows(kZeth2, 3)};

}  // namespace dosmara::tempi
