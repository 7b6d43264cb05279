// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/settings.h"

#include "machine_fixture.h"

namespace machine {
namespace {

class SettingsTest : public MachineTest {};

TEST_F(SettingsTest, TheDecimalsInUseFollowTheDecimalsWanted) {
  for (const std::uint8_t decimals : {3, 0, 1, 2}) {
    Write(76, decimals);
    EXPECT_EQ(Get(0, 311), decimals);
  }
}

TEST_F(SettingsTest, TheOtherBitsOfTheDecimalsInUseStay) {
  Set(0, 311, 0xF4);
  Write(76, 0xFB);
  EXPECT_EQ(Get(0, 311), 0xF7u);
}

TEST_F(SettingsTest, DecimalsSetByHandCountAsWell) {
  machine_.Set(0, 76, 3);
  EXPECT_EQ(Get(0, 311), 3u);
}

TEST_F(SettingsTest, WritesToOtherRecordsLeaveTheDecimalsAlone) {
  machine_.Write(0, 76, 2);
  machine_.Set(0, 311, 1);
  machine_.Write(0, 77, 3);
  machine_.Write(1, 76, 3);
  EXPECT_EQ(Get(0, 311), 1u);
}

TEST_F(SettingsTest, TheMirrorOfTheDecimalsChangesNothing) {
  Write(278, 3);
  EXPECT_EQ(Get(0, 311), 0u);
}

TEST_F(SettingsTest, AMirrorHoldsOnlyWhatIsWrittenToIt) {
  struct {
    int node, record, mirror;
  } const pairs[] = {{0, 1, 203},  {0, 79, 281},  {0, 106, 308}, {0, 361, 362}, {1, 24, 502},
                     {1, 50, 528}, {1, 553, 557}, {1, 589, 593}, {2, 51, 266},  {3, 309, 327}};
  for (const auto& pair : pairs) {
    machine_.Write(pair.node, pair.record, 7);
    EXPECT_EQ(Get(pair.node, pair.record), 7u);
    EXPECT_EQ(Get(pair.node, pair.mirror), 0u) << pair.node << " " << pair.mirror;
    machine_.Write(pair.node, pair.mirror, 9);
    EXPECT_EQ(Get(pair.node, pair.mirror), 9u);
    EXPECT_EQ(Get(pair.node, pair.record), 7u) << pair.node << " " << pair.record;
  }
}

}  // namespace
}  // namespace machine
