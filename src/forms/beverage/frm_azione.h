// SPDX-License-Identifier: GPL-3.0-or-later
// Preventive actions: after how many uses the machine calls for maintenance of a wearing part.
#pragma once

#include "shell/data_form.h"

namespace dosmara {

// Seven counts of the second board. What a count counts is up to the machine.
class FrmAzione : public DataForm {
 public:
  FrmAzione();

  void Load() override;
  void InitMessaggi() override;
  void Unload() override;

 private:
  void InitDati();
  void SetLumenoEnabled(bool enabled);
  void Loaded() override { SetLumenoEnabled(Presenza1.Open()); }

  Gate Presenza1;
  FieldRows rows_;
};

}  // namespace dosmara
