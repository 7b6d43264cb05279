// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a form, made from a table.
#include "fields/field_rows.h"

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

// Rows that use what few tables need.
constexpr FieldRow kClampedRows[] = {
    {.line = 618,
     .number = 8,
     .node = 2,
     .record = 51,
     .min = 1,
     .max = 16,
     .text = WholeText,
     .clamped = true},
    {.line = 230,
     .node = 3,
     .record = 48,
     .min = -32768,
     .max = 32767,
     .offset = 32768,
     .text = WholeText,
     .clamped = true},
    WholeRow({.line = 52, .node = 2, .record = 32, .min = 5, .max = 90, .length = 2}),
};

class FieldRowsTest : public FormFixture {
 protected:
  FieldRowsTest() : rows_(Open(new Form("Rows")), kStyle, kClampedRows, in_arrival_) {}
  Form* Open(Form* form) { return &FormFixture::Open(form); }

  static constexpr RowStyle kStyle = {
      .caption = {"Label2"}, .value = {"Label1"}, .box = {"Text1"}, .bar = {"HScroll1"}};
  bool in_arrival_ = false;
  FieldRows rows_;
};

TEST_F(FieldRowsTest, ANumberFollowsTheCaptionBehindABlank) {
  rows_.SetCaptions();
  EXPECT_EQ(LabelText("Label2(0)"), "#618 8");
  EXPECT_EQ(LabelText("Label2(1)"), "#230");
}

TEST_F(FieldRowsTest, ARowWithoutALineKeepsTheCaptionThatItWasGiven) {
  constexpr FieldRow kOne[] = {{.record = 28, .max = 9, .text = WholeText}};
  FieldRows rows(&form(), {.caption = {"Label6"}, .value = {"Label10"}, .box = {}, .bar = {"HScroll9"}}, kOne,
                 in_arrival_);
  rows[0].SetCaption("Bricco 1");
  rows.SetCaptions();
  EXPECT_EQ(LabelText("Label6(0)"), "Bricco 1");
}

TEST_F(FieldRowsTest, AClampedRowShowsNothingThatItsBarCannotHold) {
  rows_.Show(0, 17);
  EXPECT_EQ(LabelText("Label1(0)"), "16");
  EXPECT_EQ(BarOf("HScroll1(0)").Value(), 16);
  rows_.Show(0, 0);
  EXPECT_EQ(LabelText("Label1(0)"), "1");
  rows_.Show(2, 91);
  EXPECT_EQ(LabelText("Label1(2)"), "91");
  EXPECT_EQ(BarOf("HScroll1(2)").Value(), 90);
}

TEST_F(FieldRowsTest, AShiftedRowIsClampedInUnitsOfItsRecord) {
  rows_.Show(1, 65536);
  EXPECT_EQ(LabelText("Label1(1)"), "65535");
  rows_.Show(1, 40000);
  EXPECT_EQ(LabelText("Label1(1)"), "40000");
}

TEST_F(FieldRowsTest, AWholeRowTakesWhatItsBarCanHold) {
  rows_.SetOpen(2, true);
  for (const char* bad : {"4", "91", "x", ""}) {
    Enter("Text1(2)", bad);
    EXPECT_EQ(Written(), Writes{}) << bad;
  }
  Enter("Text1(2)", "6");
  EXPECT_EQ(Written(), (Writes{{2, 32, 6}}));
  Enter("Text1(2)", "90");
  EXPECT_EQ(Written(), (Writes{{2, 32, 90}}));
}

TEST_F(FieldRowsTest, AValueOfAnotherRecordIsShownAndSaysNothingOfAChange) {
  rows_.SetOpen(2, true);
  rows_.Fill(2, 91);
  EXPECT_EQ(LabelText("Label1(2)"), "91");
  EXPECT_EQ(BarOf("HScroll1(2)").Value(), 90);
  Enter("Text1(2)", "6");
  in_arrival_ = true;
  rows_.Fill(2, 7);
  in_arrival_ = false;
  EXPECT_EQ(BarOf("HScroll1(2)").Value(), 7);
  Focus("HScroll1(0)");
  EXPECT_EQ(BoxText("Text1(2)"), "7");
  EXPECT_EQ(rows_[2].echo().state(), EchoMark::State::kOnItsWay);
  EXPECT_EQ(Written(), (Writes{{2, 32, 6}}));
}

TEST_F(FieldRowsTest, RowsOpenByNode) {
  rows_.SetOpen(2, true);
  EXPECT_TRUE(Enabled("HScroll1(0)"));
  EXPECT_FALSE(Enabled("HScroll1(1)"));
  EXPECT_TRUE(Enabled("HScroll1(2)"));
  rows_.SetOpen(2, false);
  EXPECT_FALSE(Enabled("HScroll1(0)"));
}

TEST_F(FieldRowsTest, ARowThatStandsAloneHasPlainNames) {
  RowStyle alone = kStyle;
  alone.bar = {"HScroll9", kNoArray};
  alone.box = {"Text9", kNoArray};
  const FieldRows rows(&form(), alone, std::span(kClampedRows).first(1), in_arrival_);
  EXPECT_EQ(BarOf("HScroll9").maximum(), 16);
  EXPECT_EQ(BoxText("Text9"), "");
}

// Two rows of which a good entry closes the bar, as in the windows of prices.
class HeldRowsTest : public FormFixture {
 protected:
  HeldRowsTest() : rows_(Open(new Form("Rows")), kStyle, kTable, in_arrival_) {
    rows_.SetOpen(true);
    in_arrival_ = true;
    rows_.Show(0, 3);
    rows_.Show(1, 4);
    in_arrival_ = false;
  }
  Form* Open(Form* form) { return &FormFixture::Open(form); }

  static constexpr FieldRow kTable[] = {
      WholeRow({.line = 1, .node = 1, .record = 31, .mirror = 509, .max = 8, .length = 3}),
      WholeRow({.line = 2, .node = 1, .record = 32, .max = 8, .length = 3})};
  static constexpr RowStyle kStyle = {
      .caption = {"Label2"}, .value = {"Label1"}, .box = {"Text1"}, .bar = {"HScroll1"}, .held = true};
  bool in_arrival_ = false;
  FieldRows rows_;
};

TEST_F(HeldRowsTest, AGoodEntryAloneClosesTheBar) {
  for (const char* unchanged : {"x", "9", "3"}) {
    Enter("Text1(0)", unchanged);
    EXPECT_TRUE(Enabled("HScroll1(0)")) << unchanged;
    EXPECT_EQ(Written(), Writes{}) << unchanged;
    Focus("HScroll1(1)");
  }
  Enter("Text1(0)", "7");
  EXPECT_EQ(Written(), (Writes{{1, 31, 7}, {1, 509, 7}}));
  EXPECT_FALSE(Enabled("HScroll1(0)"));
  EXPECT_TRUE(Enabled("HScroll1(1)"));
}

TEST_F(HeldRowsTest, AnArrivalOpensTheBarAgainUnlessItMayNot) {
  Enter("Text1(0)", "7");
  rows_.LetEchoOpen(false);
  rows_.Show(0, 7);
  EXPECT_FALSE(Enabled("HScroll1(0)"));
  rows_.LetEchoOpen(true);
  rows_.Show(0, 7);
  EXPECT_TRUE(Enabled("HScroll1(0)"));
}

TEST_F(HeldRowsTest, ARowStandsAtWhatArrivedLastOrWasEntered) {
  EXPECT_EQ(rows_.Value(0), 3);
  Enter("Text1(0)", "7");
  EXPECT_EQ(rows_.Value(0), 7);
  rows_.Show(0, 5);
  EXPECT_EQ(rows_.Value(0), 5);
  BarOf("HScroll1(0)").SetValue(6);
  EXPECT_EQ(rows_.Value(0), 6);
  rows_.Show(0, 200);
  EXPECT_EQ(rows_.Value(0), 8) << "the most that its bar can hold";
}

TEST_F(HeldRowsTest, OnlyTheOperatorsWritesAreTold) {
  int changes = 0;
  rows_.WhenChanged([&changes] { ++changes; });
  in_arrival_ = true;
  rows_.Show(0, 1);
  in_arrival_ = false;
  Enter("Text1(0)", "1");
  Enter("Text1(0)", "99");
  EXPECT_EQ(changes, 0);
  Enter("Text1(0)", "2");
  EXPECT_EQ(changes, 1);
  BarOf("HScroll1(1)").SetValue(5);
  EXPECT_EQ(changes, 2);
}

TEST_F(HeldRowsTest, ATimeInTenthsEndsWithItsBar) {
  static constexpr FieldRow kTime[] = {
      TenthsRow({.node = 2, .record = 58, .min = 10, .max = 30, .length = 4})};
  FieldRows rows(&form(), {.caption = {"Label8"}, .value = {"Label9"}, .box = {"Text9"}, .bar = {"HScroll9"}},
                 kTime, in_arrival_);
  rows.SetOpen(true);
  rows.Show(0, 25);
  EXPECT_EQ(LabelText("Label9(0)"), "2.5");
  for (const char* bad : {"0.9", "3.1", "4"}) {
    Enter("Text9(0)", bad);
    EXPECT_EQ(Written(), Writes{}) << bad;
  }
  Enter("Text9(0)", "3");
  EXPECT_EQ(Written(), (Writes{{2, 58, 30}}));
}

}  // namespace
}  // namespace dosmara
