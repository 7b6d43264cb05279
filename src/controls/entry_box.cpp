// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/entry_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <algorithm>

namespace dosmara {

namespace {

constexpr QColor kTakenUp(0, 255, 0);
constexpr QColor kRefused(255, 0, 0);

}  // namespace

EntryBox::EntryBox(QWidget* parent, const EntryPolicy& policy) : QLineEdit(parent), policy_(policy) {
  setAlignment(Qt::AlignRight);
  moment_.setSingleShot(true);
  moment_.setInterval(policy_.shown_for);
  connect(this, &QLineEdit::returnPressed, this, &EntryBox::TakeUp);
  connect(&moment_, &QTimer::timeout, this, &EntryBox::Confirm);
  connect(this, &QLineEdit::textEdited, this, [this] { setMaxLength(length_); });
}

void EntryBox::SetLength(int length) {
  length_ = length;
  setMaxLength(length);
}

void EntryBox::ComeBackTo(std::function<QString()> text) { come_back_to_ = std::move(text); }

void EntryBox::ShowText(const QString& text) {
  Put(text);
  shown_ = text;
}

// The operator has come into a box that opens empty to type a whole entry, so the next key begins another,
// even if the text that comes back is the one that stands.
void EntryBox::Restore() {
  Put(come_back_to_ ? come_back_to_() : shown_);
  if (policy_.opens_empty && hasFocus()) {
    selectAll();
  }
}

void EntryBox::Refuse(const QString& why) { SetGround(kRefused, why); }

void EntryBox::Accept() { SetGround({}, {}); }

// Puts a text into the box whatever the operator is typing there. If the box has the focus, the next key
// replaces the text. A text that stands already is left as it is, with its cursor and selection, because the
// machine sends the same values over and over.
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

void EntryBox::TakeUp() {
  entry_ = text();
  if (policy_.shown_for.count() > 0) {
    SetGround(kTakenUp, {});
    moment_.start();
  } else {
    Confirm();
  }
}

// The text is selected before anybody is told of it, because the box may be deleted by whoever is told. An
// operator who has typed on meanwhile, or has left, is not disturbed.
void EntryBox::Confirm() {
  if (policy_.typed_over && hasFocus() && text() == entry_) {
    selectAll();
  }
  emit Confirmed(entry_);
}

// The ink on a coloured ground is black, which can be read on green and red in a dark palette too.
void EntryBox::SetGround(const QColor& ground, const QString& tip) {
  QPalette colours;
  if (ground.isValid()) {
    colours.setColor(QPalette::Base, ground);
    colours.setColor(QPalette::Text, Qt::black);
  }
  setPalette(colours);
  setToolTip(tip);
  setAccessibleDescription(tip);
}

void EntryBox::focusInEvent(QFocusEvent* event) {
  if (policy_.opens_empty && event->reason() != Qt::PopupFocusReason) {
    setPlaceholderText(text() + QChar::Nbsp);  // the blank keeps the cursor off the last digit
    clear();
    setMaxLength(length_);
  }
  QLineEdit::focusInEvent(event);
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
  const bool stays_in_front = isActiveWindow();
  if (event->reason() != Qt::PopupFocusReason && (stays_in_front || policy_.left_with_its_window)) {
    if (policy_.leaving_confirms) {
      emit Confirmed(text());
    } else {
      Restore();
    }
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
