// SPDX-License-Identifier: GPL-3.0-or-later
// What the program looks like and calls itself, the same for the tool and for the tour of its windows.
#pragma once

namespace dosmara {

// Gives the running QApplication the program's title, version, style and icon. Called once, right after the
// QApplication has been made.
void DressApplication();

}  // namespace dosmara
