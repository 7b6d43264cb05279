// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/parameter_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/link_fixture.h"

namespace dosmara {
namespace {

class ParameterTable : public ::testing::Test {
 protected:
  ParameterTable() { ResetCore(); }
  static ParamRec& At(int index) { return ParamTable[1][index]; }
  static std::vector<int> ValueBytes(int index) {
    return {std::begin(At(index).Value), std::end(At(index).Value)};
  }
  // Subscribes to a record of node 1.
  static void Subscribe(int index) {
    NodeIndex = 1;
    ParamSubscribe(index);
  }
  static void Unsubscribe(int index) {
    NodeIndex = 1;
    ParamUnsubscribe(index);
  }
  static void Put(int index, double value) {
    NodeIndex = 1;
    ParamPut(index, value);
  }
};

TEST_F(ParameterTable, HasFourNodesOf33001RecordsOf23Bytes) {
  EXPECT_EQ(sizeof(ParamTable), 4U * 33001U * 23U);
}

TEST_F(ParameterTable, SubscribingMakesTheRecordDueAndWanted) {
  Subscribe(311);
  EXPECT_EQ(At(311).Subscribers, 1);
  EXPECT_EQ(At(311).Flags, 6);
  EXPECT_EQ(ParamTable[0][311].Flags, 0);
}

TEST_F(ParameterTable, SubscribingKeepsTheOtherFlags) {
  At(5).Flags = 1 | 8 | 16 | 32 | 64 | 128;
  Subscribe(5);
  EXPECT_EQ(At(5).Flags, 255);
}

TEST_F(ParameterTable, SubscribingToTheLastRecordWorks) {
  Subscribe(33000);
  EXPECT_EQ(At(33000).Flags, 6);
}

TEST_F(ParameterTable, SubscribingToTheFirstRecordWorks) {
  Subscribe(1);
  EXPECT_EQ(At(1).Flags, 6);
  Put(1, 5);
  EXPECT_EQ(At(1).Flags, 134);
}

TEST_F(ParameterTable, RecordZeroMayBeUnsubscribedAndReadThoughNothingFillsIt) {
  Unsubscribe(0);
  EXPECT_EQ(At(0).Subscribers, 0);
  EXPECT_EQ(ParamGet(0, 1), 0);
  EXPECT_FALSE(ParamIsFresh(0, 1));
}

TEST_F(ParameterTable, TheLastNodeIsOneLikeTheOthers) {
  NodeIndex = 3;
  ParamPut(33000, 7);
  EXPECT_EQ(ParamGet(33000, 3), 7);
}

TEST_F(ParameterTable, ARecordCounts255Subscribers) {
  for (int i = 0; i < 255; ++i) {
    Subscribe(7);
  }
  EXPECT_EQ(At(7).Subscribers, 255);
}

TEST_F(ParameterTable, AnAbsentNodeIgnoresSubscriptions) {
  NodePresent[1] = false;
  Subscribe(9);
  Subscribe(0);
  EXPECT_EQ(At(9).Subscribers, 0);
  EXPECT_EQ(At(9).Flags, 0);
  At(9).Subscribers = 1;
  At(9).Flags = 7;
  Unsubscribe(9);
  EXPECT_EQ(At(9).Subscribers, 1);
  EXPECT_EQ(At(9).Flags, 7);
}

TEST_F(ParameterTable, TheFirstOfTwoFormsToCloseOnlyLowersTheCount) {
  Subscribe(20);
  Subscribe(20);
  At(20).Flags = 7;
  At(20).Period = 0x35;
  Unsubscribe(20);
  EXPECT_EQ(At(20).Subscribers, 1);
  EXPECT_EQ(At(20).Flags, 7);
  EXPECT_EQ(At(20).Period, 0x35);
}

TEST_F(ParameterTable, TheLastUnsubscribeClearsThreeFlagsAndTheCountdown) {
  Subscribe(20);
  At(20).Flags = 255;
  At(20).Period = 0x35;
  Unsubscribe(20);
  EXPECT_EQ(At(20).Subscribers, 0);
  EXPECT_EQ(At(20).Flags, 248);
  EXPECT_EQ(At(20).Period, 0x05);
}

TEST_F(ParameterTable, AnUnmatchedUnsubscribeIsHarmlessAsPrescribed) {
  At(20).Flags = 7;
  At(20).Period = 0x35;
  Unsubscribe(20);
  EXPECT_EQ(At(20).Subscribers, 0);
  EXPECT_EQ(At(20).Flags, 7);
  EXPECT_EQ(At(20).Period, 0x35);
}

TEST_F(ParameterTable, PuttingStoresFourBytesLeastSignificantFirst) {
  At(30).Control = 1;
  Put(30, 1000);
  EXPECT_EQ(ValueBytes(30), (std::vector<int>{232, 3, 0, 0}));
  EXPECT_EQ(ParamGet(30, 1), 1000);
}

TEST_F(ParameterTable, PuttingTakesTheLargestValue) {
  At(30).Control = 3;
  Put(30, 2147483647);
  EXPECT_EQ(ValueBytes(30), (std::vector<int>{255, 255, 255, 127}));
  EXPECT_EQ(ParamGet(30, 1), 2147483647);
}

TEST_F(ParameterTable, PuttingTakesZeroAndEachByteBorder) {
  At(30).Control = 3;
  for (const double value : {0.0, 255.0, 256.0, 65535.0, 65536.0, 16777215.0, 16777216.0}) {
    Put(30, value);
    EXPECT_EQ(ParamGet(30, 1), value);
  }
}

TEST_F(ParameterTable, PuttingAValueComputedFromTenthsStoresTheWholeNumberMeant) {
  const double tenths = 2.3;
  Put(30, tenths * 100 / 10);
  EXPECT_EQ(At(30).Value[0], 23);
  Put(30, 28.999999999999996);
  EXPECT_EQ(At(30).Value[0], 29);
}

TEST_F(ParameterTable, PuttingMarksTheRecordForWritingAndNoLongerFresh) {
  At(30).Flags = 1;
  EXPECT_TRUE(ParamIsFresh(30, 1));
  Put(30, 5);
  EXPECT_EQ(At(30).Flags, 134);
  EXPECT_FALSE(ParamIsFresh(30, 1));
  EXPECT_EQ(At(30).Subscribers, 0);
}

TEST_F(ParameterTable, PuttingKeepsTheOtherFlags) {
  At(30).Flags = 1 | 8 | 16 | 32 | 64;
  Put(30, 5);
  EXPECT_EQ(At(30).Flags, 254);
}

TEST_F(ParameterTable, PuttingOnAnAbsentNodeStoresTheValueAsPrescribed) {
  NodePresent[1] = false;
  Put(30, 77);
  EXPECT_EQ(At(30).Value[0], 77);
  EXPECT_EQ(At(30).Flags, 134);
}

TEST_F(ParameterTable, AWriteUnsubscribedBeforeItLeavesStaysPendingAsPrescribed) {
  Subscribe(30);
  Put(30, 5);
  Unsubscribe(30);
  EXPECT_EQ(At(30).Flags, 128);
  Subscribe(30);
  EXPECT_EQ(At(30).Flags, 134);
}

TEST_F(ParameterTable, GettingReadsTheRecordsOwnLength) {
  ParamRec& record = At(40);
  record.Value[0] = 0x11;
  record.Value[1] = 0x22;
  record.Value[2] = 0x33;
  record.Value[3] = 0x44;
  record.Control = 0x70;
  EXPECT_EQ(ParamGet(40, 1), 0x11);
  record.Control = 0x71;
  EXPECT_EQ(ParamGet(40, 1), 0x2211);
  record.Control = 0x72;
  EXPECT_EQ(ParamGet(40, 1), 0x332211);
  record.Control = 0x73;
  EXPECT_EQ(ParamGet(40, 1), 0x44332211);
}

TEST_F(ParameterTable, GettingALongRecordReadsOnIntoTheBlanks) {
  ParamRec& record = At(40);
  std::ranges::fill(record.Padding, ' ');
  record.Value[0] = 1;
  record.Control = 4;
  EXPECT_EQ(ParamGet(40, 1), 1 + 32 * 4294967296.0);
  record.Control = 5;
  EXPECT_EQ(ParamGet(40, 1), 1 + 32 * 4294967296.0 + 32 * 1099511627776.0);
}

TEST_F(ParameterTable, GettingSixteenBytesDoesNotOverflow) {
  ParamRec& record = At(40);
  record.Control = 15;
  record.Padding[11] = 255;
  EXPECT_DOUBLE_EQ(ParamGet(40, 1), 255 * 1.329227995784916e36);  // 255 x 2^120
}

TEST_F(ParameterTable, GettingAndFreshnessIgnoreTheCurrentNode) {
  ParamTable[2][50].Value[0] = 9;
  ParamTable[2][50].Flags = 1;
  NodeIndex = 3;
  EXPECT_EQ(ParamGet(50, 2), 9);
  EXPECT_TRUE(ParamIsFresh(50, 2));
  EXPECT_FALSE(ParamIsFresh(50, 3));
  EXPECT_EQ(NodeIndex, 3);
}

TEST_F(ParameterTable, FreshnessIsTheArrivedFlagAlone) {
  At(50).Flags = 254;
  EXPECT_FALSE(ParamIsFresh(50, 1));
  At(50).Flags = 1;
  EXPECT_TRUE(ParamIsFresh(50, 1));
}

}  // namespace
}  // namespace dosmara
