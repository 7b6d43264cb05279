// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/entry_box.h"

#include <QFocusEvent>
#include <algorithm>

namespace dosmara {

EntryBox::EntryBox(QWidget* parent, QString* saved_text)
    : QLineEdit(parent), saved_text_(saved_text != nullptr ? saved_text : &own_saved_text_) {
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
  *saved_text_ = text;
}

void EntryBox::Restore() { Put(*saved_text_); }

// In a box that has the focus the next key replaces the text that has been put there.
void EntryBox::Put(const QString& text) {
  setMaxLength(std::max(length_, static_cast<int>(text.size())));
  setText(text);
  if (hasFocus()) {
    selectAll();
  }
}

// The box's own context menu takes the focus for a moment: that is neither arriving nor leaving.
void EntryBox::focusInEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) {
    *saved_text_ = text();
    setPlaceholderText(text() + QChar::Nbsp);  // keeps the cursor off the last digit
    clear();
    setMaxLength(length_);
  }
  QLineEdit::focusInEvent(event);
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
  if (event->reason() != Qt::PopupFocusReason) {
    Restore();
  }
  QLineEdit::focusOutEvent(event);
}

}  // namespace dosmara
