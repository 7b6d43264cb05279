// SPDX-License-Identifier: GPL-3.0-or-later
// The boxes in which each position of a Zeth unit gets the group that it sells with.
#pragma once

#include <QGridLayout>
#include <QLineEdit>
#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

#include "controls/echo_mark.h"
#include "fields/control_array.h"
#include "fields/field_group.h"
#include "fields/records.h"

namespace dosmara {

// A box in which an entry is seen before it is judged: at Enter its ground turns green, a moment later the
// entry is confirmed. A box that closes in between confirms nothing.
class GroupEdit : public QLineEdit {
 public:
  enum class Ground { kPlain, kSeen, kRefused };

  // `confirm` gets what stood in the box at Enter; `leave` runs when the box is left for another control and
  // at Escape.
  GroupEdit(QWidget* parent, std::function<void(const QString& text)> confirm, std::function<void()> leave);

  void SetGround(Ground ground);
  // Puts a text into the box; if it has the focus, the next key replaces the text.
  void Put(const QString& text);

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void()> leave_;
  QString entry_;
  QTimer seen_{this};
};

// The boxes of one unit. A group is 0 to 99; the machine may hold others, which are shown as "?".
class GroupBoxes : public QObject, public FieldGroup {
 public:
  // `records` are those of the groups. The boxes become children of `parent`, and so do these.
  GroupBoxes(QWidget* parent, const Records& records, const ControlArray& boxes);

  // Lays them as the positions lie, each with its number, called by `number` of its index, in front.
  void PlaceIn(QGridLayout& grid, const std::function<QString(int n)>& number_name);
  void SetEnabled(bool enabled) override;
  // What a screen reader calls the boxes, ahead of their numbers.
  void SetAccessibleNames(const QString& name);

  std::vector<Records> ShownRecords() const override { return {records_}; }
  void Show(int n, double value) override;
  // Writes a group.
  void Write(int n, int group);

 private:
  struct Row {
    GroupEdit* box;
    EchoMark* mark;
    bool known = false;  // something has arrived
  };

  void Judge(int n, const QString& text);
  void ShowInForce(int n);

  QWidget* parent_;
  Records records_;
  std::vector<Row> rows_;
};

}  // namespace dosmara
