// SPDX-License-Identifier: GPL-3.0-or-later
// Set assignment: which price each position of a Zeth unit sells at.
#pragma once

#include "shell/form.h"

namespace dosmara {

// FrmAssSet for node kZeth, FrmAssSet2 for kZeth2. They are one window, made twice.
Form* NewSetAssignment(int node);

}  // namespace dosmara
