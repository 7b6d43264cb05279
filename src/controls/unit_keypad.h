// SPDX-License-Identifier: GPL-3.0-or-later
// The keypad of a unit of products, drawn.
#pragma once

#include <QKeyEvent>
#include <QRect>

#include "controls/key_panel.h"

namespace dosmara {

inline constexpr int kUnitKeys = 9;

// Where key `index` lies on a keypad of `size`: three rows of three, counted row by row from the top left.
QRect UnitKeyRect(QSize size, int index);

// The panel with its keys 1 to 9. While one of them has the focus, the digits of the keyboard press them.
class UnitKeypad : public KeyPanel {
  Q_OBJECT

 public:
  explicit UnitKeypad(QWidget* parent);

  // Opens the keypad for the operator, or closes it.
  void SetOpen(bool open);

  QSize sizeHint() const override;

 protected:
  QRect PlaceOfKey(QSize size, int index) const override { return UnitKeyRect(size, index); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int KeyMeant(const QObject* focused, const QKeyEvent& event);
  void SetAllUp();
};

}  // namespace dosmara
