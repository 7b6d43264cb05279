// SPDX-License-Identifier: GPL-3.0-or-later
// The box into which a value is typed.
#pragma once

#include <QLineEdit>

namespace dosmara {

// A box that lies over a shown value. On focus it keeps its text and empties itself, the old value
// showing faintly; when it is left, or at Escape, the kept text comes back, so that an entry which nobody
// confirmed leaves no trace. Only Enter confirms.
class EntryBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit EntryBox(QWidget* parent);

  // Sets how many characters can be typed. A text that is put into the box may be longer.
  void SetLength(int length);

  // Shows a text that has come from the machine; it is also the text to come back to.
  void ShowText(const QString& text);

  // Brings the kept text back.
  void Restore();

  // Puts a text into the box, without keeping it.
  void Put(const QString& text);

 signals:
  // Enter has been pressed on this text.
  void Confirmed(const QString& text);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int length_ = 0;
  QString saved_text_;
};

}  // namespace dosmara
