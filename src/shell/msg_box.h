// SPDX-License-Identifier: GPL-3.0-or-later
// The one way to show a message box.
#pragma once

#include <QString>
#include <functional>

#include "link/host.h"

namespace dosmara {

using MsgBoxHandler = std::function<BoxAnswer(const QString& text, const QString& title, BoxStyle style)>;

// Shows a modal box over the active window and returns the button pressed; the timers run on meanwhile.
// Escape and the close button answer Cancel, No or OK.
BoxAnswer MsgBox(const QString& text, const QString& title, BoxStyle style);

// Puts `handler` in place of the box on the screen and returns the one it replaces; an empty handler brings
// the screen back. A test answers boxes through it.
MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler handler);

}  // namespace dosmara
