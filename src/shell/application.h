// SPDX-License-Identifier: GPL-3.0-or-later
// What the program looks like and calls itself, the same for the tool and for the tour of its windows.
#pragma once

#include <QPalette>

namespace dosmara {

// The palette with disabled texts that can be read: a closed form must still tell its values and a greyed
// menu its entries, and the style's own disabled text is too faint for that.
QPalette ReadablePalette(QPalette palette);

// Gives the running QApplication the program's title, version, style and icon. Called once, right after the
// QApplication has been made.
void DressApplication();

}  // namespace dosmara
