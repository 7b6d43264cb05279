// SPDX-License-Identifier: GPL-3.0-or-later
// The question that several forms ask before they destroy anything.
#pragma once

namespace dosmara {

// Asks in the language of the program whether the machine's data shall be cleared. The box is modal and the
// timers run on meanwhile, so that the form that asks may have closed when this returns. Returns whether the
// answer is Yes.
bool AskToClear();

}  // namespace dosmara
