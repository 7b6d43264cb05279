// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/stops.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "store/failure.h"

namespace dosmara {

void LetStopsFailOneTest() {
  SetStopHandler([](std::string_view reason) {
    if (testing::internal::InDeathTestChild()) {
      return;
    }
    ADD_FAILURE() << "the program would have stopped: " << reason;
    throw std::logic_error("stopped: " + std::string(reason));
  });
}

}  // namespace dosmara
