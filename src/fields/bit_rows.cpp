// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/bit_rows.h"

#include <QScopedValueRollback>

#include "fields/records.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

QString NameOf(const BitRow& bit, const ControlArray& own, const ControlArray& common) {
  return (own.name != nullptr ? own : common)[bit.index];
}

}  // namespace

void BitByte::Take(double value) {
  bits_ = LowBits(value);
  arrived_ = bits_;
  known_ = true;
}

bool BitByte::Write(int mask, int bits) {
  if (!known_) {
    return false;
  }
  // The table holds what came last, or what is on its way in the place of that.
  const int newest = LowBits(ParamGet(where_.record, where_.node));
  bits_ = (newest & ~mask) | (bits & mask);
  PutWithMirror(where_.node, where_.record, where_.mirror, bits_);
  return true;
}

BitRows::BitRows(std::span<const BitRecord> bytes, std::span<const BitRow> rows, const bool& in_arrival)
    : bytes_(bytes.begin(), bytes.end()), in_arrival_(in_arrival) {
  for (const BitRow& bit : rows) {
    rows_.push_back({.bit = bit, .show = [](bool) {}});
  }
}

void BitRows::MakeSwitches(QWidget* parent, const ControlArray& captions, const ControlArray& switches) {
  for (Row& row : rows_) {
    row.caption = new FieldLabel(parent);
    row.caption->setObjectName(NameOf(row.bit, row.bit.caption, captions));
    row.control = new TwoPositionSwitch(parent);
    row.control->setObjectName(NameOf(row.bit, row.bit.control, switches));
    row.mark = new EchoMark(parent);
    row.show = [&row](bool on) {
      row.control->SetPosition(on ? 1 : 0);
      row.mark->Came(on ? 1 : 0);
    };
    QObject::connect(row.control, &TwoPositionSwitch::Changed, row.control,
                     [this, &row](int position) { Write(row, position == 1); });
  }
  SetEnabled(false);
}

void BitRows::PlaceIn(QGridLayout& grid, int n, int line, int column) {
  grid.addWidget(rows_[n].caption, line, column);
  grid.addWidget(rows_[n].control, line, column + 1);
  grid.addWidget(rows_[n].mark, line, column + 2);
}

void BitRows::SetEnabled(bool enabled) {
  for (int n = 0; n < size(); ++n) {
    SetEnabled(n, enabled);
  }
}

void BitRows::SetEnabled(int n, bool enabled) {
  rows_[n].caption->setEnabled(enabled);
  rows_[n].control->setEnabled(enabled);
}

void BitRows::Hide(int n) {
  rows_[n].caption->hide();
  rows_[n].control->hide();
  rows_[n].mark->hide();
}

void BitRows::SetWords(const OffOnLines& words, int count) {
  words_ = words;
  with_words_ = count == kAll ? size() : count;
}

void BitRows::SetCaptions() {
  for (int n = 0; n < with_words_; ++n) {
    rows_[n].control->SetPositionTexts(Caption(words_.off) + ',' + Caption(words_.on));
  }
  for (const Row& row : rows_) {
    if (row.bit.line != 0 && row.caption != nullptr) {
      row.caption->setText(Caption(row.bit.line));
      row.control->setAccessibleName(Caption(row.bit.line));
    }
  }
}

std::vector<Records> BitRows::ShownRecords() const {
  std::vector<Records> records;
  for (const BitByte& byte : bytes_) {
    records.push_back({byte.where().node, byte.where().record});
  }
  return records;
}

void BitRows::Show(int byte, double value) {
  bytes_[byte].Take(value);
  for (const Row& row : rows_) {
    if (row.bit.byte == byte) {
      row.show(IsOn(row));
    }
  }
}

void BitRows::MoveTo(int n, int byte, int mask) {
  rows_[n].bit.byte = byte;
  rows_[n].bit.mask = mask;
  if (rows_[n].mark != nullptr) {
    rows_[n].mark->Clear();
  }
}

void BitRows::MoveWithinByte(int n, int mask) {
  Row& row = rows_[n];
  const BitByte& byte = bytes_[row.bit.byte];
  MoveTo(n, row.bit.byte, mask);
  if (!byte.IsKnown()) {
    return;
  }
  const QScopedValueRollback guard(putting_back_, true);
  row.show(IsOn(row));
  if (byte.IsOnItsWay(mask)) {
    row.mark->Sent(IsOn(row) ? 1 : 0);
  }
}

// A switch whose byte is not known yet goes back: the other bits would be made up.
void BitRows::Write(Row& row, bool on) {
  if (in_arrival_ || putting_back_) {
    return;
  }
  const bool set = on != row.bit.active_low;
  if (bytes_[row.bit.byte].Write(row.bit.mask, set ? row.bit.mask : 0)) {
    row.mark->Sent(on ? 1 : 0);
  } else {
    const QScopedValueRollback guard(putting_back_, true);
    row.control->SetPosition(on ? 0 : 1);
    row.control->SetKnown(false);
  }
}

}  // namespace dosmara
