// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a form, each the view of one record, made from a table.
#pragma once

#include <QWidget>
#include <memory>
#include <span>
#include <vector>

#include "controls/value_row.h"
#include "shell/entry_parsers.h"
#include "shell/field_helpers.h"

namespace dosmara {

// Shows a record's value on the row's value label and bar.
using RowDisplay = void (*)(QLabel& text, Bar& bar, double value);

// Everything that a row is. Read by the layout, the captions, the subscription, the arrival, the entry and
// the write. What does not apply is left out.
struct FieldRow {
  int line = 0;          // caption, line of the language file
  int number = 0;        // follows the caption behind a blank; 0: none
  int node = 0;          // where the record lies
  int record = 0;        // read and written
  int mirror = 0;        // written behind the record with the same value, never read
  int min = 0;           // what the bar can hold
  int max = 0;           //
  int large_change = 1;  // step of the bar for a click beside its handle
  int offset = 0;        // the record's value less the bar's
  RowDisplay show = nullptr;
  bool clamped = false;         // a value that the bar cannot hold is shown as the nearest that it can
  EntryParser parse = nullptr;  // from the typed text to the record's value
  int low = 0;                  // limits of an entry, in units of the record; not always those of the bar
  int limit = 0;
  int length = 0;                   // characters that fit into the box
  bool restore_from_label = false;  // a bad entry brings back the shown value, not the kept text
};

// Completes a row that shows a whole number and takes one within the span of its bar.
constexpr FieldRow WholeRow(FieldRow row) {
  row.show = BindScrollText;
  row.parse = ParseWhole;
  row.low = row.min;
  row.limit = row.max;
  return row;
}

// In place of the index of a row that stands alone: its controls are no arrays.
inline constexpr int kNoArray = -1;

// What all rows of a group have in common.
struct RowStyle {
  const char* caption = nullptr;  // names of the control arrays
  const char* value = nullptr;
  const char* box = nullptr;
  const char* bar = nullptr;
  int first = 0;                   // index of the first row in the arrays, or kNoArray
  int first_caption = 0;           // and in the array of the captions
  bool closed_box_stays = false;   // a closed row's box is disabled instead of hidden
  bool opening_fills_box = false;  // a row that opens shows its value on the box anew
};

// "lblVal(3)", the objectName of an element of a control array; the plain name for kNoArray.
QString Indexed(const char* name, int index);

// The rows of one table. Writes when a bar changes outside an arrival; the display is left until the value
// comes back.
class FieldRows {
 public:
  // `fields` and `in_arrival` outlive the rows; `saved_text` is as of EntryBox. The controls become children
  // of `parent`.
  FieldRows(QWidget* parent, const RowStyle& style, std::span<const FieldRow> fields, const bool& in_arrival,
            QString* saved_text = nullptr);
  FieldRows(const FieldRows&) = delete;
  FieldRows& operator=(const FieldRows&) = delete;

  int size() const { return static_cast<int>(fields_.size()); }
  ValueRow& operator[](int n) { return *rows_[n].view; }
  const FieldRow& Field(int n) const { return fields_[n]; }

  // The record that row n shows.
  int Record(int n) const { return fields_[n].record + shift_; }
  // Moves every row to the record `shift` behind the one in its table, for tables of one element of several.
  // The marks of the old records vanish.
  void SetShift(int shift);

  // Lays rows `first` to `last` under each other, from `line` of the grid on.
  void PlaceIn(QGridLayout& grid, int first, int last, int line = 0);

  // Opens or closes the rows of one node.
  void SetOpen(int node, bool open);

  // Sets the captions from the language.
  void SetCaptions();

  void Subscribe() const;
  void Unsubscribe() const;
  void UnsubscribeMirrors() const;

  // Shows an arrived value of row n, on its box too.
  void Show(int n, double value);

 private:
  struct Row {
    ValueRow* view;
    int written = 0;  // the value whose return the mark waits for
  };

  void Write(int n, int bar_value);

  std::span<const FieldRow> fields_;
  const bool& in_arrival_;
  std::vector<Row> rows_;
  int shift_ = 0;
};

}  // namespace dosmara
