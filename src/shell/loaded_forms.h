// SPDX-License-Identifier: GPL-3.0-or-later
// The loaded forms as the shell sees them: found by name, brought forward, closed.
#pragma once

#include <QString>

#include "shell/form.h"

namespace dosmara {

// Name of a loaded form in upper case: "MDIFORM1", "FRMSER", "FRMDOSI".
QString UpperName(const LoadedForm& form);

// The loaded child form called `name`, without regard to case; null when it is not loaded.
Form* FindForm(const QString& name);

// Unloads all forms but the main window and FrmSer. Starts again after each unload, since an unload changes
// the list, and ends when a full walk has unloaded nothing.
void UnloadDataForms();

}  // namespace dosmara
