// SPDX-License-Identifier: GPL-3.0-or-later
// What a row of a form is: one entry of the form's table.
#pragma once

#include "fields/control_array.h"
#include "fields/entry_parsers.h"
#include "fields/field_helpers.h"

namespace dosmara {

// Everything that a row is. Read by the layout, the captions, the subscription, the arrival, the entry and
// the write. What does not apply is left out.
struct FieldRow {
  int line = 0;                 // caption, line of the language file; 0: none, or what the form gives it
  int number = 0;               // follows the caption behind a blank; 0: none
  int node = 0;                 // where the record lies
  int record = 0;               // read and written
  int mirror = 0;               // written behind the record with the same value, never read; 0: none
  int min = 0;                  // what the bar can hold
  int max = 0;                  //
  int large_change = 1;         // step of the bar for a click beside its handle
  int offset = 0;               // the record's value less the bar's
  ValueText text = nullptr;     // what is shown of the record's value
  bool clamped = false;         // a value that the bar cannot hold is shown as the nearest that it can
  EntryParser parse = nullptr;  // from the typed text to the record's value
  bool money = false;           // an amount, in place of text and parse: it waits for the decimals of money
  int low = 0;                  // limits of an entry, in units of the record; not always those of the bar
  int limit = 0;
  int length = 0;  // characters that fit into the box
};

// Completes a row that shows a whole number and takes one within the span of its bar.
constexpr FieldRow WholeRow(FieldRow row) {
  row.text = WholeText;
  row.parse = ParseWhole;
  row.low = row.min;
  row.limit = row.max;
  return row;
}

// Completes a row of a time held in tenths, with tenths in its entry up to the end of its bar.
constexpr FieldRow TenthsRow(FieldRow row) {
  row.text = TenthsText;
  row.parse = ParseTenthsUpTo;
  row.limit = row.max;
  return row;
}

// Unsigned 16-bit values on a bar, which spans the signed numbers: the bar holds the value less this.
inline constexpr int kSixteenBitOffset = 32768;
inline constexpr int kLargestSixteenBit = 65535;

// Completes a row of an unsigned 16-bit value.
constexpr FieldRow SixteenBitRow(FieldRow row) {
  row.offset = kSixteenBitOffset;
  row.min = -kSixteenBitOffset;
  row.max = kLargestSixteenBit - kSixteenBitOffset;
  row.large_change = 100;
  row.clamped = true;
  row.limit = kLargestSixteenBit;
  return row;
}

// Completes a row of an amount of money of 16 bits.
constexpr FieldRow MoneyRow(FieldRow row) {
  row = SixteenBitRow(row);
  row.money = true;
  row.length = 12;  // more than is read: what lies behind does no harm
  return row;
}

// What all rows of a group have in common.
struct RowStyle {
  ControlArray caption;  // names of the controls; a row without a box has no name for it
  ControlArray value;
  ControlArray box;
  ControlArray bar;
  bool held = false;               // a good entry closes the bar until the machine has answered
  bool closed_box_stays = false;   // a closed row's box is disabled instead of hidden
  bool opening_fills_box = false;  // a row that opens shows its value on the box anew
};

}  // namespace dosmara
