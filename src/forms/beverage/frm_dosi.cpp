// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/frm_dosi.h"

#include <QApplication>

#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {

using namespace dosi;

FrmDosi::FrmDosi()
    : DataForm("FrmDosi", kLoadThreshold),
      Presenza1{.record = kGateRecord, .mask = kInUse, .presence = 0},
      controls_(Body(), InArrival, &SavedText),
      timer1_(NewTimer("Timer1", &FrmDosi::DrinkTestDue)),
      timer3_(NewTimer("Timer3", &FrmDosi::PartTestDue)) {
  timer1_->setInterval(kDrinkTestPatience);
  for (const Property& property : kProperties) {
    for (int byte = 0; byte < kPropertyBytes; ++byte) {
      bits_.emplace_back(BitRecord{kHotDrinks, property.record + byte, property.mirror + byte});
    }
  }
  Connect();
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
  for (std::size_t i = 0; i < controls_.properties.size(); ++i) {
    connect(controls_.properties[i], &TwoPositionSwitch::Changed, this,
            [this, i](int position) { WriteProperty(i, position); });
  }
}

void FrmDosi::Load() {
  if (ModelCode < kFirstModelWithDelay) {
    controls_.rows[kDecaffeinatedDelay].Withdraw();
  }
  DisableAll();
  InitDati();
  InitMessaggi();
  FormCentre(*this);
}

void FrmDosi::Unload() {
  UnsubscribeSelection();
  for (const Records& records : kReleasedOnly) {
    Unsubscribe(records);
  }
  Unsubscribe({kMaster, kStatus});
  Unsubscribe({kMaster, kGateRecord});
}

void FrmDosi::InitDati() {
  SubscribeSelection();
  Subscribe({kMaster, kStatus});
  Subscribe({kMaster, kGateRecord});
  ListenToRecords();
}

void FrmDosi::InitMessaggi() {
  setWindowTitle(Caption(5));
  controls_.SetCaptions(Selection);
}

void FrmDosi::SubscribeSelection() const {
  controls_.rows.Subscribe();
  Subscribe({kHotDrinks, kUnshownDose + Selection});
  for (const Property& property : kProperties) {
    Subscribe({kHotDrinks, property.record, kPropertyBytes});
  }
}

void FrmDosi::UnsubscribeSelection() const {
  controls_.rows.Unsubscribe();
  Unsubscribe({kHotDrinks, kUnshownDose + Selection});
  for (const Property& property : kProperties) {
    Unsubscribe({kHotDrinks, property.record, kPropertyBytes});
  }
}

void FrmDosi::ListenToRecords() {
  ListenToNothing();
  Listen(controls_.rows);
  for (const Head& head : kHeads) {
    Listen(kHotDrinks, controls_.rows.Record(head.row), [this, &head](double value) {
      controls_.rows.Show(head.row, value);
      SetDependantsOpen(head, value != 0);
      Count();
    });
  }
  for (std::size_t i = 0; i < std::size(kProperties); ++i) {
    for (int byte = 0; byte < kPropertyBytes; ++byte) {
      Listen(kHotDrinks, kProperties[i].record + byte,
             [this, i, byte](double value) { TakeBits(i, byte, value); });
    }
  }
  Listen(Presenza1, [this] { Presenza1.Open() ? EnableAll() : DisableAll(); });
  Listen(kMaster, kTestSelection, [this](double) { PutRecord(kMaster, kTestCommand, TestCode); });
  Listen(kMaster, kStatus, [this](double value) { TakeStatus(value); });
}

void FrmDosi::ChangeSelection(int n) {
  UnsubscribeSelection();
  Selection = n;
  controls_.selection->SetValue(n);
  controls_.rows.SetShift(n);
  SubscribeSelection();
  ListenToRecords();
  controls_.ShowSelection(n);
}

// The focus is remembered for the end of a test, so that the same key can start the next one.
void FrmDosi::DisableAll() {
  if (QWidget* focus = QApplication::focusWidget(); focus != nullptr && isAncestorOf(focus)) {
    focus_before_ = focus;
    focus->clearFocus();
  }
  controls_.SetCommonEnabled(false);
  for (int n = 0; n < controls_.rows.size(); ++n) {
    controls_.rows[n].SetOpen(false);
    controls_.rows[n].SetLabelsEnabled(false);
  }
  for (QPushButton* button : controls_.part_tests) {
    button->setEnabled(false);
  }
}

// The captions and values of the rows stay as DisableAll left them.
void FrmDosi::EnableAll() {
  controls_.SetCommonEnabled(true);
  for (const Head& head : kHeads) {
    controls_.rows[head.row].SetOpen(true);
    if (controls_.rows[head.row].bar().Value() != 0) {
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

void FrmDosi::Loaded() {
  if (Presenza1.Open()) {
    EnableAll();
  }
}

void FrmDosi::TakeBits(std::size_t property, int byte, double value) {
  BitByte& bits = Bits(property, byte);
  bits.Take(value);
  if (byte == PropertyByte(Selection)) {
    controls_.properties[property]->SetPosition(bits.Has(PropertyMask(Selection)) ? 1 : 0);
  }
  Count();
}

void FrmDosi::WriteProperty(std::size_t property, int position) {
  if (!InArrival) {
    Bits(property, PropertyByte(Selection)).Write(PropertyMask(Selection), position == 1);
  }
}

void FrmDosi::TakeStatus(double value) {
  if ((LowBits(value) & kStatusDispensing) != 0) {
    Dispensing = true;
  } else if (Dispensing && TestCode != 0 && !TestRunning) {
    EndTest();
  }
}

void FrmDosi::TestDrink(std::size_t i) {
  TestCode = kDrinkTestCodes[i];
  PutRecord(kMaster, kTestSelection, Selection + 1);
  DisableAll();
  timer1_->start();
}

// A machine that has started is waited for: its status record ends the test.
void FrmDosi::DrinkTestDue() {
  if (!Dispensing) {
    EndTest();
  }
}

// The selection counts from 0 here, unlike in the test of a drink.
void FrmDosi::TestPart(std::size_t i) {
  TestCode = kPartTestCode;
  PutRecord(kMaster, kTestSelection, Selection);
  PutRecord(kMaster, kTestPart, kPartTests[i].part);
  timer3_->setInterval(PartTestInterval(controls_.rows[kPartTests[i].row].bar().Value()));
  DisableAll();
  timer3_->start();
  TestRunning = true;
}

void FrmDosi::PartTestDue() {
  TestRunning = false;
  EndTest();
}

void FrmDosi::EndTest() {
  Dispensing = false;
  TestCode = 0;
  EnableAll();
}

}  // namespace dosmara
