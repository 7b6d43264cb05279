// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/alarms.h"

#include <vector>

#include "machine_fixture.h"

namespace machine {
namespace {

class AlarmsTest : public MachineTest {
 protected:
  AlarmsTest() {
    Set(0, 317, 4);
    machine_.alarms().Clear();
  }

  // Minute, hour, day, month, year, code of an entry.
  std::vector<std::uint32_t> Entry(int entry) {
    std::vector<std::uint32_t> fields;
    for (int field = 0; field < 6; ++field) {
      fields.push_back(Get(0, 142 + 6 * entry + field));
    }
    return fields;
  }
};

TEST_F(AlarmsTest, AnEmptyRingPointsToAnEmptyEntry) {
  EXPECT_EQ(Get(0, 86), 0u);
  for (int entry = 0; entry < 10; ++entry) {
    EXPECT_GT(Entry(entry)[5], 203u) << entry;
  }
}

TEST_F(AlarmsTest, AnEntryHoldsTimeDateAndCode) {
  const int clock[] = {320, 321, 322, 323, 324};
  for (int i = 0; i < 5; ++i) {
    Set(0, clock[i], static_cast<std::uint32_t>(11 + i));
  }
  machine_.alarms().Raise(7u);
  EXPECT_EQ(Get(0, 86), 0u);
  EXPECT_EQ(Entry(0), (std::vector<std::uint32_t>{11, 12, 13, 14, 15, 7}));
}

TEST_F(AlarmsTest, TheEleventhAlarmTakesThePlaceOfTheFirst) {
  for (std::uint32_t code = 1; code <= 10; ++code) {
    machine_.alarms().Raise(code);
  }
  EXPECT_EQ(Get(0, 86), 9u);
  machine_.alarms().Raise(11u);
  EXPECT_EQ(Get(0, 86), 0u);
  EXPECT_EQ(Entry(0)[5], 11u);
  EXPECT_EQ(Entry(1)[5], 2u);
  EXPECT_EQ(Entry(9)[5], 10u);
}

TEST_F(AlarmsTest, TheHighestCodeIsAnAlarmLikeAnyOther) {
  machine_.alarms().Raise(203u);
  machine_.alarms().Raise(5u);
  EXPECT_EQ(Entry(0)[5], 203u);
  EXPECT_EQ(Entry(1)[5], 5u);
}

TEST_F(AlarmsTest, AClearedRingBeginsAnew) {
  for (std::uint32_t code = 1; code <= 4; ++code) {
    machine_.alarms().Raise(code);
  }
  machine_.alarms().Clear();
  EXPECT_EQ(Get(0, 86), 0u);
  machine_.alarms().Raise(9u);
  EXPECT_EQ(Entry(0)[5], 9u);
  EXPECT_EQ(Entry(1), (std::vector<std::uint32_t>{0, 0, 0, 0, 0, 255}));
}

TEST_F(AlarmsTest, WithoutAClockThereIsNoDate) {
  Set(0, 322, 13);
  machine_.calendar().SetFitted(false);
  machine_.alarms().Raise(3u);
  EXPECT_EQ(Entry(0), (std::vector<std::uint32_t>{0, 0, 0, 0, 0, 3}));
}

TEST_F(AlarmsTest, ABoardTakenAwayIsLoggedOnce) {
  for (const int node : {1, 2, 3}) {
    machine_.SetPresent(node, false);
    machine_.SetPresent(node, false);
  }
  EXPECT_EQ(Get(0, 86), 2u);
  EXPECT_EQ(Entry(0)[5], 19u);
  EXPECT_EQ(Entry(1)[5], 20u);
  EXPECT_EQ(Entry(2)[5], 21u);
  machine_.SetPresent(2, true);
  EXPECT_EQ(Get(0, 86), 2u);
}

}  // namespace
}  // namespace machine
