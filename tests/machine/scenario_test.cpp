// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/scenario.h"

#include <fstream>
#include <vector>

#include "machine_fixture.h"
#include "temp_folder.h"

namespace machine {
namespace {

class ScenarioTest : public testing::Test {
 protected:
  // Writes the file and plays it from `start`, in seconds since midnight.
  std::string Play(const std::string& text, int start = 0) {
    std::ofstream(path_) << text;
    return scenario_.Start(path_, [start] { return start; });
  }
  void Pass(int seconds) {
    for (int i = 0; i < seconds; ++i) {
      scenario_.OnSecond();
    }
  }

  TempFolder folder_;
  const std::string path_ = (folder_ / "day.txt").string();
  std::vector<std::string> ran_;
  Scenario scenario_{[](std::string_view line) { return line == "bad" ? "it is bad" : ""; },
                     [this](std::string_view line) { ran_.emplace_back(line); }};
};

using Lines = std::vector<std::string>;

TEST_F(ScenarioTest, RunsEachLineAtItsTime) {
  EXPECT_EQ(Play("at 08:00 one\nat 08:00:30 two\nat 8:01 three and more\n", 8 * 3600 - 10), "");
  Pass(9);
  EXPECT_EQ(ran_, Lines{});
  Pass(1);
  EXPECT_EQ(ran_, Lines{"one"});
  Pass(29);
  EXPECT_EQ(ran_, Lines{"one"});
  Pass(1);
  EXPECT_EQ(ran_, (Lines{"one", "two"}));
  Pass(30);
  EXPECT_EQ(ran_, (Lines{"one", "two", "three and more"}));
  EXPECT_EQ(scenario_.left(), 0u);
}

TEST_F(ScenarioTest, RunsLinesWithoutATimeAsItStarts) {
  EXPECT_EQ(Play("first\n\n# a comment\nsecond\nat 0:01 third\n"), "");
  EXPECT_EQ(ran_, (Lines{"first", "second"}));
  Pass(60);
  EXPECT_EQ(ran_.size(), 3u);
}

TEST_F(ScenarioTest, PassesOverAByteOrderMark) {
  EXPECT_EQ(Play("\xEF\xBB\xBF# a day\nfirst\n"), "");
  EXPECT_EQ(Play("\xEF\xBB\xBFsecond\n"), "");
  EXPECT_EQ(ran_, (Lines{"first", "second"}));
}

TEST_F(ScenarioTest, RunsLinesOfOneTimeTogetherAndInOrder) {
  EXPECT_EQ(Play("at 0:01 a\nat 0:01 b\nat 0:01 c\n"), "");
  Pass(59);
  EXPECT_EQ(ran_, Lines{});
  Pass(1);
  EXPECT_EQ(ran_, (Lines{"a", "b", "c"}));
}

TEST_F(ScenarioTest, ALineEarlierThanTheOneBeforeIsOfTheNextDay) {
  EXPECT_EQ(Play("at 12:00 today\nat 06:00 tomorrow\n", 11 * 3600), "");
  Pass(3600);
  EXPECT_EQ(ran_, Lines{"today"});
  Pass(18 * 3600 - 1);
  EXPECT_EQ(ran_, Lines{"today"});
  Pass(1);
  EXPECT_EQ(ran_, (Lines{"today", "tomorrow"}));
}

TEST_F(ScenarioTest, ABadLineIsNamedAndNothingRuns) {
  EXPECT_EQ(Play("good\nbad\n"), path_ + ":2: it is bad");
  EXPECT_EQ(Play("good\nat 1:00 bad\n"), path_ + ":2: it is bad");
  EXPECT_EQ(Play("at 24:00 good\n"), path_ + ":1: no time of the day: '24:00'");
  EXPECT_EQ(Play("at 12:00\n"), path_ + ":1: at TIME COMMAND");
  EXPECT_EQ(Play("at 12:00 good\ngood\n"), path_ + ":2: a line without 'at' behind one with it");
  EXPECT_EQ(scenario_.Start("/nowhere/day.txt", [] { return 0; }), "/nowhere/day.txt: cannot be read");
  const std::string folder = folder_.path().string();
  EXPECT_EQ(scenario_.Start(folder, [] { return 0; }), folder + ": cannot be read");
  EXPECT_EQ(ran_, Lines{});
  EXPECT_EQ(scenario_.left(), 0u);
}

TEST_F(ScenarioTest, ABadFileLeavesTheOneThatPlays) {
  Play("at 0:01 good\n");
  Play("bad\n");
  EXPECT_EQ(scenario_.left(), 1u);
}

TEST_F(ScenarioTest, StopForgetsWhatIsToCome) {
  Play("at 0:01 good\n");
  scenario_.Stop();
  Pass(60);
  EXPECT_EQ(ran_, Lines{});
}

TEST(TimeOfDay, TakesHoursMinutesAndSeconds) {
  EXPECT_EQ(TimeOfDay("8:05"), 29100);
  EXPECT_EQ(TimeOfDay("23:59:59"), 86399);
  for (const char* bad : {"", "8", "8:60", "24:00", "8:00:60", "8:00:00:00", ":", "8:", "a:b", "-1:00"}) {
    EXPECT_EQ(TimeOfDay(bad), std::nullopt) << bad;
  }
}

}  // namespace
}  // namespace machine
