// SPDX-License-Identifier: GPL-3.0-or-later
// The mechanics of forms with records, on a small form made for it.
#include "fields/data_form.h"

#include <QApplication>
#include <stdexcept>

#include "fields/bit_rows.h"
#include "fields/field_helpers.h"
#include "forms/form_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

constexpr FieldRow kRows[] = {
    {.line = 48,
     .node = 1,
     .record = 31,
     .mirror = 509,
     .max = 100,
     .text = TenthsText,
     .parse = ParseTenths,
     .limit = 100,
     .length = 4},
    {.line = 230,
     .node = 2,
     .record = 31,
     .min = -32768,
     .max = 32767,
     .large_change = 100,
     .offset = 32768,
     .text = WholeText,
     .parse = ParseWhole,
     .limit = 65535,
     .length = 5},
};

constexpr Records kMirrors[] = {{1, 509}};

// Loads with the third counted arrival.
class TwoRows : public DataForm {
 public:
  explicit TwoRows(Gate::WhileLoading while_loading = Gate::WhileLoading::kStored)
      : DataForm({.name = "TwoRows", .title = 47, .opens_after = 2, .also_released = kMirrors}),
        gate{.record = 312, .while_loading = while_loading},
        rows(NewRows(
            {.caption = {"Label2"}, .value = {"Label1", 1}, .box = {"Text1", 1}, .bar = {"HScroll1", 1}},
            kRows)) {
    auto* grid = new QGridLayout(Body());
    rows.PlaceInColumns(*grid, 1);
    Watch(rows);
    Watch(gate, [this] { ++followed; });
    Listen(3, 31, [this](double value) {
      last = value;
      in_arrival = InArrival;
    });
    rows.SetOpen(true);
  }
  void Loaded() override { ++loaded; }
  bool IsLoading() const { return Loading; }
  bool IsInArrival() const { return InArrival; }

  Gate gate;
  FieldRows& rows;
  int followed = 0;
  int loaded = 0;
  double last = -1;
  bool in_arrival = false;
};

class DataFormTest : public FormFixture {
 protected:
  TwoRows& OpenTwoRows(Gate::WhileLoading while_loading = Gate::WhileLoading::kStored) {
    auto* form = new TwoRows(while_loading);
    FormFixture::Open(form);
    return *form;
  }
};

TEST_F(DataFormTest, AFormWithoutALineOfTheLanguageHasItsDefaultTitle) {
  EXPECT_EQ(OpenTwoRows().windowTitle(), "#47");
  Open(new DataForm({.name = "Untitled", .default_title = "Untitled form"}));
  EXPECT_EQ(form().windowTitle(), "Untitled form");
}

TEST_F(DataFormTest, ARowIsTakenFromItsTable) {
  OpenTwoRows();
  EXPECT_EQ(LabelText("Label2(0)"), "#48");
  EXPECT_EQ(LabelText("Label2(1)"), "#230");
  EXPECT_EQ(BarOf("HScroll1(2)").minimum(), -32768);
  EXPECT_EQ(BarOf("HScroll1(2)").pageStep(), 100);
  EXPECT_EQ(BarOf("HScroll1(1)").pageStep(), 1);
  EXPECT_EQ(Find<QLineEdit>("Text1(2)").maxLength(), 5);
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 312, 1}, {1, 31, 1}, {2, 31, 1}}));
}

// A form that cannot bear an arrival.
class ThrowingForm : public Form {
 public:
  ThrowingForm() : Form("ThrowingForm") {}
  void SLabelChange(std::int32_t /*index*/, double /*value*/) override { throw std::runtime_error("cannot"); }
};

TEST_F(DataFormTest, WhatAFormThrowsEndsItsTest) {
  FormFixture::Open(new ThrowingForm);
  EXPECT_THROW(Arrive(1, 31, 25), std::runtime_error);
}

// Counts how often its rule has run.
class HearsAll : public DataForm {
 public:
  HearsAll() : DataForm({.name = "HearsAll", .title = 47, .hears_all = true}) {
    Watch(1, 31, [](double) {});
  }
  void AfterArrival() override { ++arrivals; }

  int arrivals = 0;
};

TEST_F(DataFormTest, AForeignArrivalRunsARuleOnceAfterEachRequestOfAnyForm) {
  auto* form = new HearsAll;
  FormFixture::Open(form);
  Arrive(2, 7, 0);  // it has subscribed
  EXPECT_EQ(form->arrivals, 1);
  Arrive(2, 7, 1);
  EXPECT_EQ(form->arrivals, 1);
  PutRecord(3, 8, 5);  // from somebody else
  Arrive(2, 7, 2);
  Arrive(2, 7, 3);
  EXPECT_EQ(form->arrivals, 2);
  Subscribe({3, 8});
  Arrive(2, 7, 4);
  EXPECT_EQ(form->arrivals, 3);
  Unsubscribe({3, 8});
  Arrive(2, 7, 5);
  EXPECT_EQ(form->arrivals, 4);
}

TEST_F(DataFormTest, EachArrivalOfItsOwnRunsARule) {
  auto* form = new HearsAll;
  FormFixture::Open(form);
  Arrive(1, 31, 0);
  Arrive(1, 31, 0);
  EXPECT_EQ(form->arrivals, 2);
}

TEST(GateRecordDeathTest, ABoardWithoutAGateStops) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EQ(GateRecord(1), 312);
  EXPECT_EQ(GateRecord(2), 313);
  EXPECT_EQ(GateRecord(3), 357);
  for (const int node : {-1, 0, 4}) {
    EXPECT_EXIT(GateRecord(node), testing::ExitedWithCode(kStopExitCode), "GateRecord: only the boards")
        << node;
  }
}

TEST_F(DataFormTest, TheNodeTellsEqualRecordsApart) {
  OpenTwoRows();
  Arrive(1, 31, 25);
  EXPECT_EQ(LabelText("Label1(1)"), "2.5");
  EXPECT_EQ(LabelText("Label1(2)"), "");
  Arrive(2, 31, 40000);
  EXPECT_EQ(LabelText("Label1(1)"), "2.5");
  EXPECT_EQ(LabelText("Label1(2)"), "40000");
  EXPECT_EQ(BarOf("HScroll1(2)").Value(), 7232);
}

TEST_F(DataFormTest, AChangeWritesTheRecordAndThenItsMirror) {
  OpenTwoRows();
  BarOf("HScroll1(1)").SetValue(77);
  EXPECT_EQ(Written(), (Writes{{1, 31, 77}, {1, 509, 77}}));
  EXPECT_EQ(ParamScratch, 77);
}

TEST_F(DataFormTest, ARowWithoutAMirrorIsWrittenOnceAndWithItsOffset) {
  OpenTwoRows();
  BarOf("HScroll1(2)").SetValue(-32768 + 5);
  EXPECT_EQ(Written(), (Writes{{2, 31, 5}}));
  Enter("Text1(2)", "65535");
  EXPECT_EQ(Written(), (Writes{{2, 31, 65535}}));
  Enter("Text1(2)", "65536");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(DataFormTest, AnArrivalWritesNothing) {
  OpenTwoRows();
  Arrive(1, 31, 25);
  Arrive(1, 31, 26);
  EXPECT_EQ(BarOf("HScroll1(1)").Value(), 26);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(DataFormTest, OnlyTheReturnOfAWriteIsMarked) {
  TwoRows& form = OpenTwoRows();
  const EchoMark& mark = form.rows[0].echo();
  Arrive(1, 31, 0);
  EXPECT_EQ(mark.state(), EchoMark::State::kNone);
  BarOf("HScroll1(1)").SetValue(7);
  EXPECT_EQ(mark.state(), EchoMark::State::kOnItsWay);
  Arrive(1, 31, 7);
  EXPECT_EQ(mark.state(), EchoMark::State::kTaken);
  BarOf("HScroll1(1)").SetValue(8);
  Arrive(1, 31, 7);
  EXPECT_EQ(mark.state(), EchoMark::State::kNotTaken);
}

TEST_F(DataFormTest, TheGuardHoldsForTheWholeArrivalAndNoLonger) {
  TwoRows& form = OpenTwoRows();
  Arrive(3, 31, 6);
  EXPECT_EQ(form.last, 6);
  EXPECT_TRUE(form.in_arrival);
  EXPECT_FALSE(form.IsInArrival());
}

TEST_F(DataFormTest, TheSameValueIsHeardTwice) {
  TwoRows& form = OpenTwoRows();
  Arrive(3, 31, 6);
  form.last = -1;
  Arrive(3, 31, 6);
  EXPECT_EQ(form.last, 6);
}

TEST_F(DataFormTest, LoadsOnceWhenMoreArrivalsThanTheThresholdHaveCounted) {
  TwoRows& form = OpenTwoRows();
  Arrive(1, 31, 1);
  Arrive(2, 31, 1);
  Arrive(3, 31, 1);
  EXPECT_TRUE(form.IsLoading());
  Arrive(1, 31, 1);
  EXPECT_FALSE(form.IsLoading());
  EXPECT_EQ(form.loaded, 1);
  for (int i = 0; i < 9; ++i) {
    Arrive(1, 31, 1);
  }
  EXPECT_EQ(form.loaded, 1);
}

TEST_F(DataFormTest, AGateIsStoredWhileLoading) {
  TwoRows& form = OpenTwoRows();
  Arrive(0, 312, 3);
  EXPECT_FALSE(form.gate.Open());
  Arrive(0, 312, 3);
  Arrive(0, 312, 4);
  EXPECT_FALSE(form.IsLoading());
  EXPECT_TRUE(form.gate.Open());
  EXPECT_EQ(form.followed, 0);
}

TEST_F(DataFormTest, AGateMayBeIgnoredWhileLoading) {
  TwoRows& form = OpenTwoRows(Gate::WhileLoading::kIgnored);
  for (int i = 0; i < 3; ++i) {
    Arrive(0, 312, 0);
  }
  EXPECT_FALSE(form.IsLoading());
  EXPECT_TRUE(form.gate.Open());
  Arrive(0, 312, 0);
  EXPECT_FALSE(form.gate.Open());
  EXPECT_EQ(form.followed, 1);
}

TEST_F(DataFormTest, AGateMayCountOnlyItsChanges) {
  TwoRows& form = OpenTwoRows(Gate::WhileLoading::kCountsChanges);
  for (int i = 0; i < 9; ++i) {
    Arrive(0, 312, 255);
  }
  EXPECT_TRUE(form.IsLoading());
  Arrive(0, 312, 0);
  Arrive(0, 312, 4);
  Arrive(0, 312, 0);
  EXPECT_FALSE(form.IsLoading());
}

TEST_F(DataFormTest, AGateMayBeFollowedWhileLoadingAndCountItsChanges) {
  TwoRows& form = OpenTwoRows(Gate::WhileLoading::kFollowedAndCounted);
  for (int i = 0; i < 9; ++i) {
    Arrive(0, 312, 255);
  }
  EXPECT_EQ(form.followed, 0);
  Arrive(0, 312, 0);
  EXPECT_EQ(form.followed, 1);
  Arrive(0, 312, 4);
  Arrive(0, 312, 4);
  EXPECT_EQ(form.followed, 2);
  EXPECT_TRUE(form.IsLoading());
  Arrive(0, 312, 0);
  EXPECT_FALSE(form.IsLoading());
}

TEST_F(DataFormTest, AGateThatIsFollowedWhileLoadingMayCountNothing) {
  TwoRows& form = OpenTwoRows(Gate::WhileLoading::kFollowed);
  for (const int flags : {0, 4, 0, 4}) {
    Arrive(0, 312, flags);
  }
  EXPECT_EQ(form.followed, 4);
  EXPECT_TRUE(form.IsLoading());
}

TEST_F(DataFormTest, AfterLoadingAGateFollowsItsChangesOnly) {
  TwoRows& form = OpenTwoRows();
  for (int i = 0; i < 3; ++i) {
    Arrive(0, 312, 4);
  }
  Arrive(0, 312, 4);
  EXPECT_EQ(form.followed, 0);
  Arrive(0, 312, 0);
  Arrive(0, 312, 0);
  Arrive(0, 312, 4);
  EXPECT_EQ(form.followed, 2);
}

TEST_F(DataFormTest, ClosingReleasesTheMirrorsToo) {
  ParamTable[1][509].Subscribers = 2;
  OpenTwoRows();
  Close();
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{1, 509, 1}}));
}

TEST_F(DataFormTest, GivesNoFocusOnceTheOperatorHasBeenIn) {
  OpenTwoRows();
  Focus("HScroll1(2)");
  Arrive(1, 31, 1);
  Find("HScroll1(2)").clearFocus();
  for (int i = 0; i < 3; ++i) {
    Arrive(1, 31, 1);
  }
  EXPECT_EQ(QApplication::focusWidget(), nullptr);
}

TEST_F(DataFormTest, ABoxWithTheFocusOutlivesNoForm) {
  OpenTwoRows();
  Type("Text1(1)", "9");
  delete &form();
}

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

TEST(ArrivalMap, KnowsARecordOfItsNodeAlone) {
  ArrivalMap map;
  map.Set(1, 31, 7);
  EXPECT_EQ(map.Find(1, 31), 7);
  for (const int node : {0, 2, 3}) {
    EXPECT_EQ(map.Find(node, 31), ArrivalMap::kForeign);
  }
  for (const int index : {-1, 0, 30, 32, 33000}) {
    EXPECT_EQ(map.Find(1, index), ArrivalMap::kForeign);
  }
  map.Set(1, 31, 8);
  EXPECT_EQ(map.Find(1, 31), 8);
  map.Clear();
  EXPECT_EQ(map.Find(1, 31), ArrivalMap::kForeign);
}

TEST(RecordsTest, BitsOfARecordThatIsTooWideAreItsLowOnes) {
  EXPECT_EQ(LowBits(0), 0);
  EXPECT_EQ(LowBits(255), 255);
  EXPECT_EQ(LowBits(4294967295.0), 2147483647);
  EXPECT_EQ(LowBits(4294967300.0), 4);
  EXPECT_EQ(LowBits(18446744073709551616.0), 0);
}

}  // namespace
}  // namespace dosmara
