// SPDX-License-Identifier: GPL-3.0-or-later
// Programming errors in a program of many tests.
#pragma once

namespace dosmara {

// From now on StopProgram fails the test that runs, even where somebody catches all that is thrown, and ends
// that test alone. In the processes of death tests it ends the process, as in the tool. Called by the mains.
void LetStopsFailOneTest();

}  // namespace dosmara
