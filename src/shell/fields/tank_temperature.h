// SPDX-License-Identifier: GPL-3.0-or-later
// How the units report the temperature of their tanks.
#pragma once

namespace dosmara {

// Degrees from the raw value of a unit, 256 to the degree, and its offset in degrees. The machine has no
// sign: from 128 degrees on it means those below zero, 255 being -1.
constexpr double TankTemperature(int offset, double raw) {
  const double degrees = offset + raw / 256;
  return degrees >= 128 ? degrees - 256 : degrees;
}

}  // namespace dosmara
