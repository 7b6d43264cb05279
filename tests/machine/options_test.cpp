// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/options.h"

#include <gtest/gtest.h>

#include <vector>

namespace machine {
namespace {

Options Parse(std::vector<const char*> arguments) { return ParseOptions(arguments); }

std::string Refusal(std::vector<const char*> arguments) {
  try {
    ParseOptions(arguments);
  } catch (const UsageError& error) {
    return error.what();
  }
  return {};
}

TEST(Options, WithoutArgumentsTheMachineIsTheOneThatTheToolExpects) {
  const Options options = Parse({});
  EXPECT_EQ(options.boards, ".");
  EXPECT_EQ(options.identity.board_code, 18);
  EXPECT_EQ(options.identity.type, 256);
  EXPECT_EQ(options.identity.revision, 14);
  EXPECT_EQ(options.identity.file_number, 1);
  EXPECT_EQ(options.identity.model, 25);
  EXPECT_TRUE(options.absent.empty());
  EXPECT_FALSE(options.help);
}

TEST(Options, TakesEachByItsName) {
  const Options options =
      Parse({"--boards", "b",   "--names",    "n",          "--link",        "l",  "--log",        "g",
             "--script", "s",   "--seed",     "4294967295", "--model",       "23", "--board-code", "17",
             "--type",   "300", "--revision", "13",         "--file-number", "2",  "--absent",     "1",
             "--absent", "3",   "--scenario", "d",          "--speed",       "60"});
  EXPECT_EQ(options.boards, "b");
  EXPECT_EQ(options.names, "n");
  EXPECT_EQ(options.link, "l");
  EXPECT_EQ(options.log, "g");
  EXPECT_EQ(options.script, "s");
  EXPECT_EQ(options.scenario, "d");
  EXPECT_EQ(options.speed, 60u);
  EXPECT_EQ(options.seed, 4294967295u);
  EXPECT_EQ(options.identity.model, 23);
  EXPECT_EQ(options.identity.board_code, 17);
  EXPECT_EQ(options.identity.type, 300);
  EXPECT_EQ(options.identity.revision, 13);
  EXPECT_EQ(options.identity.file_number, 2);
  EXPECT_EQ(options.absent, (std::set<int>{1, 3}));
}

TEST(Options, RefusesWhatItDoesNotUnderstandInOneLine) {
  EXPECT_EQ(Refusal({"--colour"}), "no option '--colour', try --help");
  EXPECT_EQ(Refusal({"boards"}), "no option 'boards', try --help");
  EXPECT_EQ(Refusal({"--link"}), "--link needs an argument");
  EXPECT_EQ(Refusal({"--model", "256"}), "--model takes 0 to 255, not '256'");
  EXPECT_EQ(Refusal({"--model", ""}), "--model takes 0 to 255, not ''");
  EXPECT_EQ(Refusal({"--absent", "0"}), "--absent takes 1 to 3, not '0'");
  EXPECT_EQ(Refusal({"--speed", "0"}), "--speed takes 1 to 3600, not '0'");
  EXPECT_EQ(Refusal({"--absent", "4"}), "--absent takes 1 to 3, not '4'");
}

TEST(Options, HelpNamesEveryOption) {
  EXPECT_TRUE(Parse({"--help"}).help);
  const std::string text = UsageText();
  for (const char* name :
       {"--boards", "--names", "--link", "--log", "--script", "--seed", "--model", "--board-code", "--type",
        "--revision", "--file-number", "--absent", "--scenario", "--speed", "--help"}) {
    EXPECT_NE(text.find(name), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace machine
