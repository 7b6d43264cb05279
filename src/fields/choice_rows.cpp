// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/choice_rows.h"

#include <QScopedValueRollback>

#include "fields/records.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

ChoiceRows::ChoiceRows(QWidget* parent, std::span<const ChoiceRow> rows, const bool& in_arrival)
    : in_arrival_(in_arrival) {
  rows_.reserve(rows.size());
  for (const ChoiceRow& choice : rows) {
    Row& row = rows_.emplace_back(Row{choice, BitByte(choice.written), new FieldLabel(parent),
                                      new Selector(parent), new EchoMark(parent)});
    row.caption->setObjectName(choice.caption_name);
    row.control->setObjectName(choice.control_name);
    row.control->SetPositionTexts(choice.words);
    QObject::connect(row.control, &Selector::Changed, row.control,
                     [this, &row](int position) { Write(row, position); });
  }
  SetEnabled(false);
}

std::vector<Records> ChoiceRows::ShownRecords() const {
  std::vector<Records> records;
  for (const Row& row : rows_) {
    const BitRecord& written = row.choice.written;
    records.push_back({written.node, row.choice.read != 0 ? row.choice.read : written.record});
  }
  return records;
}

void ChoiceRows::PlaceIn(QGridLayout& grid, int n, int line, int column) {
  grid.addWidget(rows_[n].caption, line, column);
  grid.addWidget(rows_[n].control, line, column + 1);
  grid.addWidget(rows_[n].mark, line, column + 2);
}

void ChoiceRows::SetEnabled(bool enabled) {
  for (int n = 0; n < size(); ++n) {
    SetEnabled(n, enabled);
  }
}

void ChoiceRows::SetEnabled(int n, bool enabled) {
  rows_[n].caption->setEnabled(enabled);
  rows_[n].control->setEnabled(enabled);
}

void ChoiceRows::SetCaptions() {
  for (const Row& row : rows_) {
    row.caption->setText(Caption(row.choice.line));
    row.control->setAccessibleName(Caption(row.choice.line));
  }
}

void ChoiceRows::SetWords(int n, const char* words) {
  Row& row = rows_[n];
  const QScopedValueRollback guard(drawing_, true);
  row.control->SetPositionTexts(words);
  if (row.arrived) {
    Draw(row);
  }
}

void ChoiceRows::Show(int n, double value) {
  Row& row = rows_[n];
  const BitRecord& written = row.choice.written;
  row.byte.Take(value);
  row.arrived = LowBits(value);
  const int position = Draw(row);
  if (ParamIsFresh(written.record, written.node)) {
    row.mark->Came(position);
  }
}

int ChoiceRows::PositionOf(const Row& row) {
  return row.choice.position(*row.arrived, row.control->PositionCount());
}

int ChoiceRows::Position(int n) const { return rows_[n].arrived ? PositionOf(rows_[n]) : 0; }

int ChoiceRows::Draw(const Row& row) {
  const QScopedValueRollback guard(drawing_, true);
  const int position = PositionOf(row);
  row.control->SetPosition(position);
  return position;
}

// A choice that shares its record with other bits waits until those are known, and goes back meanwhile.
void ChoiceRows::Write(Row& row, int position) {
  if (in_arrival_ || drawing_) {
    return;
  }
  const ChoiceRow& choice = row.choice;
  const int bits = choice.bits != nullptr ? choice.bits(position) : position;
  if (choice.mask == kWholeRecord) {
    PutWithMirror(choice.written.node, choice.written.record, choice.written.mirror, bits);
  } else if (!row.byte.Write(choice.mask, bits)) {
    row.control->SetKnown(false);
    return;
  }
  row.mark->Sent(position);
}

}  // namespace dosmara
