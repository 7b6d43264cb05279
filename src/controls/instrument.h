// SPDX-License-Identifier: GPL-3.0-or-later
// What lamps, displays and the thermometer have in common.
#pragma once

#include <QWidget>

namespace dosmara {

// A widget of fixed size that only shows a value. A screen reader passes over plain widgets, so it is given
// an instrument as a text: its name is the accessible name, its value the accessible description.
class Instrument : public QWidget {
  Q_OBJECT

 protected:
  explicit Instrument(QWidget* parent);
};

}  // namespace dosmara
