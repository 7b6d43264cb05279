// SPDX-License-Identifier: GPL-3.0-or-later
// How the rows of the price windows look and behave.
#pragma once

#include "fields/field_row.h"

namespace dosmara {

// A row is held from a good entry until the machine has answered, and grey while its window is locked.
// `first` is the index of the first row in the arrays; the boxes of some rows are an array of their own.
constexpr RowStyle HeldRows(int first = 0, ControlArray box = {"Text1"}) {
  return {.caption = {"Label11", first},
          .value = {"Label1", first},
          .box = box,
          .bar = {"HScroll1", first},
          .held = true,
          .closed_box_stays = true};
}

}  // namespace dosmara
