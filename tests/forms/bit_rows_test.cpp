// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that are bits of a byte, and what two forms on one byte do to each other.
#include "fields/bit_rows.h"

#include <QTest>

#include "fields/data_form.h"
#include "forms/form_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;
using State = EchoMark::State;

constexpr BitRecord kBytes[] = {{0, 83, 285}, {2, 59, 0}};
constexpr BitRow kBits[] = {{.line = 1, .mask = 8, .index = 3},
                            {.line = 2, .mask = 16, .index = 4, .active_low = true},
                            {.mask = 1, .index = 5},
                            {.line = 3, .byte = 1, .mask = 128, .index = 6}};

class Switches : public DataForm {
 public:
  Switches() : DataForm({.name = "Switches", .title = 47}), bits(NewBits(kBytes, kBits)) {
    auto* grid = new QGridLayout(Body());
    bits.MakeSwitches(Body(), {"Label3"}, {"Slider"});
    for (int n = 0; n < bits.size(); ++n) {
      bits.PlaceIn(*grid, n, n, 0);
    }
    Watch(bits, Counts::kYes);
    bits.SetEnabled(true);
  }

  BitRows& bits;
};

class BitRowsTest : public FormFixture {
 protected:
  BitRowsTest() { Open(switches_); }

  // The switches of the first byte from its bit 3 on.
  std::vector<int> Positions() {
    return {Position("Slider(3)"), Position("Slider(4)"), Position("Slider(5)")};
  }
  State Mark(int n) { return switches_->bits.mark(n).state(); }

  Switches* switches_ = new Switches;
};

TEST_F(BitRowsTest, SubscribesItsBytesAndNotTheirMirrors) {
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 83, 1}, {2, 59, 1}}));
}

TEST_F(BitRowsTest, CaptionsComeFromTheLanguage) {
  EXPECT_EQ(LabelText("Label3(3)"), "#1");
  EXPECT_EQ(LabelText("Label3(6)"), "#3");
  EXPECT_EQ(LabelText("Label3(5)"), "");
  EXPECT_EQ(Find("Slider(4)").accessibleName(), "#2");
}

TEST_F(BitRowsTest, NothingIsKnownBeforeTheByteArrives) {
  for (const char* name : {"Slider(3)", "Slider(4)", "Slider(5)", "Slider(6)"}) {
    EXPECT_FALSE(Find<TwoPositionSwitch>(name).IsKnown());
  }
  Arrive(0, 83, 0);
  EXPECT_TRUE(Find<TwoPositionSwitch>("Slider(3)").IsKnown());
  EXPECT_FALSE(Find<TwoPositionSwitch>("Slider(6)").IsKnown());
}

TEST_F(BitRowsTest, EachSwitchShowsItsBitAndAnActiveLowOneItsOpposite) {
  Arrive(0, 83, 0);
  EXPECT_EQ(Positions(), (std::vector<int>{0, 1, 0}));
  Arrive(0, 83, 8);
  EXPECT_EQ(Positions(), (std::vector<int>{1, 1, 0}));
  Arrive(0, 83, 16 + 1);
  EXPECT_EQ(Positions(), (std::vector<int>{0, 0, 1}));
  Arrive(0, 83, 255 - 8 - 16 - 1);
  EXPECT_EQ(Positions(), (std::vector<int>{0, 1, 0}));
  EXPECT_EQ(Position("Slider(6)"), 0);
  Arrive(2, 59, 128);
  EXPECT_EQ(Position("Slider(6)"), 1);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(BitRowsTest, ASwitchWritesItsBitWithTheOthersAsTheyAre) {
  Arrive(0, 83, 0b11100100);
  Click("Slider(3)");
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b11101100}, {0, 285, 0b11101100}}));
  Click("Slider(4)");
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b11111100}, {0, 285, 0b11111100}}));
  Click("Slider(3)");
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b11110100}, {0, 285, 0b11110100}}));
}

TEST_F(BitRowsTest, AByteWithoutAMirrorIsWrittenOnce) {
  Arrive(2, 59, 1);
  Click("Slider(6)");
  EXPECT_EQ(Written(), (Writes{{2, 59, 129}}));
}

TEST_F(BitRowsTest, NothingIsWrittenBeforeTheByteHasArrived) {
  ParamTable[0][83].Value[0] = 8;  // what an index file says of it
  for (const char* name : {"Slider(3)", "Slider(4)"}) {
    Click(name);
    EXPECT_FALSE(Find<TwoPositionSwitch>(name).IsKnown()) << name;
  }
  EXPECT_EQ(Written(), Writes{});
  EXPECT_EQ(Mark(0), State::kNone);
}

TEST_F(BitRowsTest, AKeyShowsNoPositionBeforeTheByteHasArrived) {
  auto& control = Find<TwoPositionSwitch>("Slider(3)");
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Space, Qt::Key_Left}) {
    QTest::keyClick(&control, key);
    EXPECT_FALSE(control.IsKnown()) << key;
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(BitRowsTest, TheMarkFollowsItsOwnBit) {
  Arrive(0, 83, 0);
  Click("Slider(3)");
  EXPECT_EQ(Mark(0), State::kOnItsWay);
  EXPECT_EQ(Mark(1), State::kNone);
  Arrive(0, 83, 8 + 64);
  EXPECT_EQ(Mark(0), State::kTaken);
  Click("Slider(3)");
  Arrive(0, 83, 8);
  EXPECT_EQ(Mark(0), State::kNotTaken);
  EXPECT_EQ(Position("Slider(3)"), 1);
}

TEST_F(BitRowsTest, TwoFormsOnOneByteNeverUndoEachOther) {
  auto* other = new Switches;
  Open(other);
  Arrive(0, 83, 0b01000000);
  TwoPositionSwitch& here = switches_->bits.control(0);
  TwoPositionSwitch& there = other->bits.control(2);
  here.click();
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b01001000}, {0, 285, 0b01001000}}));
  there.click();
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b01001001}, {0, 285, 0b01001001}}));
  here.click();
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b01000001}, {0, 285, 0b01000001}}));
  Arrive(0, 83, 0b01000001);
  for (Switches* form : {switches_, other}) {
    EXPECT_EQ(form->bits.control(0).Position(), 0);
    EXPECT_EQ(form->bits.control(2).Position(), 1);
  }
  EXPECT_EQ(Mark(0), State::kTaken);
}

TEST_F(BitRowsTest, ARowThatMovesShowsItsOldBitUntilTheByteArrives) {
  Arrive(0, 83, 8);
  Click("Slider(3)");
  Written();
  Arrive(0, 83, 0);
  Click("Slider(3)");
  switches_->bits.MoveTo(0, 1, 2);
  EXPECT_EQ(Mark(0), State::kNone);
  EXPECT_EQ(Position("Slider(3)"), 1);
  Written();
  Arrive(2, 59, 1);
  EXPECT_EQ(Position("Slider(3)"), 0);
  Arrive(0, 83, 8);
  EXPECT_EQ(Position("Slider(3)"), 0);
  Click("Slider(3)");
  EXPECT_EQ(Written(), (Writes{{2, 59, 3}}));
}

TEST_F(BitRowsTest, AnythingThatShowsOnAndOffMayBeBound) {
  const bool in_arrival = false;
  BitRows rows(kBytes, kBits, in_arrival);
  std::vector<int> shown;
  rows.Bind(1, [&](bool on) { shown.push_back(on ? 1 : 0); });
  rows.Show(0, 16);
  rows.Show(0, 0);
  rows.Show(1, 16);
  EXPECT_EQ(shown, (std::vector<int>{0, 1}));
  rows.SetCaptions();  // the line of row 1 is the business of what it is bound to
}

}  // namespace
}  // namespace dosmara
