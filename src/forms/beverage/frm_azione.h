// SPDX-License-Identifier: GPL-3.0-or-later
// Preventive actions: after how many uses the machine calls for maintenance of a wearing part.
#pragma once

#include "fields/data_form.h"

namespace dosmara {

// Seven counts of the second board. What a count counts is up to the machine.
class FrmAzione : public DataForm {
 public:
  FrmAzione();

 private:
  void Loaded() override { FollowBoard(); }
  void FollowBoard() { SetLumenoEnabled(Presenza1.IsOpen()); }
  void SetLumenoEnabled(bool enabled) { rows_.SetEnabled(enabled); }

  Gate Presenza1{.record = GateRecord(kHotDrinks), .counted = Gate::Counted::kChange};
  FieldRows& rows_;
};

}  // namespace dosmara
