// SPDX-License-Identifier: GPL-3.0-or-later
// Who has a serial device: keeps tests that run side by side out of each other's.
#pragma once

#include <string>

namespace dosmara {

// Waits until `device` can be opened. A tool that closes its device in another process gives the device's
// number back to the system a moment before the lock on its name, and a new line may bear that number.
// Throws std::runtime_error when the name stays locked.
void AwaitUnlocked(const std::string& device);

// Whether this process has `device` open, be it one that is gone.
bool IsOpenHere(const std::string& device);

}  // namespace dosmara
