// SPDX-License-Identifier: GPL-3.0-or-later
// A programming error fails one test and lets the others run.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "store/failure.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

TEST(Stops, FailTheTestAndEndIt) {
  bool went_on = false;
  const auto stop = [&] {
    NodeIndex = 0;
    ParamPut(0, 1);
    went_on = true;
  };
  EXPECT_NONFATAL_FAILURE(EXPECT_THROW(stop(), std::logic_error),
                          "would have stopped: ParamPut: no such record (record 0 of node 0)");
  EXPECT_FALSE(went_on);
}

TEST(Stops, FailTheTestWhereAllThatIsThrownIsCaughtToo) {
  const auto stop = [] {
    try {
      StopProgram("wheels came off");
    } catch (...) {
    }
  };
  EXPECT_NONFATAL_FAILURE(stop(), "would have stopped: wheels came off");
}

}  // namespace
}  // namespace dosmara
