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
      box_(new EntryBox(parent, setup_.saved_text)),
      bar_(new Bar(parent)),
      echo_(new EchoMark(parent)) {
  caption_->setObjectName(setup_.caption_name);
  value_->setObjectName(setup_.value_name);
  box_->setObjectName(setup_.box_name);
  bar_->setObjectName(setup_.bar_name);
  const int width = kValueDigits * box_->fontMetrics().horizontalAdvance('0');
  value_->setFixedWidth(width);
  box_->setFixedWidth(width);
  box_->SetLength(setup_.length);
  bar_->SetSpan(setup_.min, setup_.max, setup_.large_change);
  connect(box_, &EntryBox::Confirmed, this, &ValueRow::Confirm);
  SetOpen(false);
}

void ValueRow::PlaceIn(QGridLayout& grid, int row, int column) {
  grid.addWidget(caption_, row, column);
  grid.addWidget(value_, row, column + 1);
  grid.addWidget(box_, row, column + 1);
  grid.addWidget(bar_, row, column + 2);
  grid.addWidget(echo_, row, column + 3);
}

void ValueRow::PlaceStackedIn(QGridLayout& grid, int row) {
  grid.addWidget(caption_, row, 0);
  grid.addWidget(value_, row, 1);
  grid.addWidget(box_, row, 1);
  grid.addWidget(echo_, row, 2);
  grid.addWidget(bar_, row + 1, 0, 1, 3);
}

void ValueRow::SetCaption(const QString& text) {
  caption_->setText(text);
  box_->setAccessibleName(text);
  bar_->setAccessibleName(text);
}

void ValueRow::TakeValueText() { box_->ShowText(value_->text()); }

void ValueRow::SetOpen(bool open) {
  bar_->setEnabled(open);
  if (setup_.closed_box_stays) {
    box_->setEnabled(open);
  } else {
    box_->setVisible(open && !withdrawn_);
  }
  if (open && setup_.opening_fills_box) {
    box_->Put(value_->text());
  }
}

void ValueRow::SetLabelsEnabled(bool enabled) {
  caption_->setEnabled(enabled);
  value_->setEnabled(enabled);
}

void ValueRow::Withdraw() {
  withdrawn_ = true;
  for (QWidget* control :
       {static_cast<QWidget*>(caption_), static_cast<QWidget*>(value_), static_cast<QWidget*>(box_),
        static_cast<QWidget*>(bar_), static_cast<QWidget*>(echo_)}) {
    control->hide();
  }
}

// A value that the bar refuses is a bad entry too.
void ValueRow::Confirm(const QString& text) {
  const std::optional<int> entry = setup_.parse(text);
  if (entry && bar_->SetValue(*entry)) {
    return;
  }
  if (setup_.restore_from_label) {
    box_->Put(value_->text());
  } else {
    box_->Restore();
  }
}

}  // namespace dosmara
