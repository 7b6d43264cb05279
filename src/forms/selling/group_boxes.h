// SPDX-License-Identifier: GPL-3.0-or-later
// The boxes in which each position of a Zeth unit gets the group that it sells with.
#pragma once

#include <QGridLayout>
#include <QObject>
#include <functional>
#include <vector>

#include "controls/echo_mark.h"
#include "controls/entry_box.h"
#include "fields/control_array.h"
#include "fields/field_group.h"
#include "fields/records.h"

namespace dosmara {

// The boxes of one unit. A group is 0 to 99; the machine may hold others, which are shown as "?".
class GroupBoxes : public QObject, public FieldGroup {
 public:
  // `records` hold the groups, one for each position. The boxes and this object become children of `parent`.
  GroupBoxes(QWidget* parent, const Records& records, const ControlArray& boxes);

  // Lays the boxes as the positions lie in the unit, each behind a label with the number of the position.
  // `number_name` gives the objectName of the n-th of these labels.
  void PlaceIn(QGridLayout& grid, const std::function<QString(int n)>& number_name);
  void SetEnabled(bool enabled) override;
  // Gives each box a name for screen readers: `name` and the number of its position.
  void SetAccessibleNames(const QString& name);

  std::vector<Records> ShownRecords() const override { return {records_}; }
  void Show(int n, double value) override;
  // Writes a group.
  void Write(int n, int group);

 private:
  struct Row {
    EntryBox* box;
    EchoMark* mark;
    bool known = false;  // something has arrived
  };

  void Judge(int n, const QString& text);
  QString TextInForce(int n) const;

  QWidget* parent_;
  Records records_;
  std::vector<Row> rows_;
};

}  // namespace dosmara
