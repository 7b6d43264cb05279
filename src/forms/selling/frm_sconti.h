// SPDX-License-Identifier: GPL-3.0-or-later
// Discounts: what is taken off the prices at certain times, and off a sale without a cup.
#pragma once

#include "fields/data_form.h"

namespace dosmara {

// An amount for each of the first thirty prices, and one for a sale without a cup.
class FrmSconti : public DataForm {
 public:
  FrmSconti();

 private:
  void Loaded() override { discounts_.SetOpen(true); }

  Money money_;
  FieldRows& discounts_;
};

}  // namespace dosmara
