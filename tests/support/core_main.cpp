// SPDX-License-Identifier: GPL-3.0-or-later
// The main of the tests of the core, which need no toolkit.
#include <gtest/gtest.h>

#include "support/stops.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  dosmara::LetStopsFailOneTest();
  return RUN_ALL_TESTS();
}
