// SPDX-License-Identifier: GPL-3.0-or-later
// How often this process has asked for memory. A program that asks links an operator new that counts.
#pragma once

#include <cstddef>

namespace dosmara {

// Calls of operator new so far.
std::size_t Allocations();

}  // namespace dosmara
