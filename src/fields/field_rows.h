// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a form, each the view of one record, made from a table.
#pragma once

#include <QWidget>
#include <optional>
#include <span>
#include <vector>

#include "controls/value_row.h"
#include "fields/field_row.h"
#include "fields/money.h"

namespace dosmara {

// Columns of a grid that a row takes.
inline constexpr int kRowColumns = 4;

// The rows of one table. Writes when a bar changes outside an arrival; the display is left until the value
// comes back.
class FieldRows {
 public:
  // `fields`, `in_arrival` and `money` outlive the rows; only rows of money need the latter. The controls
  // become children of `parent`.
  FieldRows(QWidget* parent, const RowStyle& style, std::span<const FieldRow> fields, const bool& in_arrival,
            const Money* money = nullptr);
  FieldRows(const FieldRows&) = delete;
  FieldRows& operator=(const FieldRows&) = delete;

  int size() const { return static_cast<int>(fields_.size()); }
  ValueRow& operator[](int n) { return *rows_[n].view; }
  const FieldRow& Field(int n) const { return fields_[n]; }

  // The record that row n shows.
  int Record(int n) const { return fields_[n].record + shift_; }
  // Moves every row to the record `shift` behind the one in its table, for tables of one element of several.
  // The values of the old records vanish with their marks.
  void SetShift(int shift);

  // Lays rows `first` to `last` under each other, from `line` of the grid on, from its column `column` on.
  void PlaceIn(QGridLayout& grid, int first, int last, int line = 0, int column = 0);
  // Lays all rows into `columns` columns of the grid, one below the other, then column by column.
  void PlaceInColumns(QGridLayout& grid, int columns);

  // Opens or closes the rows of one node, or all.
  void SetOpen(int node, bool open);
  void SetOpen(bool open);
  // Opens or closes all rows, their captions and values with them.
  void SetEnabled(bool enabled);

  // Sets the captions from the language.
  void SetCaptions();

  // Shows an arrived value of row n, on its box too. An amount of money waits for its decimals.
  void Show(int n, double value);
  // Shows a value that another record than that of row n tells. Of a change it says nothing.
  void Fill(int n, double value);
  // Whether an arrival opens the bar of its row, which is how a held row opens again. At first it does.
  void LetEchoOpen(bool opens) { echo_opens_ = opens; }
  // Shows the amounts of money anew: their decimals have changed, or have come.
  void RedrawMoney();

 private:
  struct Row {
    ValueRow* view;
    std::optional<double> arrived;  // what the machine has sent last
  };

  std::optional<int> Parse(const FieldRow& field, const QString& text) const;
  bool Waits(int n) const;
  void Draw(int n);
  void Write(int n, int bar_value);

  std::span<const FieldRow> fields_;
  const bool& in_arrival_;
  const Money* money_;
  bool held_;
  bool echo_opens_ = true;
  std::vector<Row> rows_;
  int shift_ = 0;
};

}  // namespace dosmara
