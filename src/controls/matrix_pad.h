// SPDX-License-Identifier: GPL-3.0-or-later
// Panels of many switches.
#pragma once

#include <QGridLayout>
#include <vector>

#include "controls/led_switch.h"
#include "controls/pad.h"

namespace dosmara {

// A panel of switches, which are its children. Its owner lays them out, with captions or without; the arrow
// keys go by where they lie.
class SwitchPad : public Pad {
  Q_OBJECT

 public:
  SwitchPad(QWidget* parent, int count);

  int Count() const { return static_cast<int>(switches_.size()); }
  LedSwitch& Switch(int index) { return *switches_[index]; }

 signals:
  // The operator wishes switch `index` on or off.
  void Wished(int index, bool on);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<LedSwitch*> switches_;
};

// Switches in rows and columns, counted row by row, with the numbers of the rows and columns, from 1, at the
// left and the top.
class MatrixPad : public SwitchPad {
  Q_OBJECT

 public:
  MatrixPad(QWidget* parent, int rows, int columns);

  // Places a caption below a switch. The caption becomes a child of the pad.
  void PlaceBelow(int index, QWidget* caption);

 private:
  int columns_;
  QGridLayout* grid_;
};

}  // namespace dosmara
