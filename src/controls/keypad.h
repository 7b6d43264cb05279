// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's selection keypad, drawn.
#pragma once

#include <QAbstractButton>
#include <QRect>

#include "controls/pad.h"
#include "controls/selection_number.h"

namespace dosmara {

// Where key `index` lies on a keypad of `size`: four keys a row, 1 to 16 above a gap and 21 to 26 below it,
// the last row of two keys centred.
QRect KeyRect(QSize size, int index);

// One key: a number on a round cap, lit while its selection is shown, which is its `checked` property. A
// press does not light it.
class KeypadKey : public QAbstractButton {
  Q_OBJECT

 public:
  KeypadKey(QWidget* parent, int index);

 protected:
  void nextCheckState() override {}
  void paintEvent(QPaintEvent* event) override;

 private:
  int index_;
};

// The panel with its 22 keys. Tab enters it on the lit key.
class Keypad : public Pad {
  Q_OBJECT

 public:
  explicit Keypad(QWidget* parent);

  KeypadKey& Key(int index) { return *keys_[index]; }

  // Lights the key of the selection that is shown; -1 lights none.
  void SetSelection(int index);

  QSize sizeHint() const override;

 signals:
  // Key `index` has been pressed.
  void Pressed(int index);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  KeypadKey* keys_[kSelections];
};

}  // namespace dosmara
