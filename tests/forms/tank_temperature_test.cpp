// SPDX-License-Identifier: GPL-3.0-or-later
// The temperature of a tank from what its unit sends.
#include "shell/fields/tank_temperature.h"

#include <gtest/gtest.h>

namespace dosmara {
namespace {

TEST(TankTemperature, Is256ToTheDegreeAboveTheOffset) {
  EXPECT_EQ(TankTemperature(0, 0), 0);
  EXPECT_EQ(TankTemperature(0, 1408), 5.5);
  EXPECT_EQ(TankTemperature(3, 1408), 8.5);
  EXPECT_EQ(TankTemperature(-5, 256), -4);
}

TEST(TankTemperature, IsBelowZeroFrom128DegreesOn) {
  EXPECT_EQ(TankTemperature(0, 32767), 127.99609375);
  EXPECT_EQ(TankTemperature(0, 32768), -128);
  EXPECT_EQ(TankTemperature(0, 65280), -1);
  EXPECT_EQ(TankTemperature(0, 65535), -0.00390625);
}

TEST(TankTemperature, TheOffsetIsInItBeforeTheSignIsFound) {
  EXPECT_EQ(TankTemperature(2, 32256), -128);
  EXPECT_EQ(TankTemperature(-5, 32768), 123);
}

TEST(TankTemperature, CanBeWorkedOutByTheCompiler) { static_assert(TankTemperature(1, 512) == 3); }

}  // namespace
}  // namespace dosmara
