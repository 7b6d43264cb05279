// SPDX-License-Identifier: GPL-3.0-or-later
// What every form with records has: the groups of fields that show them, the rule by which it opens for
// changes, its first focus, and the line that tells how far the reading is.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "controls/progress_line.h"
#include "fields/bit_rows.h"
#include "fields/captioned_form.h"
#include "fields/choice_rows.h"
#include "fields/field_rows.h"
#include "fields/first_focus.h"
#include "fields/form_setup.h"
#include "fields/gate.h"
#include "fields/money.h"
#include "fields/number_boxes.h"
#include "fields/record_watch.h"

namespace dosmara {

// A form that shows records. Its constructor makes the controls and says which records it watches; the base
// subscribes and releases them, and counts arrivals until the form opens.
class DataForm : public CaptionedForm {
 public:
  explicit DataForm(const FormSetup& setup);
  ~DataForm() override;

  void Load() override;
  void InitMessaggi() override;
  void Unload() override;
  void SLabelChange(std::int32_t index, double value) override;
  // Gives the focus to the first control that can be changed, as soon as the form is open and in front.
  void TakeFocus() override;

 protected:
  // Shows the records of a group while the form is open. See RecordWatch for records that are heard twice.
  void Watch(FieldGroup& group, Counts counts);
  // Runs `take` at each arrival of the records, which are read while the form is open.
  void Hear(const Records& records, Counts counts, RecordWatch::Take take);
  void Hear(int node, int record, Counts counts, std::function<void(double value)> take);
  // Runs `take` when a record that the form only writes comes back.
  void HearEcho(int node, int record, std::function<void(double value)> take);
  // Stores the arrivals of a gate and runs `follow` at its changes, as the gate says.
  void Follow(Gate& gate, std::function<void()> follow);
  // Releases and forgets all that is watched of one board.
  void Forget(int node) { watch_.Forget(node); }
  // Asks for everything watched anew.
  void Refresh();

  // Groups of fields; they belong to the form, which lays them out and watches them.
  FieldRows& NewRows(const RowStyle& style, std::span<const FieldRow> fields, Money* money = nullptr);
  BitRows& NewBits(std::span<const BitRecord> bytes, std::span<const BitRow> rows);
  ChoiceRows& NewChoices(std::span<const ChoiceRow> rows);
  NumberBoxes& NewNumberBoxes(const ControlArray& captions, const ControlArray& edits,
                              std::span<const NumberBox> boxes);

  // Whether a form that is still loading may open now; asked behind each arrival.
  virtual bool IsReady() const;
  // Runs once, when the form opens for changes.
  virtual void Loaded() {}
  // Runs behind each arrival that the form has taken, or each at all where the setup says so.
  virtual void AfterArrival() {}

  bool InArrival = false;  // an arrival is being shown: change events write nothing
  bool Loading;            // the form has not opened for changes yet
  int LoadCount = 0;       // counted arrivals while Loading

 private:
  template <class Group, class... Args>
  Group& NewGroup(Args&&... args);
  void ShowProgress();

  FormSetup setup_;
  ProgressLine* progress_;
  bool open_ = false;                // between Load and Unload
  std::uint32_t requests_seen_ = 0;  // ParamRequests at the last arrival that was looked at
  FirstFocus first_focus_;
  RecordWatch watch_;
  std::vector<std::unique_ptr<FieldGroup>> groups_;
};

}  // namespace dosmara
