// SPDX-License-Identifier: GPL-3.0-or-later
// What every form with records has: its body, its arrival entry, the count of arrivals after which it opens,
// and the gates that the machine opens and closes it by.
#pragma once

#include <functional>
#include <vector>

#include "shell/arrival_map.h"
#include "shell/field_rows.h"
#include "shell/form.h"

namespace dosmara {

// Bit of a gate record: the board that it stands for is present and in use.
inline constexpr int kInUse = 4;

// The record of node 0 that stands for the board of node 1, 2 or 3.
constexpr int GateRecord(int node) {
  constexpr int kRecords[] = {312, 313, 357};
  return kRecords[node - 1];
}

// A record of node 0 by which the machine opens and closes a group of controls.
struct Gate {
  // What an arrival does while the form is loading: it is stored, it is not even looked at, or it is stored
  // and counts only when it differs.
  enum class WhileLoading { kStored, kIgnored, kCountsChanges };

  int record = 0;
  int mask = 255;      // the part of the value that is stored and compared
  int presence = 255;  // last value stored
  WhileLoading while_loading = WhileLoading::kStored;

  bool Open() const { return (presence & kInUse) != 0; }
};

// A form that shows records. Its own Load subscribes them and says by Listen what their arrivals do.
class DataForm : public Form {
 public:
  // The form has loaded when more than `load_threshold` arrivals have counted.
  DataForm(const QString& name, int load_threshold);
  ~DataForm() override;

  void SLabelChange(std::int32_t index, double value) override;

  QSize sizeHint() const override;

 protected:
  // The widget that carries the controls; it scrolls where the form is larger than its frame.
  QWidget* Body() { return body_; }

  // From now on an arrival of the record runs `take` with the value.
  void Listen(int node, int record, std::function<void(double value)> take);
  // An arrival of a row's record is shown and counted.
  void Listen(FieldRows& rows);
  // An arrival of the gate's record is counted; once the form has loaded, a change runs `follow`.
  void Listen(Gate& gate, std::function<void()> follow);
  // Forgets everything that was listened to.
  void ListenToNothing();

  // Counts an arrival while the form is loading.
  void Count();

  // Runs once, when enough arrivals have counted.
  virtual void Loaded() {}

  bool InArrival = false;  // an arrival is being shown: change events write nothing
  bool Loading = true;     // the first batch of arrivals is not complete
  int LoadCount = 0;       // arrivals counted while Loading
  QString SavedText;       // text of the box that has the focus, where a form keeps only one

 private:
  QWidget* body_;
  int load_threshold_;
  ArrivalMap arrivals_;
  std::vector<std::function<void(double)>> takers_;
};

}  // namespace dosmara
