// SPDX-License-Identifier: GPL-3.0-or-later
// Each programming error that stops the program.
#include <gtest/gtest.h>

#include <limits>

#include "store/failure.h"
#include "store/parameter_table.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class ParameterTableDeathTest : public ::testing::Test {
 protected:
  ParameterTableDeathTest() {
    ResetCore();
    NodeIndex = 2;
  }
};

const auto kStops = ::testing::ExitedWithCode(70);

TEST_F(ParameterTableDeathTest, StopProgramSaysTheReasonAndHasItsOwnExitCode) {
  EXPECT_EXIT(StopProgram("wheels came off"), kStops, "wheels came off");
}

TEST_F(ParameterTableDeathTest, SubscribingToIndexZeroStops) {
  EXPECT_EXIT(ParamSubscribe(0), kStops, "ParamSubscribe: no such record \\(record 0 of node 2\\)");
}

TEST_F(ParameterTableDeathTest, SubscribingBeyondTheTableStops) {
  EXPECT_EXIT(ParamSubscribe(33001), kStops, "ParamSubscribe");
  EXPECT_EXIT(ParamSubscribe(-1), kStops, "ParamSubscribe");
}

TEST_F(ParameterTableDeathTest, The256thSubscriberStops) {
  ParamTable[2][7].Subscribers = 255;
  EXPECT_EXIT(ParamSubscribe(7), kStops, "ParamSubscribe: more subscribers");
}

TEST_F(ParameterTableDeathTest, PuttingToIndexZeroStops) {
  EXPECT_EXIT(ParamPut(0, 1), kStops, "ParamPut: no such record");
  NodePresent[2] = false;
  EXPECT_EXIT(ParamPut(0, 1), kStops, "ParamPut: no such record");
}

TEST_F(ParameterTableDeathTest, PuttingBeyondTheTableStops) {
  EXPECT_EXIT(ParamPut(33001, 1), kStops, "ParamPut");
  EXPECT_EXIT(ParamPut(-1, 1), kStops, "ParamPut: no such record");
}

TEST_F(ParameterTableDeathTest, PuttingAValueThatDoesNotFitStops) {
  EXPECT_EXIT(ParamPut(7, -1), kStops, "ParamPut: value");
  EXPECT_EXIT(ParamPut(7, 2147483648.0), kStops, "ParamPut: value");
  EXPECT_EXIT(ParamPut(7, 2147483647.5), kStops, "ParamPut: value");
  EXPECT_EXIT(ParamPut(7, std::numeric_limits<double>::quiet_NaN()), kStops, "ParamPut: value");
}

TEST_F(ParameterTableDeathTest, UnsubscribingBeyondTheTableStops) {
  EXPECT_EXIT(ParamUnsubscribe(33001), kStops, "ParamUnsubscribe");
  EXPECT_EXIT(ParamUnsubscribe(-1), kStops, "ParamUnsubscribe: no such record");
}

TEST_F(ParameterTableDeathTest, ReadingBeyondTheTableStops) {
  EXPECT_EXIT(ParamGet(33001, 0), kStops, "ParamGet");
  EXPECT_EXIT(ParamGet(-1, 0), kStops, "ParamGet: no such record");
  EXPECT_EXIT(ParamGet(1, 4), kStops, "ParamGet: no such node");
  EXPECT_EXIT(ParamGet(1, -1), kStops, "ParamGet: no such node");
  EXPECT_EXIT(ParamIsFresh(-1, 0), kStops, "ParamIsFresh");
  EXPECT_EXIT(ParamIsFresh(33001, 0), kStops, "ParamIsFresh");
  EXPECT_EXIT(ParamIsFresh(1, 4), kStops, "ParamIsFresh: no such node");
}

TEST_F(ParameterTableDeathTest, ACurrentNodeThatIsNoneStops) {
  NodeIndex = 4;
  EXPECT_EXIT(ParamSubscribe(1), kStops, "ParamSubscribe: no such node");
  EXPECT_EXIT(ParamUnsubscribe(1), kStops, "ParamUnsubscribe: no such node");
  EXPECT_EXIT(ParamPut(1, 1), kStops, "ParamPut: no such node");
  NodeIndex = 255;
  EXPECT_EXIT(ParamSubscribe(1), kStops, "ParamSubscribe: no such node");
}

}  // namespace
}  // namespace dosmara
