// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting for a condition, never for a time.
#pragma once

#include <functional>

namespace dosmara {

// How long a healthy machine or process may take for one answer.
inline constexpr int kPatienceMs = 5000;

// Delivers events until `condition` holds. Returns false when it does not hold within `deadline_ms`.
bool WaitUntil(const std::function<bool()>& condition, int deadline_ms);

}  // namespace dosmara
