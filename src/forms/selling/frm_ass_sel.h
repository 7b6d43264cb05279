// SPDX-License-Identifier: GPL-3.0-or-later
// Selection assignment: which price each selection sells at.
#pragma once

#include "fields/data_form.h"

namespace dosmara {

// The number of a price for each of the selections, which the board of the hot drinks holds, and two extra
// prices of the main board.
class FrmAssSel : public DataForm {
 public:
  FrmAssSel();

 private:
  void AfterArrival() override;
  void Loaded() override;
  // Opens the selections where each has a price of its own, else closes them.
  void FollowOptions();
  void CloseAll();

  Money money_;
  Gate by_selection_{.record = GateRecord(kHotDrinks)};
  bool all_at_price_1_ = false;
  FieldRows& selections_;
  FieldRows& extras_;
};

}  // namespace dosmara
