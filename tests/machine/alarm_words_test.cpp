// SPDX-License-Identifier: GPL-3.0-or-later
// Every cause of an alarm, and the words that a technician reads for it.
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "machine/board_files.h"
#include "machine/machine.h"
#include "machine_fixture.h"

namespace machine {
namespace {

constexpr std::uint32_t kCodes = 27;

// Brings a cause about on a machine of its own and gives the code of the newest alarm.
std::uint32_t CodeOf(const std::function<void(Machine&)>& cause) {
  Machine machine(LoadBoards(MACHINE_BOARDS), 1);
  cause(machine);
  machine.AdvanceTo(machine.now() + 6h);
  const auto newest = static_cast<int>(machine.board(0).Get(86));
  return machine.board(0).Get(147 + 6 * newest);
}

// A broken part, and a test that needs it: a drink with coffee, or the product at 1:1 of a unit.
std::uint32_t CodeOfPart(const char* part, std::uint32_t unit = 0) {
  return CodeOf([&](Machine& machine) {
    EXPECT_TRUE(machine.defects().Break(part));
    machine.Write(0, 358, unit);
    machine.Write(0, 315, unit == 0 ? 1 : 39);
    machine.Write(0, 316, 16);
    machine.Write(0, 314, 2);
  });
}

TEST(AlarmWords, EachCauseHasTheCodeThatTheWordsAreFor) {
  const Supply supplies[] = {Supply::kWater,    Supply::kCups,    Supply::kCoffee,
                             Supply::kStirrers, Supply::kGrounds, Supply::kTray};
  for (std::uint32_t i = 0; i < 6; ++i) {
    EXPECT_EQ(CodeOf([&](Machine& machine) { machine.supplies().Exhaust(supplies[i]); }), 1 + i);
  }
  EXPECT_EQ(CodeOf([](Machine& machine) { machine.inputs().SetDoorOpen(true); }), 7u);
  EXPECT_EQ(CodeOf([](Machine& machine) {
              EXPECT_TRUE(machine.till().EmptyTubes(5000));
              EXPECT_EQ(machine.sales().Vend({}, Payment::kCoins, 100), "exact change only");
            }),
            18u);
  for (const int node : {1, 2, 3}) {
    EXPECT_EQ(CodeOf([&](Machine& machine) { machine.SetPresent(node, false); }),
              static_cast<std::uint32_t>(18 + node));
  }
  const std::map<const char*, std::uint32_t> parts = {
      {"heater", 8},        {"thermostat", 9},      {"probe", 10},          {"brewer", 11},
      {"grinder", 12},      {"pump", 13},           {"inlet", 14},          {"flow-meter", 15},
      {"clock", 26},        {"coin-mechanism", 16}, {"bill-validator", 17}, {"memory", 27},
      {"compressor-2", 22}, {"compressor-3", 23}};
  for (const auto& [part, code] : parts) {
    EXPECT_EQ(CodeOfPart(part), code) << part;
  }
  EXPECT_EQ(CodeOfPart("motor-2", 86), 24u);
  EXPECT_EQ(CodeOfPart("motor-3", 87), 25u);
}

// The text of a code is line 403 + code. A row that covers all codes gives the others no more than a number.
TEST(AlarmWords, EachCodeHasWordsOfItsOwnInEveryLanguage) {
  std::ifstream captions(MACHINE_CAPTIONS);
  std::string header;
  ASSERT_TRUE(std::getline(captions, header));
  const auto languages = std::count(header.begin(), header.end(), '\t');
  ASSERT_GE(languages, 2);
  std::map<std::string, std::string> rows;
  for (std::string row; std::getline(captions, row);) {
    const auto tab = row.find('\t');
    if (tab != std::string::npos) {
      rows[row.substr(0, tab)] = row.substr(tab + 1);
    }
  }
  std::set<std::pair<int, std::string>> seen;
  for (std::uint32_t code = 1; code <= kCodes; ++code) {
    std::istringstream words(rows[std::to_string(403 + code)]);
    for (int language = 0; language < languages; ++language) {
      std::string text;
      std::getline(words, text, '\t');
      if (text.empty() && language > 0) {
        continue;  // the words are those of the first language
      }
      EXPECT_GE(text.size(), 4u) << code;
      EXPECT_EQ(text.find_first_of("{}"), std::string::npos) << code;
      EXPECT_TRUE(seen.emplace(language, text).second) << code << " " << text;
    }
  }
}

}  // namespace
}  // namespace machine
