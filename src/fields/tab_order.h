// SPDX-License-Identifier: GPL-3.0-or-later
// The way of the focus through a form.
#pragma once

#include <QWidget>

namespace dosmara {

// Lets Tab go through the controls of a widget in the order in which its layout, and the layouts in that, got
// them. Call it when all are laid out.
void TabAsLaidOut(QWidget& body);

}  // namespace dosmara
