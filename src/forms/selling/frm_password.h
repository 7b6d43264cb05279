// SPDX-License-Identifier: GPL-3.0-or-later
// Machine codes: what the machine asks of whoever works at its keypad.
#pragma once

#include "fields/data_form.h"

namespace dosmara {

// The three codes of the main board, open from the start. The tool compares nothing with them and grants
// nothing by them.
class FrmPassword : public DataForm {
 public:
  FrmPassword();
};

}  // namespace dosmara
