// SPDX-License-Identifier: GPL-3.0-or-later
// The child forms that the menus open.
#pragma once

#include <span>

#include "shell/form.h"

namespace dosmara {

// Every form, by the name that the menu table calls it.
std::span<const FormEntry> FormList();

}  // namespace dosmara
