// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/calendar.h"

#include <vector>

#include "machine_fixture.h"

namespace machine {
namespace {

class CalendarTest : public MachineTest {
 protected:
  CalendarTest() { Set(0, 317, 4); }

  // Day, month, year, hour, minute.
  using Moment = std::vector<std::uint32_t>;
  void Start(const Moment& at) {
    const int records[] = {322, 323, 324, 321, 320};
    for (std::size_t i = 0; i < at.size(); ++i) {
      Set(0, records[i], at[i]);
    }
  }
  Moment Now() { return {Get(0, 322), Get(0, 323), Get(0, 324), Get(0, 321), Get(0, 320)}; }
};

TEST_F(CalendarTest, AMinutePassesInSixtySeconds) {
  Start({4, 3, 24, 8, 15});
  Pass(59s);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 15}));
  Pass(1s);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 16}));
}

TEST_F(CalendarTest, EachMonthEndsOnItsLastDay) {
  const std::uint32_t days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (std::uint32_t month = 1; month <= 12; ++month) {
    Start({days[month - 1], month, 23, 23, 59});
    Pass(60s);
    EXPECT_EQ(Now(), (Moment{1, month % 12 + 1, month == 12 ? 24u : 23u, 0, 0}));
  }
}

TEST_F(CalendarTest, ALeapYearHasATwentyNinthOfFebruary) {
  Start({28, 2, 24, 23, 59});
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{29, 2, 24, 0, 0}));
  Start({29, 2, 24, 23, 59});
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{1, 3, 24, 0, 0}));
}

TEST_F(CalendarTest, TheYearRunsFrom99To0) {
  Start({31, 12, 99, 23, 59});
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{1, 1, 0, 0, 0}));
}

TEST_F(CalendarTest, EachFieldIsSetByItsOwnRecord) {
  Start({4, 3, 24, 8, 15});
  Write(326, 21);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 21, 15}));
  Write(327, 45);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 21, 45}));
  Write(328, 30);
  EXPECT_EQ(Now(), (Moment{30, 3, 24, 21, 45}));
  Write(329, 11);
  EXPECT_EQ(Now(), (Moment{30, 11, 24, 21, 45}));
  Write(330, 31);
  EXPECT_EQ(Now(), (Moment{30, 11, 31, 21, 45}));
}

TEST_F(CalendarTest, SettingTheMinuteBeginsItAnew) {
  Pass(40s);
  machine_.Write(0, 327, 10);
  Pass(59s);
  EXPECT_EQ(Get(0, 320), 10u);
  Pass(1s);
  EXPECT_EQ(Get(0, 320), 11u);
}

TEST_F(CalendarTest, AFieldOutOfRangeIsHeldButNotTaken) {
  Start({4, 3, 24, 8, 15});
  struct {
    int record;
    std::uint8_t value;
  } const bad[] = {{326, 24}, {327, 60}, {328, 0}, {328, 32}, {329, 0}, {329, 13}, {330, 100}};
  for (const auto& field : bad) {
    machine_.Write(0, field.record, field.value);
    EXPECT_EQ(Get(0, field.record), field.value);
    EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 15})) << field.record;
  }
}

TEST_F(CalendarTest, ADayThatTheMonthLacksLastsUntilMidnight) {
  Start({10, 2, 23, 23, 58});
  machine_.Write(0, 328, 31);
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{31, 2, 23, 23, 59}));
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{1, 3, 23, 0, 0}));
}

TEST_F(CalendarTest, WithoutAClockTheRecordsStandStillAndCannotBeSet) {
  Start({4, 3, 24, 8, 15});
  machine_.calendar().SetFitted(false);
  EXPECT_EQ(Get(0, 317) & 4, 0u);
  Pass(10min);
  machine_.Write(0, 326, 21);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 15}));
  machine_.calendar().SetFitted(true);
  Pass(1min);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 16}));
}

TEST_F(CalendarTest, TheTimePointsAreHeldAsWritten) {
  for (int record = 87; record <= 106; ++record) {
    machine_.Write(0, record, static_cast<std::uint32_t>(record));
    machine_.Write(0, record + 202, static_cast<std::uint32_t>(record));
  }
  Pass(24h);
  for (int record = 87; record <= 106; ++record) {
    EXPECT_EQ(Get(0, record), static_cast<std::uint32_t>(record));
    EXPECT_EQ(Get(0, record + 202), static_cast<std::uint32_t>(record));
  }
}

TEST_F(CalendarTest, RunsAsManyTimesFasterAsTheMachinesDay) {
  Start({4, 3, 24, 8, 0});
  machine_.SetSpeed(60);
  Pass(30s);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 30}));
  machine_.SetSpeed(1);
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 31}));
}

TEST_F(CalendarTest, ChangesOfSpeedAddNoSeconds) {
  for (int i = 0; i < 120; ++i) {
    machine_.SetSpeed(1);
  }
  Pass(59s);
  EXPECT_EQ(Get(0, 320), 0u);
  Pass(1s);
  EXPECT_EQ(Get(0, 320), 1u);
}

TEST_F(CalendarTest, GoesOnAfterARestart) {
  Start({4, 3, 24, 8, 0});
  machine_.Restart();
  Pass(60s);
  EXPECT_EQ(Now(), (Moment{4, 3, 24, 8, 1}));
}

}  // namespace
}  // namespace machine
