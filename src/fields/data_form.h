// SPDX-License-Identifier: GPL-3.0-or-later
// What every form with records has: its body, the records that it watches, its arrival entry, the count of
// arrivals after which it opens, and the gates that the machine opens and closes it by.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <QScrollArea>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "controls/progress_line.h"
#include "fields/arrival_map.h"
#include "fields/bit_rows.h"
#include "fields/choice_rows.h"
#include "fields/field_rows.h"
#include "fields/gate.h"
#include "fields/money.h"
#include "fields/number_boxes.h"
#include "fields/records.h"
#include "shell/form.h"

namespace dosmara {

// In place of a number of arrivals: the form counts none. It is open from the start, or calls Open by a rule
// of its own.
inline constexpr int kNeverLocked = -1;
inline constexpr int kOpensByItself = -2;

// What tells one form from another before its controls.
struct FormSetup {
  const char* name = nullptr;      // class and objectName
  int title = 0;                   // line of the language file; 0: it has the default title
  int opens_after = kNeverLocked;  // so many counted arrivals do not open the form yet, the next one does
  // AfterArrival runs behind arrivals of other forms' records too, once after each request of any form: until
  // the next one they cannot change what is fresh of the form's own.
  bool hears_all = false;
  // What the close treats unlike the open: released without ever having been subscribed, which does nothing
  // unless another form has; and left subscribed. The tables of the forms say why.
  std::span<const Records> also_released = {};
  std::span<const Records> kept = {};
  const char* default_title = "";  // of a form for which the language has no line
};

// Whether an arrival adds to the count of those after which the form opens.
enum class Counts { kYes, kNo };

// A form that shows records. Its constructor makes the controls and says with Watch which records it wants
// and what their arrivals do; the base subscribes, releases, captions, places and counts.
// A form that is larger than its frame scrolls, also by the arrows and page keys that no control of it takes.
class DataForm : public Form {
 public:
  explicit DataForm(const FormSetup& setup);
  ~DataForm() override;

  // Subscribes what is watched, sets the captions, places the form.
  void Load() override;
  // Sets the title and the captions of all rows and of whatever NewFrame, NewLabel and NewButton have made.
  void InitMessaggi() override;
  // Releases what is watched, and what the setup says.
  void Unload() override;

  void SLabelChange(std::int32_t index, double value) override;

  // Gives the focus to the first control that can be changed, once in the form's life, as soon as the form is
  // open for changes and in front. An operator who has put it anywhere else keeps it there.
  void TakeFocus() override;

  QSize sizeHint() const override;

  // Sees the keys of the frame, which nothing in the form has taken.
  bool eventFilter(QObject* frame, QEvent* event) override;

 protected:
  // The widget that carries the controls; it scrolls where the form is larger than its frame.
  QWidget* Body() { return body_; }

  // The records are subscribed while the form is open, from now on if it is open already. The arrival of the
  // n-th of them runs `take` with n and the value. A record that is watched twice is subscribed and counted
  // once, and its arrival runs both in the order of the calls.
  void Watch(const Records& records, std::function<void(int n, double value)> take,
             Counts counts = Counts::kYes);
  void Watch(int node, int record, std::function<void(double value)> take, Counts counts = Counts::kYes);
  // An arrival of a row's record is shown, and then runs `after` with the row and the value.
  void Watch(FieldRows& rows, Counts counts = Counts::kYes,
             std::function<void(int n, double value)> after = nullptr);
  void Watch(BitRows& rows, Counts counts = Counts::kYes);
  void Watch(ChoiceRows& rows, Counts counts = Counts::kYes);
  void Watch(NumberBoxes& boxes, Counts counts = Counts::kNo);
  // Once the form has loaded, or at once where the gate is followed at once, a change runs `follow`.
  void Watch(Gate& gate, std::function<void()> follow);
  // Takes the decimals of money from the machine; a change redraws the rows of money. Rows of money are made
  // with the same `money`.
  void Watch(Money& money, Counts counts = Counts::kNo);
  // Runs `take` at an arrival of a record that the form only writes.
  void Listen(int node, int record, std::function<void(double value)> take);
  // Releases and forgets all that is watched of one board.
  void Forget(int node);
  // Asks for everything watched anew, by releasing and subscribing it.
  void Refresh();

  // Controls of the form. What has a line of the language file is captioned from it.
  QGroupBox* NewFrame(const QString& name, int line);
  FieldLabel* NewLabel(const QString& name, int line, int number = 0, QWidget* parent = nullptr);
  QPushButton* NewButton(const QString& name, int line);
  // The rows of a table; they belong to the form, which lays them out and watches them.
  FieldRows& NewRows(const RowStyle& style, std::span<const FieldRow> fields, const Money* money = nullptr);
  BitRows& NewBits(std::span<const BitRecord> bytes, std::span<const BitRow> rows);
  ChoiceRows& NewChoices(std::span<const ChoiceRow> rows);
  NumberBoxes& NewNumberBoxes(const ControlArray& captions, const ControlArray& edits,
                              std::span<const NumberBox> boxes);

  // The form opens for changes: Loading ends and Loaded runs.
  void Open();
  // Runs once, when the form opens.
  virtual void Loaded() {}
  // Runs at the end of each arrival that the form has taken, or of each arrival at all where the setup says
  // so.
  virtual void AfterArrival() {}

  bool InArrival = false;  // an arrival is being shown: change events write nothing
  bool Loading;            // the form has not opened for changes yet
  int LoadCount = 0;       // arrivals counted while Loading

 private:
  using Take = std::function<void(int n, double value)>;

  // One record that the form hears of.
  struct Heard {
    int node;
    int record;
    int n;  // of its run
    std::shared_ptr<const Take> take;
    bool subscribed = true;  // while the form is open
    bool counts = true;
    bool arrived = false;  // since it was subscribed last
  };
  struct Captioned {
    QWidget* control;
    int line;
    int number;
  };

  void Hear(const Records& records, Take take, bool subscribed, Counts counts);
  void HearTwice(Heard& heard, const Heard& more);
  void TakeArrival(int slot, double value);
  void CountArrival();
  void SubscribeAll();
  void Release(const Heard& heard) const;
  void ShowProgress();
  void MapArrivals();
  bool ScrollBy(const QKeyEvent& key);

  FormSetup setup_;
  QWidget* body_;
  ProgressLine* progress_;
  QScrollArea* area_;
  bool open_ = false;                // subscribed
  std::uint32_t requests_seen_ = 0;  // ParamRequests at the last arrival that was taken
  bool focus_to_give_ = true;        // the operator has not been in the form yet
  ArrivalMap arrivals_;
  std::vector<Heard> heard_;
  std::vector<Captioned> captioned_;
  std::vector<std::unique_ptr<FieldRows>> rows_;
  std::vector<std::unique_ptr<BitRows>> bits_;
  std::vector<std::unique_ptr<ChoiceRows>> choices_;
  std::vector<std::unique_ptr<NumberBoxes>> boxes_;
};

}  // namespace dosmara
