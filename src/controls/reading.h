// SPDX-License-Identifier: GPL-3.0-or-later
// How a screen reader meets an instrument that only shows a value.
#pragma once

namespace dosmara {

// Lets screen readers take lamps, displays and the thermometer for texts, since they pass over plain widgets:
// the name is the accessible name of the instrument, the value its accessible description. Each instrument
// calls it as it is made; more than once is as good as once.
void LetInstrumentsBeRead();

}  // namespace dosmara
