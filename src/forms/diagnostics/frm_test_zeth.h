// SPDX-License-Identifier: GPL-3.0-or-later
// Peripheral test: one product of a Zeth unit, chosen on its keypad, and its motors to zero.
#pragma once

#include "shell/form.h"

namespace dosmara {

// FrmTestZeth for node kZeth, FrmTestZeth2 for kZeth2. They are one window, made twice.
Form* NewPeripheralTest(int node);

}  // namespace dosmara
