// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/fields/counters_form.h"

#include <QVBoxLayout>
#include <chrono>

#include "shell/caption_table.h"
#include "shell/fields/position_grid.h"

namespace dosmara {

namespace {

// Counters are not polled: over a hundred of them would take the link for themselves.
constexpr std::chrono::milliseconds kRefreshInterval(15000);

constexpr int kDigits = 8;          // room for seven digits; a larger counter widens its column
constexpr int kGap = 12;            // between a value and the next caption
constexpr int kCounterColumns = 2;  // of the grid that a counter takes: caption and value

// A counter that has counted nothing stands back behind the others.
void ShowCount(FieldLabel& label, double value) {
  label.setText(WholeText(value));
  label.SetQuiet(value == 0);
}

}  // namespace

CountersForm::CountersForm(const FormSetup& setup, std::span<const CounterRun> runs)
    : DataForm(setup), runs_(runs) {
  auto* layout = new QVBoxLayout(Body());
  for (const CounterRun& run : runs_) {
    Add(run, *layout);
  }
  layout->addStretch();
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

// A grid of captions with their values. Positions stand as on their unit, with the digits of rows and columns
// around them.
void CountersForm::Add(const CounterRun& run, QVBoxLayout& layout) {
  QGroupBox* frame = run.frame != nullptr ? NewFrame(run.frame, run.frame_line) : nullptr;
  QWidget* parent = frame != nullptr ? static_cast<QWidget*>(frame) : Body();
  auto* grid = frame != nullptr ? new QGridLayout(frame) : new QGridLayout;
  grid->setVerticalSpacing(2);
  const bool headed = run.numbering == Numbering::kPosition;
  std::vector<Shown> shown;
  for (int n = 0; n < run.records.count; ++n) {
    Shown& counter = shown.emplace_back(Shown{new FieldLabel(parent), new FieldLabel(parent, true)});
    counter.caption->setObjectName(run.caption[n]);
    counter.value->setObjectName(run.value[n]);
    counter.value->setFixedHeight(counter.value->fontMetrics().height() + 4);
    const int line = n / run.columns + (headed ? 1 : 0);
    const int column = n % run.columns * kCounterColumns + (headed ? 1 : 0);
    grid->addWidget(counter.caption, line, column, Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(counter.value, line, column + 1);
    grid->setColumnStretch(column, 1);
    grid->setColumnMinimumWidth(column + 1, kDigits * fontMetrics().horizontalAdvance('0'));
    counter.caption->setContentsMargins(kGap, 0, 0, 0);
  }
  if (headed) {
    AddPositionHeadings(*grid, *parent, kCounterColumns, Qt::AlignRight);
  }
  if (frame != nullptr) {
    layout.addWidget(frame);
  } else {
    layout.addLayout(grid);
  }
  shown_.push_back(std::move(shown));
  const std::size_t index = shown_.size() - 1;
  Watch(run.records, [this, index](int n, double value) {
    FieldLabel& label = *shown_[index][n].value;
    ShowCount(label, value);
    if (label.sizeHint().width() > label.width()) {
      RefitFrame(*this);  // the counter widens its column
    }
  });
}

}  // namespace dosmara
