// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_password.h"

#include <QFocusEvent>
#include <QFormLayout>
#include <algorithm>
#include <cmath>

#include "shell/caption_table.h"
#include "shell/records.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr int kMainBoard = 0;
constexpr int kNoLoadCount = 0;  // no arrival counts
constexpr int kBoxDigits = 10;

struct Code {
  int line;
  int record;
  int mirror;
  int digits;  // characters of the entry that are read: the largest code has as many
};

constexpr Code kCodes[] = {
    {.line = 240, .record = 1, .mirror = 203, .digits = 5},  // programming
    {.line = 241, .record = 3, .mirror = 205, .digits = 5},  // sales data
    {.line = 242, .record = 2, .mirror = 204, .digits = 4},  // clearing data
};

}  // namespace

FrmPassword::FrmPassword() : DataForm("FrmPassword", kNoLoadCount) {
  auto* layout = new QFormLayout(Body());
  for (std::size_t n = 0; n < kCodeCount; ++n) {
    const int index = static_cast<int>(n);
    captions_[n] = new FieldLabel(Body());
    captions_[n]->setObjectName(Indexed("Label1", index));
    boxes_[n] = new QLineEdit(Body());
    boxes_[n]->setObjectName(Indexed("Text1", index));
    boxes_[n]->setAlignment(Qt::AlignRight);
    boxes_[n]->setMinimumWidth(kBoxDigits * boxes_[n]->fontMetrics().horizontalAdvance('0'));
    layout->addRow(captions_[n], boxes_[n]);
    connect(boxes_[n], &QLineEdit::returnPressed, this, [this, n] { Confirm(n); });
    boxes_[n]->installEventFilter(this);
  }
}

void FrmPassword::Load() {
  InitDati();
  InitMessaggi();
  FormCentre(*this);
}

// A form that closes takes the focus from its box, which is no entry.
void FrmPassword::Unload() {
  for (QLineEdit* box : boxes_) {
    box->removeEventFilter(this);
  }
  for (const Code& code : kCodes) {
    Unsubscribe({kMainBoard, code.record});
  }
  // Released though never subscribed.
  for (const Code& code : kCodes) {
    Unsubscribe({kMainBoard, code.mirror});
  }
}

void FrmPassword::InitDati() {
  for (std::size_t n = 0; n < kCodeCount; ++n) {
    Subscribe({kMainBoard, kCodes[n].record});
    Listen(kMainBoard, kCodes[n].record, [this, n](double value) { Show(n, value); });
  }
}

void FrmPassword::InitMessaggi() {
  setWindowTitle(Caption(25));
  for (std::size_t n = 0; n < kCodeCount; ++n) {
    captions_[n]->setText(Caption(kCodes[n].line));
    boxes_[n]->setAccessibleName(Caption(kCodes[n].line));
  }
}

// Leaving a box confirms it as Enter does. A box that lends the focus to its own menu or to another program
// is not left.
bool FrmPassword::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && isActiveWindow() &&
      static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
    Confirm(static_cast<std::size_t>(std::ranges::find(boxes_, watched) - boxes_.begin()));
  }
  return DataForm::eventFilter(watched, event);
}

// In a box that has the focus the next key replaces the code.
void FrmPassword::Show(std::size_t n, double value) {
  boxes_[n]->setText(QString::number(value, 'f', 0));
  if (boxes_[n]->hasFocus()) {
    boxes_[n]->selectAll();
  }
}

// A text that is too long is cut. A number that will not do, once it is whole, writes the code in force
// again; a text that is no number writes nothing.
void FrmPassword::Confirm(std::size_t n) {
  if (InArrival) {
    return;
  }
  const Code& code = kCodes[n];
  const QString text = boxes_[n]->text();
  const double in_force = ParamGet(code.record, kMainBoard);
  if (!ParseNumeric(text)) {
    Show(n, in_force);
    return;
  }
  const double entry = std::round(ParseNumeric(text.left(code.digits)).value_or(-1));
  const double value = entry < 0 ? in_force : entry;
  Show(n, value);
  PutWithMirror(kMainBoard, code.record, code.mirror, value);
}

}  // namespace dosmara
