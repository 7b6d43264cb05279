// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mnemonics.h"

#include <gtest/gtest.h>

namespace dosmara {
namespace {

TEST(WithMnemonics, TakesTheFirstLetterThatIsFree) {
  EXPECT_EQ(WithMnemonics({"Tempi", "Test", "Dosi"}), QStringList({"&Tempi", "T&est", "&Dosi"}));
}

TEST(WithMnemonics, PrefersTheBeginningOfAWord) {
  EXPECT_EQ(WithMnemonics({"Zeth", "Zeth 2"}), QStringList({"&Zeth", "Zeth &2"}));
}

TEST(WithMnemonics, LeavesTheBeginningOfAWordToTheEntryThatHasIt) {
  EXPECT_EQ(WithMnemonics({"Conf", "Clock", "Languages"}), QStringList({"&Conf", "Cl&ock", "&Languages"}));
}

TEST(WithMnemonics, MakesNoDifferenceOfCase) {
  EXPECT_EQ(WithMnemonics({"com", "COM"}), QStringList({"&com", "C&OM"}));
}

TEST(WithMnemonics, MovesAnEntryThatCanMoveForOneThatCannot) {
  EXPECT_EQ(WithMnemonics({"ab", "bc", "a"}), QStringList({"a&b", "b&c", "&a"}));
}

TEST(WithMnemonics, TakesASignWhereThereIsNoLetter) {
  EXPECT_EQ(WithMnemonics({"?", "/1"}), QStringList({"&?", "/&1"}));
}

TEST(WithMnemonics, ShowsAnAmpersandAsItIs) {
  EXPECT_EQ(WithMnemonics({"R&D", "R", "&"}), QStringList({"R&&&D", "&R", "&&"}));
}

TEST(WithMnemonics, LeavesAnEntryWithoutOneWhereNoLetterIsLeft) {
  EXPECT_EQ(WithMnemonics({"a", "A", ""}), QStringList({"&a", "A", ""}));
}

TEST(WithMnemonic, TakesNoneThatShowsInTheWindowAlready) {
  EXPECT_EQ(WithMnemonic("Exit", {}), "&Exit");
  EXPECT_EQ(WithMnemonic("Exit", {"&File", "T&emperature"}), "E&xit");
  EXPECT_EQ(WithMnemonic("R&D", {"&Read"}), "R&&&D");
  EXPECT_EQ(WithMnemonic("a", {"&a"}), "a");
  EXPECT_EQ(WithMnemonic("", {"&a"}), "");
}

}  // namespace
}  // namespace dosmara
