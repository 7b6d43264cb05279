// SPDX-License-Identifier: GPL-3.0-or-later
// Settings and states of the machine that are single bits of a byte.
#pragma once

#include <QGridLayout>
#include <QWidget>
#include <functional>
#include <span>
#include <vector>

#include "controls/echo_mark.h"
#include "controls/field_label.h"
#include "controls/two_position_switch.h"
#include "fields/captions.h"
#include "fields/control_array.h"
#include "fields/field_group.h"

namespace dosmara {

// Where a bit byte lies: its record, which is read and written, and its mirror, which is only written. A
// mirror of 0 is none.
struct BitRecord {
  int node = 0;
  int record = 0;
  int mirror = 0;
};

// A form's copy of such a byte, kept so that one bit can be changed without losing the others.
class BitByte {
 public:
  explicit BitByte(const BitRecord& where) : where_(where) {}

  const BitRecord& where() const { return where_; }

  // Keeps an arrived value.
  void Take(double value);

  // Whether a value has arrived.
  bool IsKnown() const { return known_; }
  // Whether any bit of `mask` is set in the copy.
  bool Has(int mask) const { return (bits_ & mask) != 0; }
  // Whether any bit of `mask` has been written and is not back yet.
  bool IsOnItsWay(int mask) const { return ((bits_ ^ arrived_) & mask) != 0; }

  // Sets the bits of `mask` to those of `bits` and writes the whole byte to the record and its mirror.
  // Returns false, and writes nothing, while the other bits are not known yet. Bits that another form has on
  // their way go along, so that two forms on one byte never undo each other's changes.
  bool Write(int mask, int bits);

 private:
  BitRecord where_;
  int bits_ = 0;
  int arrived_ = 0;  // what came last
  bool known_ = false;
};

// One bit of a table.
struct BitRow {
  int line = 0;             // caption, line of the language file; 0: none
  int byte = 0;             // index in the table of bytes
  int mask = 0;             // the bit
  int index = 0;            // of its controls in their arrays
  bool active_low = false;  // it shows on while the bit is clear
  // The arrays of its controls, where they are not those of the other rows.
  ControlArray caption = {};
  ControlArray control = {};
};

// Columns of a grid that a switch takes with its caption and its mark.
inline constexpr int kSwitchColumns = 3;

// The bits of one table, over anything that shows on and off.
class BitRows : public FieldGroup {
 public:
  // `in_arrival` outlives the rows.
  BitRows(std::span<const BitRecord> bytes, std::span<const BitRow> rows, const bool& in_arrival);

  int size() const { return static_cast<int>(rows_.size()); }

  // Lets row n show its state through `show`.
  void Bind(int n, std::function<void(bool on)> show) { rows_[n].show = std::move(show); }
  // Gives each row a caption, a switch that writes it, and a mark. They become children of `parent` and are
  // closed. The arrays are those of the rows that name none.
  void MakeSwitches(QWidget* parent, const ControlArray& captions = {}, const ControlArray& switches = {});
  // Gives the first `count` switches, or all, words for off and on.
  void SetWords(const OffOnLines& words, int count = kAll);
  FieldLabel& caption(int n) { return *rows_[n].caption; }
  TwoPositionSwitch& control(int n) { return *rows_[n].control; }
  EchoMark& mark(int n) { return *rows_[n].mark; }
  // Lays the controls of row n into kSwitchColumns columns of the grid: caption, switch, mark.
  void PlaceIn(QGridLayout& grid, int n, int line, int column);
  // Enables or disables the switches with their captions, or those of row n.
  void SetEnabled(bool enabled) override;
  void SetEnabled(int n, bool enabled);
  // Takes the caption, the switch and the mark of row n off the form.
  void Hide(int n);

  // Rows that are bound to something else than a switch have no caption.
  void SetCaptions() override;
  // One for each byte of the table.
  std::vector<Records> ShownRecords() const override;
  // Each row of the byte shows its bit.
  void Show(int byte, double value) override;

  // Moves row n to another bit. It goes on showing the old one until the byte arrives.
  void MoveTo(int n, int byte, int mask);
  // Moves row n to another bit of its byte, which it shows at once if the byte has arrived. A bit that is on
  // its way keeps its mark.
  void MoveWithinByte(int n, int mask);

 private:
  static constexpr int kAll = -1;

  struct Row {
    BitRow bit;
    std::function<void(bool)> show;
    FieldLabel* caption = nullptr;
    TwoPositionSwitch* control = nullptr;
    EchoMark* mark = nullptr;
  };

  bool IsOn(const Row& row) const { return bytes_[row.bit.byte].Has(row.bit.mask) != row.bit.active_low; }
  void Write(Row& row, bool on);

  std::vector<BitByte> bytes_;
  std::vector<Row> rows_;
  const bool& in_arrival_;
  bool putting_back_ = false;  // a switch is set by the rows, not by the operator
  OffOnLines words_;
  int with_words_ = 0;  // how many rows have them
};

}  // namespace dosmara
