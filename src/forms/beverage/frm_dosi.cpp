// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_dosi.h"

#include <QApplication>

#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {

using namespace dosi;

FrmDosi::FrmDosi()
    : DataForm(kSetup),
      controls_(Body(),
                NewRows({.caption = {"lblDes"}, .value = {"lblVal"}, .box = {"txtVal"}, .bar = {"scrDosi"}},
                        kDoseRows),
                NewBits(kPropertyRecords, kProperties)),
      timer1_(NewTimer("Timer1", &FrmDosi::DrinkTestDue)),
      timer3_(NewTimer("Timer3", &FrmDosi::EndTest)) {
  timer1_->setInterval(kDrinkTestPatience);
  if (ModelCode < kFirstModelWithDelay) {
    controls_.rows[kDecaffeinatedDelay].Withdraw();
  }
  Follow(Presenza1, [this] { FollowGate(); });
  Hear(kMainBoard, kMachineStatus, Counts::kNo, [this](double value) { TakeStatus(value); });
  HearEcho(kMainBoard, kTestSelection, [this](double value) { SendCommand(value); });
  WatchSelection();
  Connect();
  Enter(State::kLoading, false);
}

QTimer* FrmDosi::NewTimer(const char* name, void (FrmDosi::*due)()) {
  auto* timer = new QTimer(this);
  timer->setObjectName(name);
  timer->setSingleShot(true);
  connect(timer, &QTimer::timeout, this, due);
  return timer;
}

void FrmDosi::Connect() {
  connect(controls_.keypad, &Keypad::Pressed, this, &FrmDosi::ChangeSelection);
  connect(controls_.selection, &Bar::Changed, this, [this](int n) {
    if (n != Selection) {
      ChangeSelection(n);
    }
  });
  for (std::size_t i = 0; i < controls_.drink_tests.size(); ++i) {
    connect(controls_.drink_tests[i], &QPushButton::clicked, this, [this, i] { TestDrink(i); });
  }
  for (std::size_t i = 0; i < controls_.part_tests.size(); ++i) {
    connect(controls_.part_tests[i], &QPushButton::clicked, this, [this, i] { TestPart(i); });
  }
}

void FrmDosi::InitMessaggi() {
  DataForm::InitMessaggi();
  controls_.SetCaptions(Selection);
}

// Watches what the hot drinks unit holds of the selection. A head that arrives at 0 closes its dependants.
void FrmDosi::WatchSelection() {
  Watch(controls_.rows, Counts::kYes);
  for (const Head& head : kHeads) {
    Hear(kHotDrinks, controls_.rows.Record(head.row), Counts::kYes,
         [this, &head](double value) { SetDependantsOpen(head, value != 0); });
  }
  Hear(kHotDrinks, kUnshownDose + Selection, Counts::kNo, [](double) {});
  Watch(controls_.properties, Counts::kYes);
}

// The switches go on showing the selection before until their bytes have been read again.
void FrmDosi::ChangeSelection(int n) {
  Forget(kHotDrinks);
  Selection = n;
  controls_.selection->SetValue(n);
  controls_.rows.SetShift(n);
  for (int i = 0; i < controls_.properties.size(); ++i) {
    controls_.properties.MoveTo(i, i * kPropertyBytes + PropertyByte(n), PropertyMask(n));
  }
  WatchSelection();
  controls_.ShowSelection(n);
}

void FrmDosi::Enter(State state, bool open) {
  state_ = state;
  open ? EnableAll() : DisableAll();
}

void FrmDosi::FollowGate() {
  const bool open = Presenza1.IsOpen();
  const State rest = open ? State::kIdle : State::kLocked;
  Enter(IsTesting() ? state_ : rest, open);
}

// The focus is remembered for the end of a test, so that the same key can start the next one.
void FrmDosi::DisableAll() {
  if (QWidget* focus = QApplication::focusWidget(); focus != nullptr && isAncestorOf(focus)) {
    focus_before_ = focus;
    focus->clearFocus();
  }
  controls_.SetCommonEnabled(false);
  controls_.rows.SetEnabled(false);
  for (QPushButton* button : controls_.part_tests) {
    button->setEnabled(false);
  }
}

// The captions and values of the rows stay as DisableAll left them.
void FrmDosi::EnableAll() {
  controls_.SetCommonEnabled(true);
  for (const Head& head : kHeads) {
    controls_.rows[head.row].SetOpen(true);
    if (controls_.rows.Value(head.row) != 0) {
      SetDependantsOpen(head, true);
    }
  }
  for (const int n : kRowsWithoutHead) {
    controls_.rows[n].SetOpen(true);
  }
  controls_.part_tests[kSugarTest]->setEnabled(ModelCode >= kFirstModelWithPartTests);
  if (focus_before_ != nullptr && QApplication::focusWidget() == nullptr) {
    focus_before_->setFocus();
  }
}

void FrmDosi::SetDependantsOpen(const Head& head, bool open) {
  for (int n = head.first; n <= head.last; ++n) {
    controls_.rows[n].SetOpen(open);
  }
  for (int i = head.first_test; i <= head.last_test; ++i) {
    controls_.part_tests[i]->setEnabled(open && ModelCode >= kFirstModelWithPartTests);
  }
  if (head.has_delay) {
    const bool delay_open = open && ModelCode >= kFirstModelWithDelay;
    controls_.rows[kDecaffeinatedDelay].SetOpen(delay_open);
    controls_.rows[kDecaffeinatedDelay].value().setEnabled(delay_open);
  }
}

// In a form that is locked, dependants that their heads have opened meanwhile stay open.
void FrmDosi::Loaded() {
  if (Presenza1.IsOpen()) {
    FollowGate();
  } else if (!IsTesting()) {
    state_ = State::kLocked;
  }
}

// The status says nothing of a part: its time alone ends the test.
void FrmDosi::TakeStatus(double value) {
  if ((LowBits(value) & kStatusDispensing) != 0) {
    Dispensing = true;
  } else if (Dispensing && IsTesting() && !IsPartTimed()) {
    EndTest();
  }
}

// When a failing line loses the write, what comes back is the old selection of the machine, and that is not
// to be tested. Without a test of its own the form answers every selection with command 0.
void FrmDosi::SendCommand(double selection) {
  if (!IsTesting() || selection == TestedSelection) {
    PutRecord(kMainBoard, kTestCommand, TestCode);
  }
}

void FrmDosi::TestDrink(std::size_t i) {
  BeginTest(State::kTestingDrink, kDrinkTestCodes[i], Selection + 1);
  timer1_->start();
}

// The selection counts from 0 here, unlike in the test of a drink.
void FrmDosi::TestPart(std::size_t i) {
  BeginTest(State::kTestingPart, kPartTestCode, Selection);
  PutRecord(kMainBoard, kTestPart, kPartTests[i].part);
  timer3_->start(PartTestInterval(controls_.rows.Value(kPartTests[i].row)));
}

void FrmDosi::BeginTest(State state, int code, int selection) {
  TestCode = code;
  TestedSelection = selection;
  PutRecord(kMainBoard, kTestSelection, selection);
  Enter(state, false);
}

// A machine that has started is waited for: its status record ends the test.
void FrmDosi::DrinkTestDue() {
  if (!Dispensing) {
    EndTest();
  }
}

void FrmDosi::EndTest() {
  Dispensing = false;
  TestCode = 0;
  Enter(Loading ? State::kLoading : State::kIdle, true);
}

}  // namespace dosmara
