// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of the machine that are one of several: a record, or some bits of one.
#pragma once

#include <QGridLayout>
#include <QWidget>
#include <optional>
#include <span>
#include <vector>

#include "controls/echo_mark.h"
#include "controls/field_label.h"
#include "controls/selector.h"
#include "fields/bit_rows.h"

namespace dosmara {

// In place of a mask: the whole record is the choice.
inline constexpr int kWholeRecord = 255;

// A choice, one entry of a form's table.
struct ChoiceRow {
  const char* caption_name = nullptr;  // objectNames of the two controls
  const char* control_name = nullptr;
  int line = 0;                 // caption, line of the language file; 0: none
  const char* words = nullptr;  // of the positions, unless the form gives them others
  BitRecord written;            // what a change writes, with its mirror
  int read = 0;                 // the record that tells the position, where it is another one
  int mask = kWholeRecord;      // the bits of the record that are the choice
  // The position that an arrived value shows on a selector of `count` positions; one that it does not have
  // shows nothing new.
  int (*position)(int value, int count) = nullptr;
  // The bits of a position; null: the position itself.
  int (*bits)(int position) = nullptr;
};

// The choices of one table.
class ChoiceRows : public FieldGroup {
 public:
  // `in_arrival` outlives the rows; the controls become children of `parent` and are closed.
  ChoiceRows(QWidget* parent, std::span<const ChoiceRow> rows, const bool& in_arrival);

  int size() const { return static_cast<int>(rows_.size()); }
  FieldLabel& caption(int n) { return *rows_[n].caption; }
  Selector& control(int n) { return *rows_[n].control; }
  EchoMark& mark(int n) { return *rows_[n].mark; }
  // The position that the machine has sent last for row n; 0 before.
  int Position(int n) const;

  // Lays the controls of row n into kSwitchColumns columns of the grid: caption, selector, mark.
  void PlaceIn(QGridLayout& grid, int n, int line, int column);
  // Enables or disables the selectors with their captions, or those of row n.
  void SetEnabled(bool enabled) override;
  void SetEnabled(int n, bool enabled);

  void SetCaptions() override;
  // Gives the selector of row n other positions. It shows what has arrived anew.
  void SetWords(int n, const char* words);
  // One for each row: the record that tells its position.
  std::vector<Records> ShownRecords() const override;
  // An arrival that comes before a change has reached the machine says nothing about it: the record that is
  // read may be another one than the record that is written.
  void Show(int n, double value) override;

 private:
  struct Row {
    ChoiceRow choice;
    BitByte byte;
    FieldLabel* caption;
    Selector* control;
    EchoMark* mark;
    std::optional<int> arrived = std::nullopt;  // what the machine has sent last
  };

  static int PositionOf(const Row& row);
  int Draw(const Row& row);
  void Write(Row& row, int position);

  std::vector<Row> rows_;
  const bool& in_arrival_;
  bool drawing_ = false;  // a selector is moved by the rows, not by the operator
};

}  // namespace dosmara
