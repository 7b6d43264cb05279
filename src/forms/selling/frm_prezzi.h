// SPDX-License-Identifier: GPL-3.0-or-later
// Prices: the price list of the machine.
#pragma once

#include "fields/data_form.h"

namespace dosmara {

// Fifty numbered prices, which selections and positions point at by their number, and a switch that makes
// everything sell at the first one.
class FrmPrezzi : public DataForm {
 public:
  FrmPrezzi();

 private:
  bool IsReady() const override;
  void AfterArrival() override;
  BitRows& NewSwitches();

  // In the order in which Tab goes through them: the switch stands at the top.
  Money money_;
  BitRows& all_at_price_1_;
  FieldRows& prices_;
};

}  // namespace dosmara
