// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's selection keypad, drawn.
#pragma once

#include <QRect>

#include "controls/key_panel.h"
#include "controls/selection_number.h"

namespace dosmara {

// Where key `index` lies on a keypad of `size`: four keys a row, 1 to 16 above a gap and 21 to 26 below it,
// the last row of two keys centred.
QRect KeyRect(QSize size, int index);

// The panel with its 22 keys. The key of the selection that is shown is lit, and Tab enters on it.
class Keypad : public KeyPanel {
  Q_OBJECT

 public:
  explicit Keypad(QWidget* parent);

  // Lights the key of the selection that is shown; -1 lights none.
  void SetSelection(int index);

  QSize sizeHint() const override;

 protected:
  QRect PlaceOfKey(QSize size, int index) const override { return KeyRect(size, index); }
};

}  // namespace dosmara
