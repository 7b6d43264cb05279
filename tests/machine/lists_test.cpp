// SPDX-License-Identifier: GPL-3.0-or-later
// Lists that are kept by hand in two places: docs/machine.md names what the tables of the machine hold, and
// machine.h tells each of its parts what happens.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "console_fixture.h"
#include "machine/lines.h"
#include "machine/options.h"
#include "machine/text.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;

std::string TextOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The rows of the tables in docs/machine.md between the line `from` and the next heading.
std::vector<std::string> RowsOf(const std::string& from) {
  const auto lines = LinesOf(MACHINE_GUIDE);
  std::vector<std::string> rows;
  bool inside = false;
  for (const std::string& line : lines.value()) {
    if (line == from) {
      inside = true;
    } else if (line.starts_with("## ")) {
      inside = false;
    } else if (inside && line.starts_with("| `")) {
      rows.push_back(line);
    }
  }
  return rows;
}

std::string FirstCell(const std::string& row) { return row.substr(0, row.find(" | ")); }

// The first word of each text between backquotes, each once.
Names NamesIn(const std::string& text) {
  static const std::regex quoted("`([^` ]+)[^`]*`");
  Names names;
  for (std::sregex_iterator name(text.begin(), text.end(), quoted), end; name != end; ++name) {
    if (std::ranges::find(names, name->str(1)) == names.end()) {
      names.push_back(name->str(1));
    }
  }
  return names;
}

// The names in the first cells of a table.
Names NamesListed(const std::string& from) {
  std::string cells;
  for (const std::string& row : RowsOf(from)) {
    cells += FirstCell(row);
  }
  return NamesIn(cells);
}

Names Sorted(Names names) {
  std::ranges::sort(names);
  return names;
}

Names Split(const std::string& text) {
  const auto words = Words(text);
  return {words.begin(), words.end()};
}

std::string RowOfCommand(const std::string& command) {
  const auto rows = RowsOf("## Commands");
  const auto row = std::ranges::find_if(rows, [&](const auto& text) { return NamesIn(text)[0] == command; });
  return row == rows.end() ? std::string() : *row;
}

TEST_F(ConsoleTest, TheGuideNamesEveryCommandInTheOrderOfTheHelp) {
  std::string names;
  for (const std::string& name : NamesListed("## Commands")) {
    names += (names.empty() ? "" : ", ") + name;
  }
  EXPECT_EQ(Run("help"), "ok " + names);
}

TEST(Lists, TheGuideNamesEveryOption) {
  static const std::regex option("\n  (--[a-z-]+)");
  const std::string usage = UsageText();
  Names names;
  for (std::sregex_iterator name(usage.begin(), usage.end(), option), end; name != end; ++name) {
    names.push_back(name->str(1));
  }
  EXPECT_EQ(Sorted(names), Sorted(NamesListed("## Options")));
}

TEST(Lists, TheGuideNamesEveryFault) {
  EXPECT_EQ(NamesListed("## Faults"), Names(kFaultNames.begin(), kFaultNames.end()));
}

TEST_F(ConsoleTest, TheHelpNamesEveryFault) {
  const std::string help = Run("help fault");
  for (const std::string_view name : kFaultNames) {
    EXPECT_NE(help.find(name), std::string::npos) << name;
  }
}

TEST(Lists, TheGuideNamesEveryPartThatBreaks) {
  EXPECT_EQ(Sorted(NamesListed("| Broken part | Shows by |")), Sorted(Split(Defects::Names())));
}

TEST(Lists, TheGuideNamesEverySupplyAndEveryInput) {
  const std::string supplies = RowOfCommand("exhaust");
  for (const std::string_view name : kSupplyNames) {
    EXPECT_NE(supplies.find("`" + std::string(name) + "`"), std::string::npos) << name;
  }
  const std::string inputs = RowOfCommand("input");
  for (const std::string& name : Split(Inputs::Names())) {
    EXPECT_NE(inputs.find("`" + name + "`"), std::string::npos) << name;
  }
}

TEST(Lists, TheGuideNamesEveryScenario) {
  Names files;
  for (const auto& entry : fs::directory_iterator(MACHINE_SCENARIOS)) {
    files.push_back(entry.path().filename().string());
  }
  EXPECT_EQ(Sorted(NamesListed("## Days from a file")), Sorted(files));
}

// A part that is left out of the list compiles and never hears of anything.
TEST(Lists, TheMachineTellsEachOfItsConcernsWhatHappens) {
  static const std::regex concern("class ([A-Za-z]+) : public Concern");
  const std::string machine = TextOf(fs::path(MACHINE_SOURCES) / "machine.h");
  const std::string told = machine.substr(machine.find("concerns_ = {"));
  const std::string list = told.substr(0, told.find(';'));
  int found = 0;
  for (const auto& entry : fs::directory_iterator(MACHINE_SOURCES)) {
    const std::string text = entry.path().extension() == ".h" ? TextOf(entry.path()) : std::string();
    std::smatch match;
    if (!std::regex_search(text, match, concern)) {
      continue;
    }
    ++found;
    const std::regex declaration("\n  " + match.str(1) + " ([a-z_]+_)[;{]");
    std::smatch member;
    ASSERT_TRUE(std::regex_search(machine, member, declaration)) << match[1] << " is no part of the machine";
    EXPECT_TRUE(std::regex_search(list, std::regex("&" + member.str(1) + "\\b")))
        << match[1] << " is not in concerns_";
  }
  EXPECT_GE(found, 12);
}

}  // namespace
}  // namespace machine
