// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers without bars: boxes that are confirmed by Enter and by being left.
#pragma once

#include <QGridLayout>
#include <QWidget>
#include <span>
#include <vector>

#include "controls/echo_mark.h"
#include "controls/entry_box.h"
#include "controls/field_label.h"
#include "fields/control_array.h"
#include "fields/field_group.h"

namespace dosmara {

// A number of the main board, one entry of a form's table.
struct NumberBox {
  int line = 0;        // caption, line of the language file
  int record = 0;      // read and written
  int mirror = 0;      // written behind the record; 0: none
  int characters = 0;  // of the entry that are read
  int largest = 0;     // a number above it writes the one in force again
};

// The boxes of one table. A text that is no number writes nothing and shows the number in force again; a
// number that will not do writes the one in force. Neither is done before that has arrived.
class NumberBoxes : public FieldGroup {
 public:
  // `boxes` and `in_arrival` outlive these; the controls become children of `parent`.
  NumberBoxes(QWidget* parent, const ControlArray& captions, const ControlArray& edits,
              std::span<const NumberBox> boxes, const bool& in_arrival);

  int size() const { return static_cast<int>(boxes_.size()); }
  const NumberBox& Field(int n) const { return boxes_[n]; }
  FieldLabel& caption(int n) { return *rows_[n].caption; }
  EntryBox& edit(int n) { return *rows_[n].edit; }
  EchoMark& mark(int n) { return *rows_[n].mark; }

  // Lays them under each other: caption, box, mark.
  void PlaceIn(QGridLayout& grid);

  void SetCaptions() override;
  std::vector<Records> ShownRecords() const override;
  void Show(int n, double value) override;
  void SetEnabled(bool enabled) override;
  void EndEntry() override { ended_ = true; }

 private:
  struct Row {
    FieldLabel* caption;
    EntryBox* edit;
    EchoMark* mark;
    bool known = false;  // a number has arrived
  };

  void Confirm(int n, const QString& text);
  QString TextInForce(int n) const;

  std::span<const NumberBox> boxes_;
  const bool& in_arrival_;
  bool ended_ = false;
  std::vector<Row> rows_;
};

}  // namespace dosmara
