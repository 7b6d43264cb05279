// SPDX-License-Identifier: GPL-3.0-or-later
// Whole days of a machine with its own boards: the shipped scenarios, and a week with customers.
#include <filesystem>
#include <random>

#include "machine/board_files.h"
#include "machine/console.h"
#include "machine_fixture.h"

namespace machine {
namespace {

class NoPlug : public Plug {
 public:
  std::string Unplug() override { return Set(false); }
  std::string Replug() override { return Set(true); }
  bool plugged() const override { return plugged_; }
  void Quit() override {}

 private:
  std::string Set(bool plugged) {
    plugged_ = plugged;
    return {};
  }
  bool plugged_ = true;
};

// A machine that keeps its log.
struct Day {
  explicit Day(std::uint32_t seed = 1)
      : machine(LoadBoards(MACHINE_BOARDS), seed,
                FrameLog(RecordNames::Load(MACHINE_BOARDS), [this](const std::string& line) {
                  if (line.find("scenario: ") == std::string::npos) {
                    return;
                  }
                  log += line + "\n";
                  if (line.find(": error: ") != std::string::npos) {
                    refusals += line + "\n";
                  }
                })) {
    machine.log().Switch(true);
  }

  std::string Play(const std::string& name) {
    return console.Play((std::filesystem::path(MACHINE_SCENARIOS) / name).string());
  }
  void Pass(Time time) { machine.AdvanceTo(machine.now() + time); }
  std::uint32_t Get(int node, int record) { return machine.board(node).Get(record); }

  // Every record of every board.
  std::vector<std::uint32_t> Everything() {
    std::vector<std::uint32_t> values;
    for (int node = 0; node < kNodeCount; ++node) {
      for (int record = 1; record <= machine.board(node).record_count(); ++record) {
        values.push_back(Get(node, record));
      }
    }
    return values;
  }

  std::string log;
  std::string refusals;
  Machine machine;
  NoPlug plug;
  Console console{machine, plug};
};

TEST(Day, AQuietOfficeDaySellsAndHasNoAlarm) {
  Day day;
  ASSERT_EQ(day.Play("office_day.txt"), "");
  day.Pass(24h);
  EXPECT_EQ(day.refusals, "");
  EXPECT_GE(day.Get(0, 124), 15u);
  EXPECT_GT(day.Get(0, 128), 0u);
  EXPECT_GT(day.Get(0, 147), 203u);
  EXPECT_NE(day.console.Execute("status").find(" scenario 0"), std::string::npos);
}

TEST(Day, ABusyDayFillsTheAlarmLog) {
  Day day;
  ASSERT_EQ(day.Play("busy_day.txt"), "");
  day.Pass(24h);
  EXPECT_GT(day.Get(0, 124), 100u);
  for (int entry = 0; entry < 10; ++entry) {
    EXPECT_LE(day.Get(0, 147 + 6 * entry), 27u) << entry;
  }
  EXPECT_NE(day.console.Execute("status").find(" scenario 0"), std::string::npos);
}

TEST(Day, ABadLineEndsWithAGoodOne) {
  Day day;
  ASSERT_EQ(day.Play("bad_line.txt"), "");
  day.Pass(24h);
  EXPECT_EQ(day.refusals, "");
  EXPECT_TRUE(day.plug.plugged());
  EXPECT_NE(day.console.Execute("status").find(" faults none "), std::string::npos);
  EXPECT_NE(day.console.Execute("status").find(" muted no "), std::string::npos);
}

// Entry e of the alarm ring as minute, hour, day, month, year, code.
std::vector<std::uint32_t> AlarmEntry(Day& day, int entry) {
  std::vector<std::uint32_t> fields;
  for (int field = 0; field < 6; ++field) {
    fields.push_back(day.Get(0, 142 + 6 * entry + field));
  }
  return fields;
}

TEST(Day, TheAlarmLogIsSeenInAllItsStates) {
  using Entry = std::vector<std::uint32_t>;
  Day day;
  ASSERT_EQ(day.Play("alarm_log.txt"), "");
  const auto entries = [&] {
    int count = 0;
    for (int entry = 0; entry < 10; ++entry) {
      count += AlarmEntry(day, entry)[5] <= 203;
    }
    return count;
  };
  day.Pass(1min);
  EXPECT_EQ(entries(), 0) << "empty";
  day.Pass(2min);
  EXPECT_EQ(entries(), 1) << "a single one";
  EXPECT_EQ(AlarmEntry(day, static_cast<int>(day.Get(0, 86))), (Entry{2, 9, 7, 3, 24, 7}));
  day.Pass(2min);
  EXPECT_EQ(entries(), 10) << "full";
  EXPECT_EQ(day.Get(0, 86), 9u);
  EXPECT_EQ(AlarmEntry(day, 9), (Entry{4, 9, 7, 3, 24, 203}));
  day.Pass(2min);
  EXPECT_EQ(day.Get(0, 86), 0u) << "gone round";
  EXPECT_EQ(AlarmEntry(day, 0), (Entry{6, 9, 7, 3, 24, 13}));
  day.Pass(2min);
  EXPECT_EQ(AlarmEntry(day, 1), (Entry{0, 0, 0, 0, 0, 26})) << "without a clock";
  EXPECT_EQ(entries(), 10);
  day.Pass(5min);
  EXPECT_EQ(entries(), 0) << "empty again";
  EXPECT_EQ(day.refusals, "");
}

TEST(Day, TheSameSeedAndScenarioGiveTheSameDay) {
  for (const char* name : {"office_day.txt", "busy_day.txt", "alarm_log.txt"}) {
    Day first(7);
    Day second(7);
    first.Play(name);
    second.Play(name);
    first.Pass(24h);
    second.Pass(24h);
    EXPECT_EQ(first.log, second.log);
    EXPECT_EQ(first.Everything(), second.Everything());
  }
}

TEST(Day, LeftAloneTheMachineSellsNothingAndLogsNothing) {
  Day day;
  day.Pass(24h);
  EXPECT_EQ(day.Get(0, 123), 0u);
  EXPECT_GT(day.Get(0, 147), 203u);
  EXPECT_EQ(day.Get(0, 322), 2u);
}

TEST(Day, MirrorsBeginAlike) {
  Day day;
  struct {
    int node, first, last, distance;
  } const ranges[] = {{0, 1, 74, 202},  {0, 76, 79, 202}, {0, 83, 85, 202}, {0, 87, 106, 202},
                      {0, 347, 349, 3}, {1, 1, 22, 478},  {1, 24, 26, 478}, {1, 28, 36, 478},
                      {1, 38, 40, 478}, {1, 42, 44, 478}, {1, 46, 50, 478}, {1, 553, 556, 4},
                      {1, 589, 591, 4}, {2, 1, 48, 215},  {2, 51, 59, 215}, {2, 292, 309, 18},
                      {3, 1, 48, 215},  {3, 51, 59, 215}, {3, 292, 309, 18}};
  for (const auto& range : ranges) {
    for (int record = range.first; record <= range.last; ++record) {
      EXPECT_EQ(day.Get(range.node, record), day.Get(range.node, record + range.distance))
          << range.node << " " << record;
    }
  }
}

TEST(Day, TheTwoTanksNeverMeet) {
  Day day;
  for (int minute = 0; minute < 180; ++minute) {
    day.Pass(1min);
    EXPECT_GT(day.Get(3, 287), day.Get(2, 287) + 128u) << minute;
  }
}

TEST(Day, AWeekOfCustomersAddsUp) {
  Day day;
  day.machine.sales().SetCustomers(20);
  for (int i = 0; i < 7; ++i) {
    day.Pass(24h);
    day.console.Execute("service all");
  }
  std::uint32_t vends = 0;
  for (int record = 60; record <= 81; ++record) {
    vends += day.Get(1, record);
  }
  for (int record = 71; record <= 118; ++record) {
    vends += day.Get(2, record) + day.Get(3, record);
  }
  EXPECT_GT(vends, 1000u);
  std::uint32_t drinks = 0;
  for (int record = 60; record <= 81; ++record) {
    drinks += day.Get(1, record);
  }
  EXPECT_NEAR(drinks, vends * 0.75, vends * 0.1) << "three of four buy a drink";
  EXPECT_NEAR(day.Get(0, 344), day.Get(0, 128) / 8.0, day.Get(0, 128) * 0.05) << "one of eight has a key";
  EXPECT_EQ(day.Get(0, 123), vends);
  EXPECT_EQ(day.Get(0, 124), vends);
  EXPECT_EQ(day.Get(0, 127), day.Get(0, 128));
  std::uint32_t coins = 0;
  for (int channel = 0; channel < 8; ++channel) {
    coins += day.Get(0, 107 + channel) * day.Get(0, 4 + channel);
  }
  EXPECT_EQ(coins, day.Get(0, 339));
  EXPECT_EQ(coins - day.Get(0, 341) + day.Get(0, 344), day.Get(0, 128) + day.Get(0, 130));
  EXPECT_EQ(day.Get(0, 322), 8u);
  EXPECT_EQ(day.Get(0, 321), 12u);
}

TEST(Day, SurvivesWhateverATechnicianWrites) {
  Day day;
  day.machine.SetSpeed(60);
  day.machine.sales().SetCustomers(30);
  std::mt19937 random(11);
  for (int i = 0; i < 20000; ++i) {
    const int node = static_cast<int>(random() % kNodeCount);
    const Board& board = day.machine.board(node);
    const int record = 1 + static_cast<int>(random() % static_cast<unsigned>(board.record_count()));
    day.machine.Write(node, record, random() & board.Largest(record));
    if (i % 16 == 0) {
      day.machine.Write(0, 314, random() % 9);
    }
    if (i % 1000 == 0) {
      day.machine.Restart();
    }
    day.Pass(100ms);
    day.machine.alarms().Raise(random() % 204);
    ASSERT_LT(day.Get(0, 86), 10u);
  }
}

}  // namespace
}  // namespace machine
