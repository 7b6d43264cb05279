// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/number_boxes.h"

#include <cmath>

#include "fields/entry_parsers.h"
#include "fields/field_helpers.h"
#include "fields/machine_records.h"
#include "fields/records.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr int kDigits = 10;  // width of a box

}  // namespace

NumberBoxes::NumberBoxes(QWidget* parent, const ControlArray& captions, const ControlArray& edits,
                         std::span<const NumberBox> boxes, const bool& in_arrival)
    : boxes_(boxes), in_arrival_(in_arrival) {
  for (int n = 0; n < size(); ++n) {
    Row row{new FieldLabel(parent), new EntryBox(parent, kConfirmedByLeaving), new EchoMark(parent)};
    row.caption->setObjectName(captions[n]);
    row.edit->setObjectName(edits[n]);
    row.edit->setMinimumWidth(kDigits * row.edit->fontMetrics().horizontalAdvance('0'));
    row.edit->ComeBackTo([this, n] { return TextInForce(n); });
    QObject::connect(row.edit, &EntryBox::Confirmed, row.edit,
                     [this, n](const QString& text) { Confirm(n, text); });
    rows_.push_back(row);
  }
}

void NumberBoxes::PlaceIn(QGridLayout& grid) {
  for (int n = 0; n < size(); ++n) {
    grid.addWidget(rows_[n].caption, n, 0);
    grid.addWidget(rows_[n].edit, n, 1);
    grid.addWidget(rows_[n].mark, n, 2);
  }
  grid.setColumnStretch(1, 1);
  grid.setRowStretch(size(), 1);
}

void NumberBoxes::SetCaptions() {
  for (int n = 0; n < size(); ++n) {
    rows_[n].caption->setText(Caption(boxes_[n].line));
    rows_[n].edit->setAccessibleName(Caption(boxes_[n].line));
  }
}

std::vector<Records> NumberBoxes::ShownRecords() const {
  std::vector<Records> records;
  for (const NumberBox& box : boxes_) {
    records.push_back({kMainBoard, box.record});
  }
  return records;
}

void NumberBoxes::SetEnabled(bool enabled) {
  for (const Row& row : rows_) {
    row.caption->setEnabled(enabled);
    row.edit->setEnabled(enabled);
  }
}

void NumberBoxes::Show(int n, double value) {
  rows_[n].known = true;
  rows_[n].mark->Came(value);
  rows_[n].edit->ShowText(WholeText(value));
}

// The table holds what came last or is on its way; before that, what an index file says, which is not the
// machine's.
QString NumberBoxes::TextInForce(int n) const {
  return rows_[n].known ? WholeText(ParamGet(boxes_[n].record, kMainBoard)) : QString();
}

void NumberBoxes::Confirm(int n, const QString& text) {
  if (in_arrival_ || ended_) {
    return;
  }
  const NumberBox& box = boxes_[n];
  if (!ParseNumeric(text)) {
    rows_[n].edit->Restore();
    return;
  }
  const double entry = std::round(ParseNumeric(text.left(box.characters)).value_or(-1));
  const bool good = entry >= 0 && entry <= box.largest;
  if (!good && !rows_[n].known) {
    rows_[n].edit->Restore();
    return;
  }
  const double value = good ? entry : ParamGet(box.record, kMainBoard);
  rows_[n].known = true;
  rows_[n].edit->ShowText(WholeText(value));
  rows_[n].mark->Sent(value);
  PutWithMirror(kMainBoard, box.record, box.mirror, value);
}

}  // namespace dosmara
