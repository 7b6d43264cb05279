// SPDX-License-Identifier: GPL-3.0-or-later
// The temperature of a Zeth unit's tank as its board sends it.
#pragma once

namespace dosmara {

// Degrees from the unit's temperature offset and the raw temperature, in 1/256 of a degree. From 128 on the
// degrees are those below zero.
constexpr double TankTemperature(int offset, double raw) {
  const double degrees = offset + raw / 256;
  return degrees >= 128 ? degrees - 256 : degrees;
}

}  // namespace dosmara
