// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/counters_form.h"

#include <chrono>

#include "fields/position_grid.h"
#include "shell/caption_table.h"

namespace dosmara {

namespace {

// Counters are not polled: over a hundred of them would take the link for themselves.
constexpr std::chrono::milliseconds kRefreshInterval(15000);

// Room for seven digits, or where the columns are few for any counter of four bytes with a decimal point; a
// larger one widens its column.
constexpr int kDigits = 8;
constexpr int kManyDigits = 12;
constexpr int kFewColumns = 4;
constexpr int kGap = 12;            // between a value and the next caption
constexpr int kCounterColumns = 2;  // of the grid that a counter takes: caption and value

}  // namespace

CountersForm::CountersForm(const FormSetup& setup, std::span<const CounterRun> runs)
    : DataForm(setup), runs_(runs), layout_(new QVBoxLayout(Body())) {
  for (const CounterRun& run : runs_) {
    Add(run);
  }
  layout_->addStretch();
  auto* refresh = new QTimer(this);
  refresh->setObjectName("Timer1");
  refresh->setInterval(kRefreshInterval);
  connect(refresh, &QTimer::timeout, this, [this] { Refresh(); });
  refresh->start();
}

void CountersForm::InitMessaggi() {
  DataForm::InitMessaggi();
  for (std::size_t run = 0; run < shown_.size(); ++run) {
    for (int n = 0; n < runs_[run].records.count; ++n) {
      shown_[run][n].caption->setText(
          Numbered(Caption(runs_[run].line + n * runs_[run].line_step), NumberOf(runs_[run].numbering, n)));
    }
  }
}

void CountersForm::Show(std::size_t run, int n, double value) { ShowText(run, n, value, WholeText(value)); }

void CountersForm::ShowText(std::size_t run, int n, double value, const QString& text) {
  FieldLabel& label = Value(run, n);
  label.setText(text);
  label.SetQuiet(value == 0);
  if (label.width() < label.sizeHint().width()) {
    RefitFrame(*this);  // its column has become wider
  }
}

QGridLayout* CountersForm::NewGrid(const CounterRun& run) {
  QBoxLayout* place = run.beside ? NewColumnBesideTheLast() : layout_;
  if (run.frame == nullptr) {
    auto* grid = new QGridLayout;
    place->addLayout(grid);
    return grid;
  }
  QGroupBox* frame = NewFrame(run.frame, run.frame_line);
  place->addWidget(frame);
  if (run.beside) {
    place->addStretch();
  }
  return new QGridLayout(frame);
}

// The frame that was added last and the one that comes beside it each keep their own height.
QBoxLayout* CountersForm::NewColumnBesideTheLast() {
  auto* columns = new QHBoxLayout;
  auto* left = new QVBoxLayout;
  auto* right = new QVBoxLayout;
  left->addWidget(layout_->itemAt(layout_->count() - 1)->widget());
  left->addStretch();
  columns->addLayout(left);
  columns->addLayout(right);
  layout_->addLayout(columns);
  return right;
}

// A grid of captions with their values. Positions stand as on their unit, with the digits of rows and columns
// around them.
void CountersForm::Add(const CounterRun& run) {
  QGridLayout& grid = *grids_.emplace_back(run.goes_on ? grids_.back() : NewGrid(run));
  const int first_line = run.goes_on ? grid.rowCount() : 0;
  QWidget* parent = grid.parentWidget();
  grid.setVerticalSpacing(2);
  const bool headed = run.numbering == Numbering::kPosition;
  const int digits = run.columns > kFewColumns ? kDigits : kManyDigits;
  std::vector<Shown> shown;
  for (int n = 0; n < run.records.count; ++n) {
    Shown& counter = shown.emplace_back(Shown{new FieldLabel(parent), new FieldLabel(parent, true)});
    counter.caption->setObjectName(run.caption[n]);
    counter.value->setObjectName(run.value[n]);
    counter.value->setFixedHeight(counter.value->fontMetrics().height() + 4);
    const int line = first_line + n / run.columns + (headed ? 1 : 0);
    const int column = n % run.columns * kCounterColumns + (headed ? 1 : 0);
    grid.addWidget(counter.caption, line, column, Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(counter.value, line, column + 1);
    grid.setColumnStretch(column, 1);
    grid.setColumnMinimumWidth(column + 1, digits * fontMetrics().horizontalAdvance('0'));
    counter.caption->setContentsMargins(kGap, 0, 0, 0);
  }
  if (headed) {
    AddPositionHeadings(grid, *parent, kCounterColumns, Qt::AlignRight);
  }
  shown_.push_back(std::move(shown));
  const std::size_t index = shown_.size() - 1;
  Hear(run.records, Counts::kYes, [this, index](int n, double value) { Show(index, n, value); });
}

}  // namespace dosmara
