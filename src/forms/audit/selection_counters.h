// SPDX-License-Identifier: GPL-3.0-or-later
// How often each selection and each position has been sold, given away, or dispensed as a test.
#pragma once

#include "shell/form.h"

namespace dosmara {

// What a vend was: each has a window of its own.
enum class SoldAs { kPaid, kFree, kTest };

// FrmBattute, FrmGratis or FrmProva. They only read.
Form* NewSelectionCounters(SoldAs sold_as);

}  // namespace dosmara
