// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's own time. Nothing in the machine asks a real clock: time passes when Machine::AdvanceTo says
// so, which is what lets an hour of it run in a test within milliseconds.
#pragma once

#include <chrono>

namespace machine {

// Time since the machine was made.
using Time = std::chrono::nanoseconds;

// One character on the wire: 19200 bit/s, a start bit, eight data bits, a stop bit.
inline constexpr Time kCharTime = Time(std::chrono::seconds(1)) * 10 / 19200;

// A pause of this length between two characters ends a frame, complete or not.
inline constexpr Time kSilentTime = 3 * kCharTime;

}  // namespace machine
