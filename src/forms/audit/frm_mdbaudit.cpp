// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/audit/frm_mdbaudit.h"

#include <QPointer>

#include "shell/question.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

// Another window may have read the amounts already: then the arrival of any record opens the button.
constexpr FormSetup kSetup = {.name = "FrmMDBaudit", .title = 44, .hears_all = true};

constexpr Records kFlows = {kMainBoard, 339, 6};

constexpr CounterRun kRuns[] = {
    {.records = kFlows, .caption = {"Label1"}, .line = 165, .line_step = 1, .value = {"Label2"}}};

constexpr int kMarkColumn = 2;
constexpr int kGap = 8;  // between the amounts and the button that clears them

}  // namespace

FrmMDBaudit::FrmMDBaudit() : CountersForm(kSetup, kRuns), clear_(NewButton("Command1", 171)) {
  QGridLayout& grid = Grid(0);
  for (int n = 0; n < kFlows.count; ++n) {
    grid.addWidget(marks_.emplace_back(new EchoMark(Body())), n, kMarkColumn);
  }
  grid.setRowMinimumHeight(kFlows.count, kGap);
  grid.addWidget(clear_, kFlows.count + 1, 1);
  clear_->setEnabled(false);
  connect(clear_, &QPushButton::clicked, this, [this] { Clear(); });
}

void FrmMDBaudit::AfterArrival() {
  if (ParamIsFresh(kFlows.first, kFlows.node)) {
    clear_->setEnabled(true);
  }
}

// Money that flows after a clearing does not undo it.
void FrmMDBaudit::Show(std::size_t run, int n, double value) {
  CountersForm::Show(run, n, value);
  if (marks_[n]->state() == EchoMark::State::kOnItsWay) {
    marks_[n]->Came(value);
  } else if (value != 0) {
    marks_[n]->Clear();
  }
}

// The values stand until the machine has sent the new ones. While the question is asked the form may close.
void FrmMDBaudit::Clear() {
  const QPointer<FrmMDBaudit> form(this);
  if (!AskToClear() || form.isNull()) {
    return;
  }
  clear_->setEnabled(false);
  for (int n = 0; n < kFlows.count; ++n) {
    marks_[n]->Sent(0);
    PutRecord(kFlows.node, kFlows.first + n, 0);
  }
}

}  // namespace dosmara
