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
     .parse = ParseTenthsUpTo,
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

// Opens with the third counted arrival.
class TwoRows : public DataForm {
 public:
  explicit TwoRows(const Gate& its_gate = {.record = 312})
      : DataForm({.name = "TwoRows", .title = 47, .opens_with = 3, .also_released = kMirrors}),
        gate(its_gate),
        rows(NewRows(
            {.caption = {"Label2"}, .value = {"Label1", 1}, .box = {"Text1", 1}, .bar = {"HScroll1", 1}},
            kRows)) {
    auto* grid = new QGridLayout(Body());
    rows.PlaceInColumns(*grid, 1);
    Watch(rows, Counts::kYes);
    Follow(gate, [this] { ++followed; });
    HearEcho(3, 31, [this](double value) {
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
  TwoRows& OpenTwoRows(const Gate& gate = {.record = 312}) {
    auto* form = new TwoRows(gate);
    FormFixture::Open(form);
    return *form;
  }
};

TEST_F(DataFormTest, ATitleComesFromTheLanguageUnlessTheFormSetsItItself) {
  EXPECT_EQ(OpenTwoRows().windowTitle(), "#47");
  auto* untitled = new DataForm({.name = "Untitled"});
  untitled->setWindowTitle("Untitled form");
  Open(untitled);
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
    Hear(1, 31, Counts::kNo, [](double) {});
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
  EXPECT_FALSE(form.gate.IsOpen());
  Arrive(0, 312, 3);
  Arrive(0, 312, 4);
  EXPECT_FALSE(form.IsLoading());
  EXPECT_TRUE(form.gate.IsOpen());
  EXPECT_EQ(form.followed, 0);
}

TEST_F(DataFormTest, AGateMayBeIgnoredWhileLoading) {
  TwoRows& form = OpenTwoRows({.record = 312, .stored = false});
  for (int i = 0; i < 3; ++i) {
    Arrive(0, 312, 0);
  }
  EXPECT_FALSE(form.IsLoading());
  EXPECT_TRUE(form.gate.IsOpen());
  Arrive(0, 312, 0);
  EXPECT_FALSE(form.gate.IsOpen());
  EXPECT_EQ(form.followed, 1);
}

TEST_F(DataFormTest, AGateMayCountOnlyItsChanges) {
  TwoRows& form = OpenTwoRows({.record = 312, .counted = Gate::Counted::kChange});
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
  TwoRows& form = OpenTwoRows({.record = 312, .counted = Gate::Counted::kChange, .followed = true});
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
  TwoRows& form = OpenTwoRows({.record = 312, .counted = Gate::Counted::kNone, .followed = true});
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

}  // namespace
}  // namespace dosmara
