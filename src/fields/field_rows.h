// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a form, each the view of one record, made from a table.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "controls/value_row.h"
#include "fields/bar_binding.h"
#include "fields/field_group.h"
#include "fields/field_row.h"
#include "fields/money.h"

namespace dosmara {

// Columns of a grid that a row takes.
inline constexpr int kRowColumns = 4;

// The rows of one table. A value comes from the machine (Show), from the box or from the bar. The machine's
// is shown on label, box and bar; the operator's is written, and the label waits until the machine sends it
// back.
class FieldRows : public FieldGroup {
 public:
  // `fields`, `in_arrival` and `money` outlive the rows; only rows of money need the latter. The controls
  // become children of `parent`.
  FieldRows(QWidget* parent, const RowStyle& style, std::span<const FieldRow> fields, const bool& in_arrival,
            Money* money = nullptr);

  int size() const { return static_cast<int>(fields_.size()); }
  ValueRow& operator[](int n) { return *rows_[n].view; }
  const FieldRow& Field(int n) const { return fields_[n]; }

  // What row n stands at: what the machine has sent last, within the span of the bar, or the operator's
  // change of that. Before either, where its bar begins.
  int Value(int n) const { return rows_[n].value; }
  // Runs `changed` behind each write of the operator's.
  void WhenChanged(std::function<void()> changed) { changed_ = std::move(changed); }

  // The record that row n shows.
  int Record(int n) const { return fields_[n].record + shift_; }
  // Moves every row to the record `shift` behind the one in its table, for tables of one element of several.
  // The values of the old records vanish with their marks; what the rows stand at stays until an arrival.
  void SetShift(int shift);

  // Lays rows `first` to `last` under each other, from `line` of the grid on, from its column `column` on.
  void PlaceIn(QGridLayout& grid, int first, int last, int line = 0, int column = 0);
  // Lays all rows into `columns` columns of the grid, one below the other, then column by column.
  void PlaceInColumns(QGridLayout& grid, int columns);

  // Opens or closes the rows of one node, or all.
  void SetOpen(int node, bool open);
  void SetOpen(bool open);
  // Opens or closes all rows, or row n, with their captions and values.
  void SetEnabled(bool enabled) override;
  void SetEnabled(int n, bool enabled);

  void SetCaptions() override;
  // One for each row.
  std::vector<Records> ShownRecords() const override;
  // An amount of money waits for its decimals.
  void Show(int n, double value) override;
  // Shows a value that another record than that of row n tells. Of a change it says nothing.
  void Fill(int n, double value);
  // Whether an arrival opens the bar of its row, which is how a held row opens again. At first it does.
  void LetEchoOpen(bool opens) { echo_opens_ = opens; }

 private:
  struct Row {
    ValueRow* view;
    BarBinding bar;
    int value;
    std::optional<double> arrived = std::nullopt;  // what the machine has sent last
  };

  std::optional<int> Parse(const FieldRow& field, const QString& text) const;
  QString Text(const FieldRow& field, double value) const;
  bool Waits(int n) const { return fields_[n].money && !money_->IsKnown(); }
  void Draw(int n);
  void RedrawMoney();
  bool Enter(int n, const QString& text);
  void Change(int n, int value);

  std::span<const FieldRow> fields_;
  const bool& in_arrival_;
  Money* money_;
  bool held_;
  bool echo_opens_ = true;
  std::vector<Row> rows_;
  int shift_ = 0;
  std::function<void()> changed_ = [] {};
};

}  // namespace dosmara
