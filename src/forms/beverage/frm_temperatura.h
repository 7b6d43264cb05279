// SPDX-License-Identifier: GPL-3.0-or-later
// Temperatures: the boiler, and the cooled tanks of the two Zeth units.
#pragma once

#include "fields/boards_form.h"

namespace dosmara {

// The boiler's set point, and of each tank the temperature, its hysteresis, safety and defrosting. The boards
// lie side by side.
class FrmTemperatura : public BoardsForm {
 public:
  FrmTemperatura();
};

}  // namespace dosmara
