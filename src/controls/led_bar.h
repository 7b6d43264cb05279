// SPDX-License-Identifier: GPL-3.0-or-later
// A row of lamps that fills.
#pragma once

#include <QRect>

#include "controls/instrument.h"

namespace dosmara {

inline constexpr int kLedBarLamps = 20;

// Where lamp `index` of a bar of `size` lies.
QRect LedBarLamp(QSize size, int index);

// A bar of lamps of which as many are lit, from the left, as its position says: 0 to 20.
class LedBar : public Instrument {
  Q_OBJECT
  Q_PROPERTY(int position READ Position WRITE SetPosition)

 public:
  explicit LedBar(QWidget* parent);

  int Position() const { return position_; }
  // Takes a position. One that is not 0 to 20 is ignored.
  void SetPosition(int position);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Describe();

  int position_ = 0;
};

}  // namespace dosmara
