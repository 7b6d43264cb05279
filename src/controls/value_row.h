// SPDX-License-Identifier: GPL-3.0-or-later
// One value of the machine on a form: caption, value, box and bar.
#pragma once

#include <QGridLayout>
#include <QObject>
#include <functional>

#include "controls/bar.h"
#include "controls/echo_mark.h"
#include "controls/entry_box.h"
#include "controls/field_label.h"

namespace dosmara {

// What tells one row's controls from another's.
struct ValueRowSetup {
  QString caption_name;  // objectNames of the four controls
  QString value_name;
  QString box_name;  // empty: the row has no box
  QString bar_name;
  int min = 0;  // what the bar can hold
  int max = 0;
  int large_change = 1;
  int length = 0;  // characters that fit into the box
  // Takes a confirmed text. Returns whether it was good; else the box brings back what it showed before.
  std::function<bool(const QString& text)> enter;
  bool closed_box_stays = false;   // a closed row's box is disabled instead of hidden
  bool opening_fills_box = false;  // whatever is typed in the box when the row opens gives way to the value
};

// The controls of a row and what they do to each other. The box lies exactly over the value: with the
// box hidden the operator reads the value, with the box shown he types over it. A row starts closed.
class ValueRow : public QObject {
  Q_OBJECT

 public:
  // The controls become children of `parent`.
  ValueRow(QWidget* parent, ValueRowSetup setup);

  FieldLabel& caption() { return *caption_; }
  FieldLabel& value() { return *value_; }
  // Null where the row has no box.
  EntryBox* box() { return box_; }
  Bar& bar() { return *bar_; }
  EchoMark& echo() { return *echo_; }

  // Lays the controls into four columns of `grid`: caption, value and box, bar, mark.
  void PlaceIn(QGridLayout& grid, int row, int column);
  // Lays the value, and the box over it, into one place of `grid`, for a form that lays the others itself.
  void PlaceValueIn(QGridLayout& grid, int row, int column);

  // Sets the caption, which is also what the box and the bar are called by a screen reader.
  void SetCaption(const QString& text);

  // What the box and the bar are called by a screen reader where the caption says too little.
  void SetSpokenName(const QString& name);

  // Shows the text of the value's label on the box too. To be called after that text has changed.
  void TakeValueText();

  // Opens the row for changes or closes it: the bar and the box, not the labels.
  void SetOpen(bool open);
  // Opens or closes the bar alone.
  void SetBarOpen(bool open) { bar_->setEnabled(open); }

  // Enables or disables the caption and the value.
  void SetLabelsEnabled(bool enabled);

  // Takes the row off the form for good.
  void Withdraw();

 private:
  void Confirm(const QString& text);

  ValueRowSetup setup_;
  bool withdrawn_ = false;
  FieldLabel* caption_;
  FieldLabel* value_;
  EntryBox* box_;
  Bar* bar_;
  EchoMark* echo_;
};

}  // namespace dosmara
