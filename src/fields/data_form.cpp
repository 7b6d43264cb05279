// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/data_form.h"

#include <QScopedValueRollback>
#include <utility>

#include "store/parameter_table.h"

namespace dosmara {

DataForm::DataForm(const FormSetup& setup)
    : CaptionedForm(setup.name, setup.title),
      Loading(setup.opens_with != kNeverLocked),
      setup_(setup),
      progress_(new ProgressLine(this)) {
  AddAbove(progress_);
  progress_->setAccessibleName(QStringLiteral("Values read"));
}

// The controls go first: a box that loses the focus still puts its text back.
DataForm::~DataForm() { delete Body(); }

void DataForm::Load() {
  open_ = true;
  watch_.Start();
  ShowProgress();
  InitMessaggi();
  FormCentre(*this);
  ScrollByKeys();
}

void DataForm::InitMessaggi() {
  CaptionedForm::InitMessaggi();
  for (const auto& group : groups_) {
    group->SetCaptions();
  }
  TakeFocus();
}

void DataForm::Unload() {
  for (const auto& group : groups_) {
    group->EndEntry();
  }
  watch_.Stop(setup_.kept);
  for (const Records& records : setup_.also_released) {
    Unsubscribe(records);
  }
  open_ = false;
}

void DataForm::SLabelChange(std::int32_t index, double value) {
  const int slot = watch_.Find(NodeIndex, index);
  const bool hears_all = setup_.hears_all || setup_.opens_with == kAllFresh;
  if (slot == RecordWatch::kForeign && (!hears_all || requests_seen_ == ParamRequests)) {
    return;
  }
  requests_seen_ = ParamRequests;
  const QScopedValueRollback guard(InArrival, true);
  if (slot != RecordWatch::kForeign) {
    LoadCount += Loading && watch_.IsCounted(slot) ? 1 : 0;
    if (watch_.RunTakes(slot, value)) {
      ShowProgress();
    }
  }
  if (Loading && IsReady()) {
    Loading = false;
    LoadCount = 0;
    Loaded();
  }
  AfterArrival();
  if (first_focus_.IsDue()) {
    TakeFocus();
  }
}

bool DataForm::IsReady() const {
  return setup_.opens_with == kAllFresh ? watch_.AllFresh() : LoadCount >= setup_.opens_with;
}

void DataForm::TakeFocus() {
  first_focus_.Look(*Body());
  if (!Loading) {
    first_focus_.Give(*this, *Body());
  }
}

void DataForm::Watch(FieldGroup& group, Counts counts) {
  int first = 0;
  for (const Records& records : group.ShownRecords()) {
    Hear(records, counts, [&group, first](int n, double value) { group.Show(first + n, value); });
    first += records.count;
  }
}

void DataForm::Hear(const Records& records, Counts counts, RecordWatch::Take take) {
  watch_.Hear(records, counts, std::move(take));
  ShowProgress();
}

void DataForm::Hear(int node, int record, Counts counts, std::function<void(double)> take) {
  Hear({node, record}, counts, [take = std::move(take)](int, double value) { take(value); });
}

void DataForm::HearEcho(int node, int record, std::function<void(double)> take) {
  watch_.HearEcho(node, record, std::move(take));
}

void DataForm::Follow(Gate& gate, std::function<void()> follow) {
  Hear(kMainBoard, gate.record, Counts::kNo, [this, &gate, follow = std::move(follow)](double value) {
    const int seen = LowBits(value) & gate.mask;
    const bool differs = seen != gate.presence;
    if (!Loading || gate.stored) {
      gate.presence = seen;
    }
    LoadCount += Loading && gate.Counts(differs) ? 1 : 0;
    if (differs && (!Loading || gate.followed)) {
      follow();
    }
  });
}

void DataForm::Refresh() {
  watch_.Refresh();
  ShowProgress();
}

// Boards that are not there send nothing, and nothing is waited for.
void DataForm::ShowProgress() {
  if (open_) {
    const RecordWatch::Progress progress = watch_.GetProgress();
    progress_->SetShare(progress.arrived, progress.total);
  }
}

template <class Group, class... Args>
Group& DataForm::NewGroup(Args&&... args) {
  groups_.push_back(std::make_unique<Group>(std::forward<Args>(args)...));
  return static_cast<Group&>(*groups_.back());
}

FieldRows& DataForm::NewRows(const RowStyle& style, std::span<const FieldRow> fields, Money* money) {
  return NewGroup<FieldRows>(Body(), style, fields, InArrival, money);
}

BitRows& DataForm::NewBits(std::span<const BitRecord> bytes, std::span<const BitRow> rows) {
  return NewGroup<BitRows>(bytes, rows, InArrival);
}

ChoiceRows& DataForm::NewChoices(std::span<const ChoiceRow> rows) {
  return NewGroup<ChoiceRows>(Body(), rows, InArrival);
}

NumberBoxes& DataForm::NewNumberBoxes(const ControlArray& captions, const ControlArray& edits,
                                      std::span<const NumberBox> boxes) {
  return NewGroup<NumberBoxes>(Body(), captions, edits, boxes, InArrival);
}

}  // namespace dosmara
