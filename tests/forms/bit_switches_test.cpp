// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/bit_rows.h"
#include "forms/form_fixture.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

constexpr BitRecord kBytes[] = {{2, 59, 274}};
constexpr BitRow kBits[] = {
    {.line = 48, .mask = 1, .index = 4},
    {.line = 49, .mask = 2, .index = 5, .caption = {"Other", -4}, .control = {"Alone", kNoArray}}};

class BitSwitchesTest : public FormFixture {
 protected:
  BitSwitchesTest() : rows_(kBytes, kBits, in_arrival_) {
    auto* form = new Form("Rows");
    rows_.MakeSwitches(form, {"Label1"}, {"SwitchX1"});
    rows_.SetEnabled(true);
    FormFixture::Open(form);
  }

  bool in_arrival_ = false;
  BitRows rows_;
};

TEST_F(BitSwitchesTest, ARowMayNameItsOwnControls) {
  EXPECT_EQ(rows_.control(0).objectName(), "SwitchX1(4)");
  EXPECT_EQ(rows_.caption(0).objectName(), "Label1(4)");
  EXPECT_EQ(rows_.control(1).objectName(), "Alone");
  EXPECT_EQ(rows_.caption(1).objectName(), "Other(1)");
}

TEST_F(BitSwitchesTest, TheWordsOfTheirPositionsAreThoseOfTheLanguage) {
  rows_.Show(0, 1);
  rows_.SetCaptions();
  EXPECT_EQ(rows_.control(0).accessibleDescription(), "");
  rows_.SetWords({.off = 109, .on = 110});
  rows_.SetCaptions();
  EXPECT_EQ(rows_.control(0).accessibleDescription(), "#110");
  EXPECT_EQ(rows_.control(1).accessibleDescription(), "#109");
}

TEST_F(BitSwitchesTest, ARowThatMovesWithinItsByteShowsItsNewBitAtOnce) {
  rows_.MoveWithinByte(0, 4);
  EXPECT_FALSE(rows_.control(0).IsKnown());
  Arrive(2, 59, 8);
  rows_.Show(0, 8);
  EXPECT_EQ(rows_.control(0).Position(), 0);
  rows_.MoveWithinByte(0, 8);
  EXPECT_EQ(rows_.control(0).Position(), 1);
  EXPECT_EQ(Written(), Writes{});
  Click("SwitchX1(4)");
  EXPECT_EQ(Written(), (Writes{{2, 59, 0}, {2, 274, 0}}));
  rows_.MoveWithinByte(0, 4);
  EXPECT_EQ(rows_.mark(0).state(), EchoMark::State::kNone);
  rows_.MoveWithinByte(0, 8);
  EXPECT_EQ(rows_.mark(0).state(), EchoMark::State::kOnItsWay);
  EXPECT_EQ(rows_.control(0).Position(), 0);
  EXPECT_EQ(Written(), Writes{});
}

}  // namespace
}  // namespace dosmara
