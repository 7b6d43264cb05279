// SPDX-License-Identifier: GPL-3.0-or-later
// The loaded forms as the shell sees them: found by name, brought forward, closed.
#pragma once

#include <QString>

#include "shell/form.h"

namespace dosmara {

// The loaded child form called `name`, without regard to case; null when it is not loaded.
Form* FindForm(const QString& name);

// Unloads all loaded forms; one that refuses to close stays. Starts again after each unload, since an unload
// changes the list, and ends when a full walk has unloaded nothing.
void UnloadDataForms();

}  // namespace dosmara
