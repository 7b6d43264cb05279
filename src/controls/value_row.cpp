// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/value_row.h"

namespace dosmara {

namespace {

// A value field is as wide as this many digits, whatever the box's length, so that fields line up.
constexpr int kValueDigits = 7;

}  // namespace

ValueRow::ValueRow(QWidget* parent, ValueRowSetup setup)
    : QObject(parent),
      setup_(std::move(setup)),
      caption_(new FieldLabel(parent)),
      value_(new FieldLabel(parent, true)),
      box_(setup_.box_name.isEmpty() ? nullptr : new EntryBox(parent, kOverShownValue)),
      bar_(new Bar(parent)),
      echo_(new EchoMark(parent)) {
  caption_->setObjectName(setup_.caption_name);
  value_->setObjectName(setup_.value_name);
  bar_->setObjectName(setup_.bar_name);
  const QSize field(kValueDigits * value_->fontMetrics().horizontalAdvance('0'),
                    EntryBox(nullptr, kOverShownValue).sizeHint().height());
  value_->setFixedSize(field);
  if (box_ != nullptr) {
    box_->setObjectName(setup_.box_name);
    box_->setFixedSize(field);
    box_->SetLength(setup_.length);
    connect(box_, &EntryBox::Confirmed, this, &ValueRow::Confirm);
  }
  bar_->SetSpan(setup_.min, setup_.max, setup_.large_change);
  SetOpen(false);
}

void ValueRow::PlaceIn(QGridLayout& grid, int row, int column) {
  grid.addWidget(caption_, row, column);
  PlaceValueIn(grid, row, column + 1);
  grid.addWidget(bar_, row, column + 2);
  grid.addWidget(echo_, row, column + 3);
}

void ValueRow::PlaceValueIn(QGridLayout& grid, int row, int column) {
  grid.addWidget(value_, row, column);
  if (box_ != nullptr) {
    grid.addWidget(box_, row, column);
  }
}

void ValueRow::SetCaption(const QString& text) {
  caption_->setText(text);
  SetSpokenName(text);
}

void ValueRow::SetSpokenName(const QString& name) {
  bar_->setAccessibleName(name);
  if (box_ != nullptr) {
    box_->setAccessibleName(name);
  }
}

void ValueRow::TakeValueText() {
  if (box_ != nullptr) {
    box_->ShowText(value_->text());
  }
}

void ValueRow::SetOpen(bool open) {
  bar_->setEnabled(open);
  if (box_ == nullptr) {
    return;
  }
  if (setup_.closed_box_stays) {
    box_->setEnabled(open);
  } else {
    box_->setVisible(open && !withdrawn_);
  }
  if (open && setup_.opening_fills_box) {
    box_->ShowText(value_->text());
  }
}

void ValueRow::SetLabelsEnabled(bool enabled) {
  caption_->setEnabled(enabled);
  value_->setEnabled(enabled);
}

void ValueRow::Withdraw() {
  withdrawn_ = true;
  for (QWidget* control : {static_cast<QWidget*>(caption_), static_cast<QWidget*>(value_),
                           static_cast<QWidget*>(bar_), static_cast<QWidget*>(echo_)}) {
    control->hide();
  }
  if (box_ != nullptr) {
    box_->hide();
  }
}

void ValueRow::Confirm(const QString& text) {
  if (!setup_.enter(text)) {
    box_->Restore();
  }
}

}  // namespace dosmara
