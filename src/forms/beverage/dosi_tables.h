// SPDX-License-Identifier: GPL-3.0-or-later
// What a selection consists of: the rows of FrmDosi, which of them depend on which, the properties that are
// single bits, and the tests of single parts. Read by the form and by its controls.
#pragma once

#include "fields/bit_rows.h"
#include "fields/data_form.h"

namespace dosmara::dosi {

// A water count: 0 is off, and 1 is shown as 0.
QString WaterText(double value);
// Tenths of a second with an off state below the shown zero.
QString SugarText(double value);

constexpr FieldRow WaterRow(int line, int record) {
  return {.line = line,
          .node = kHotDrinks,
          .record = record,
          .max = 999,
          .large_change = 10,
          .text = WaterText,
          .clamped = true,
          .parse = ParseInt,
          .limit = 999,
          .length = 3};
}

// The limit of an entry is 255 also for the bar that ends at 100: the bar refuses what lies between.
constexpr FieldRow TimeRow(int line, int record, int max = 255, ValueText text = TenthsText) {
  return {.line = line,
          .node = kHotDrinks,
          .record = record,
          .max = max,
          .large_change = 10,
          .text = text,
          .clamped = true,
          .parse = ParseTenthsUpTo,
          .limit = 255,
          .length = 4};
}

// Models without some of the controls.
inline constexpr int kFirstModelWithPartTests = 21;
inline constexpr int kFirstModelWithDelay = 25;

// Each record is that of the first selection; those of the others follow it.
inline constexpr FieldRow kDoseRows[] = {
    WaterRow(68, 148),                 // 0  coffee water
    WaterRow(69, 170),                 // 1  milk and chocolate water
    TimeRow(70, 280),                  // 2  milk
    TimeRow(71, 368),                  // 3  milk delay
    TimeRow(72, 302),                  // 4  chocolate
    TimeRow(73, 390),                  // 5  chocolate delay
    WaterRow(74, 192),                 // 6  tea water
    TimeRow(75, 324),                  // 7  tea
    TimeRow(76, 412),                  // 8  tea delay
    WaterRow(77, 214),                 // 9  decaffeinated water
    TimeRow(78, 346),                  // 10 decaffeinated
    WaterRow(79, 236),                 // 11 hot water
    TimeRow(80, 434, 100, SugarText),  // 12 sugar
    TimeRow(81, 563),                  // 13 decaffeinated delay
};

// Each selection has one more record, which is subscribed with the rows though no row shows it.
inline constexpr int kUnshownDose = 456;

inline constexpr int kDecaffeinatedDelay = 13;
inline constexpr int kRowsWithoutHead[] = {0, 11, 12};

// A row of water. At 0 it closes the rows and the part tests of the powders that this water carries.
struct Head {
  int row;
  int first, last;            // rows
  int first_test, last_test;  // part tests
  bool has_delay = false;     // kDecaffeinatedDelay too
};
inline constexpr Head kHeads[] = {
    {.row = 1, .first = 2, .last = 5, .first_test = 0, .last_test = 1},
    {.row = 6, .first = 7, .last = 8, .first_test = 2, .last_test = 2},
    {.row = 9, .first = 10, .last = 10, .first_test = 3, .last_test = 3, .has_delay = true},
};

// Commands for the tests of the whole drink: only water, without sugar, complete.
inline constexpr int kDrinkTestCodes[] = {4, 3, 2};
inline constexpr int kDrinkTestPatience = 2000;  // ms for the machine to start

// The test of a single part: it lasts as long as the row says.
struct PartTest {
  int row;
  int part;  // as the machine calls it
};
inline constexpr PartTest kPartTests[] = {{2, 66}, {4, 68}, {7, 72}, {10, 80}, {12, 192}};
inline constexpr int kSugarTest = 4;
inline constexpr int kPartTestCode = 7;

// Milliseconds for a part of so many tenths of a second, with one second to spare. A part whose time is 0
// gets a tenth.
constexpr int PartTestInterval(int tenths) {
  const int interval = (tenths * 5 + 50) * 20;
  return interval < 1001 ? 100 : interval;
}

// Each property is a yes or no of each selection: its bits lie in three bytes of its own.
inline constexpr int kPropertyBytes = 3;
inline constexpr BitRecord kPropertyRecords[] = {
    {kHotDrinks, 38, 516},  {kHotDrinks, 39, 517},  {kHotDrinks, 40, 518},   // jug
    {kHotDrinks, 34, 512},  {kHotDrinks, 35, 513},  {kHotDrinks, 36, 514},   // selection in use
    {kHotDrinks, 42, 520},  {kHotDrinks, 43, 521},  {kHotDrinks, 44, 522},   // milk first
    {kHotDrinks, 589, 593}, {kHotDrinks, 590, 594}, {kHotDrinks, 591, 595},  // free of charge
};

// Which of the three bytes holds the bit of a selection, and the bit.
constexpr int PropertyByte(int selection) { return selection / 8; }
constexpr int PropertyMask(int selection) { return 1 << selection % 8; }

// The bits of the first selection. FrmDosi moves the rows to those of the others.
inline constexpr BitRow kProperties[] = {
    {.line = 62, .byte = 0, .mask = 1, .index = 0},
    {.line = 63, .byte = 3, .mask = 1, .index = 1},
    {.line = 64, .byte = 6, .mask = 1, .index = 2},
    {.line = 624, .byte = 9, .mask = 1, .index = 3},
};
// Only the first ones have words at their positions.
inline constexpr OffOnLines kPropertyWords = {.off = 65, .on = 66};
inline constexpr int kPropertiesWithWords = 3;

// Released at the close though never subscribed: the mirrors of the properties and the record behind them.
inline constexpr Records kReleasedOnly[] = {
    {kHotDrinks, 512, 3}, {kHotDrinks, 516, 3}, {kHotDrinks, 520, 3}, {kHotDrinks, 593, 4}};

// The form is grey until the 24th arrival.
inline constexpr FormSetup kSetup = {
    .name = "FrmDosi", .title = 5, .opens_with = 24, .also_released = kReleasedOnly};

}  // namespace dosmara::dosi
