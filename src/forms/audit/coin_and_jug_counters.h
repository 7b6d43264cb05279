// SPDX-License-Identifier: GPL-3.0-or-later
// How many coins each channel has taken, and how many jugs of each selection have been sold.
#pragma once

#include "shell/form.h"

namespace dosmara {

// FrmMonete and FrmBricco. They only read.
Form* NewCoinCounters();
Form* NewJugCounters();

}  // namespace dosmara
