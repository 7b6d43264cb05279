// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/tank_temperature.h"

#include <gtest/gtest.h>

namespace dosmara {
namespace {

TEST(TankTemperature, IsTheOffsetAndTheRawTemperatureInSteps) {
  EXPECT_EQ(TankTemperature(0, 0), 0);
  EXPECT_EQ(TankTemperature(0, 1200), 4.6875);
  EXPECT_EQ(TankTemperature(5, 1200), 9.6875);
  EXPECT_EQ(TankTemperature(-5, 1280), 0);
  EXPECT_EQ(TankTemperature(-5, 0), -5);
}

TEST(TankTemperature, FallsBelowZeroFrom128On) {
  EXPECT_EQ(TankTemperature(0, 32767), 127.99609375);
  EXPECT_EQ(TankTemperature(0, 32768), -128);
  EXPECT_EQ(TankTemperature(1, 32512), -128);
  EXPECT_EQ(TankTemperature(0, 65535), -0.00390625);
  EXPECT_EQ(TankTemperature(-5, 65280), -6);
}

TEST(TankTemperature, TheOffsetIsInItBeforeTheSignIsFound) {
  EXPECT_EQ(TankTemperature(2, 32256), -128);
  EXPECT_EQ(TankTemperature(-5, 32768), 123);
}

}  // namespace
}  // namespace dosmara
