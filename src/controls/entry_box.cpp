// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/entry_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <algorithm>

namespace dosmara {

EntryBox::EntryBox(QWidget* parent) : QLineEdit(parent) {
  setAlignment(Qt::AlignRight);
  connect(this, &QLineEdit::returnPressed, this, [this] {
    emit Confirmed(text());
    selectAll();
  });
  connect(this, &QLineEdit::textEdited, this, [this] { setMaxLength(length_); });
}

void EntryBox::SetLength(int length) {
  length_ = length;
  setMaxLength(length);
}

void EntryBox::ShowText(const QString& text) {
  Put(text);
  saved_text_ = text;
}

void EntryBox::Restore() {
  Put(saved_text_);
  selectAll();
}

// In a box that has the focus the next key replaces the text that has been put there. A text that stands
// already is left alone: the same values arrive over and over.
void EntryBox::Put(const QString& text) {
  if (text == this->text()) {
    return;
  }
  setMaxLength(std::max(length_, static_cast<int>(text.size())));
  setText(text);
  if (hasFocus()) {
    selectAll();
  }
}

// The box's own context menu takes the focus for a moment: that is neither arriving nor leaving.
void EntryBox::focusInEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) {
    saved_text_ = text();
    setPlaceholderText(text() + QChar::Nbsp);  // keeps the cursor off the last digit
    clear();
    setMaxLength(length_);
  }
  QLineEdit::focusInEvent(event);
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) {
    Put(saved_text_);
  }
  QLineEdit::focusOutEvent(event);
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    Restore();
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

}  // namespace dosmara
