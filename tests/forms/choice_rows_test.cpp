// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that are one of several, on a table made for the test.
#include "fields/choice_rows.h"

#include <QTest>

#include "fields/data_form.h"
#include "forms/form_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using State = EchoMark::State;
using Writes = std::vector<Write>;

enum { kKind, kSystem, kPoint };

// A whole record; the bits 2 and 4 of one; a record that is read back from another one.
constexpr ChoiceRow kChoices[] = {
    {.caption_name = "Label4",
     .control_name = "SlswitchX1",
     .line = 205,
     .words = "a, b, c, d, e, f",
     .written = {2, 77, 279},
     .position = [](int value, int count) { return value < count ? value : -1; }},
    {.caption_name = "Label9",
     .control_name = "SlswitchX5",
     .line = 199,
     .words = "none, two, four",
     .written = {0, 84, 286},
     .mask = 6,
     .position = [](int value, int) { return (value & 6) / 2; },
     .bits = [](int position) { return 2 * position; }},
    {.caption_name = "Label5",
     .control_name = "SlswitchX2",
     .line = 206,
     .words = "0, 1, 2, 3",
     .written = {0, 76, 0},
     .read = 311,
     .position = [](int value, int) { return value & 3; }},
};

class ChoiceForm : public DataForm {
 public:
  ChoiceForm() : DataForm({.name = "ChoiceForm"}), choices(NewChoices(kChoices)) {
    auto* grid = new QGridLayout(Body());
    for (int n = 0; n < choices.size(); ++n) {
      choices.PlaceIn(*grid, n, n, 0);
    }
    Watch(choices, Counts::kYes);
    choices.SetEnabled(true);
  }
  ChoiceRows& choices;
};

class ChoiceRowsTest : public FormFixture {
 protected:
  ChoiceRowsTest() : choices_(OpenForm()) {}

  Selector& Control(int n) { return choices_.control(n); }
  // The operator chooses the last position, or the one before it.
  void ChooseLast(int n) { QTest::keyClick(&Control(n), Qt::Key_End); }
  void ChooseBefore(int n) { QTest::keyClick(&Control(n), Qt::Key_Left); }
  // What has been written goes over the line, and the machine's answer is not here yet.
  void Leave(int record) {
    Written();
    ParamTable[0][record].Flags |= kArrived;
  }

  ChoiceRows& choices_;

 private:
  ChoiceRows& OpenForm() {
    auto* form = new ChoiceForm;
    Open(form);
    return form->choices;
  }
};

TEST_F(ChoiceRowsTest, AChoiceIsNamedCaptionedAndLaidOutFromItsTable) {
  EXPECT_EQ(choices_.size(), 3);
  EXPECT_EQ(LabelText("Label4"), "#205");
  EXPECT_EQ(LabelText("Label9"), "#199");
  EXPECT_EQ(Find<Selector>("SlswitchX5").accessibleName(), "#199");
  EXPECT_EQ(Find<Selector>("SlswitchX1").PositionCount(), 6);
  EXPECT_LT(Find("Label9").x(), Find("SlswitchX5").x());
  EXPECT_LT(Find("SlswitchX5").x(), choices_.mark(kSystem).x());
}

TEST_F(ChoiceRowsTest, HearsTheRecordThatTellsThePositionAndNotTheOneWritten) {
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 84, 1}, {0, 311, 1}, {2, 77, 1}}));
}

TEST_F(ChoiceRowsTest, NoPositionIsShownUntilOneHasArrived) {
  for (int n = 0; n < 3; ++n) {
    EXPECT_FALSE(Control(n).IsKnown()) << n;
  }
  Arrive(2, 77, 0);
  EXPECT_TRUE(Control(kKind).IsKnown());
}

TEST_F(ChoiceRowsTest, AnArrivalIsShownAndWritesNothing) {
  Arrive(2, 77, 4);
  EXPECT_EQ(Control(kKind).Position(), 4);
  Arrive(2, 77, 6);
  EXPECT_EQ(Control(kKind).Position(), 4) << "a position that there is not";
  Arrive(0, 84, 0b11111100);
  EXPECT_EQ(Control(kSystem).Position(), 2);
  Arrive(0, 76, 3);
  EXPECT_FALSE(Control(kPoint).IsKnown());
  Arrive(0, 311, 0b11111101);
  EXPECT_EQ(Control(kPoint).Position(), 1);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(ChoiceRowsTest, AChoiceIsWrittenToItsRecordAndItsMirror) {
  Arrive(2, 77, 0);
  ChooseLast(kKind);
  EXPECT_EQ(Written(), (Writes{{2, 77, 5}, {2, 279, 5}}));
  ChooseLast(kKind);
  EXPECT_EQ(Written(), Writes{});
  Arrive(0, 311, 0);
  ChooseLast(kPoint);
  EXPECT_EQ(Written(), (Writes{{0, 76, 3}}));
}

TEST_F(ChoiceRowsTest, AWholeRecordCanBeChosenBeforeItHasArrived) {
  QTest::keyClick(&Control(kKind), Qt::Key_Home);
  EXPECT_EQ(Written(), (Writes{{2, 77, 0}, {2, 279, 0}}));
}

TEST_F(ChoiceRowsTest, TheOtherBitsOfTheRecordStay) {
  Arrive(0, 84, 0b11111011);
  ChooseLast(kSystem);
  EXPECT_EQ(Written(), (Writes{{0, 84, 0b11111101}, {0, 286, 0b11111101}}));
  ChooseBefore(kSystem);
  EXPECT_EQ(Written(), (Writes{{0, 84, 0b11111011}, {0, 286, 0b11111011}}));
}

TEST_F(ChoiceRowsTest, BitsThatAnotherFormHasOnTheirWayStay) {
  Arrive(0, 84, 1);
  PutRecord(0, 84, 0b10000001);
  ChooseLast(kSystem);
  EXPECT_EQ(Written(), (Writes{{0, 84, 0b10000101}, {0, 286, 0b10000101}}));
}

TEST_F(ChoiceRowsTest, BitsAreNotWrittenBeforeTheOthersAreKnown) {
  for (int times = 0; times < 2; ++times) {
    ChooseLast(kSystem);
    EXPECT_FALSE(Control(kSystem).IsKnown());
  }
  EXPECT_EQ(Written(), Writes{});
  EXPECT_EQ(choices_.mark(kSystem).state(), State::kNone);
}

TEST_F(ChoiceRowsTest, MarksWhatBecomesOfAChoice) {
  Arrive(2, 77, 0);
  EXPECT_EQ(choices_.mark(kKind).state(), State::kNone);
  ChooseLast(kKind);
  EXPECT_EQ(choices_.mark(kKind).state(), State::kOnItsWay);
  Arrive(2, 77, 5);
  EXPECT_EQ(choices_.mark(kKind).state(), State::kTaken);
  ChooseBefore(kKind);
  Arrive(2, 77, 5);
  EXPECT_EQ(choices_.mark(kKind).state(), State::kNotTaken);
  EXPECT_EQ(choices_.mark(kSystem).state(), State::kNone);
}

TEST_F(ChoiceRowsTest, AnOldPositionSaysNothingUntilTheChangeHasLeft) {
  Arrive(0, 311, 0);
  ChooseLast(kPoint);
  Arrive(0, 311, 0);
  EXPECT_EQ(Control(kPoint).Position(), 0);
  EXPECT_EQ(choices_.mark(kPoint).state(), State::kOnItsWay);
  Leave(76);
  Arrive(0, 311, 3);
  EXPECT_EQ(choices_.mark(kPoint).state(), State::kTaken);
  ChooseBefore(kPoint);
  Leave(76);
  Arrive(0, 311, 0);
  EXPECT_EQ(choices_.mark(kPoint).state(), State::kNotTaken);
}

TEST_F(ChoiceRowsTest, OtherPositionsShowWhatHasArrivedAnewAndWriteNothing) {
  Arrive(2, 77, 4);
  choices_.SetWords(kKind, "a, b");
  EXPECT_EQ(Control(kKind).PositionCount(), 2);
  EXPECT_EQ(Control(kKind).Position(), 0);
  choices_.SetWords(kKind, "a, b, c, d, e, f, g");
  EXPECT_EQ(Control(kKind).Position(), 4);
  EXPECT_EQ(Written(), Writes{});
  choices_.SetWords(kSystem, "x, y, z");
  EXPECT_FALSE(Control(kSystem).IsKnown());
}

TEST_F(ChoiceRowsTest, OtherPositionsLeaveTheMarkAlone) {
  Arrive(2, 77, 0);
  ChooseLast(kKind);
  choices_.SetWords(kKind, "a, b, c, d, e, f, g");
  EXPECT_EQ(choices_.mark(kKind).state(), State::kOnItsWay);
}

TEST_F(ChoiceRowsTest, EachIsOpenedAndClosedByItself) {
  choices_.SetEnabled(kSystem, false);
  EXPECT_FALSE(Enabled("Label9"));
  EXPECT_FALSE(Enabled("SlswitchX5"));
  EXPECT_TRUE(Enabled("Label5"));
  EXPECT_TRUE(Enabled("SlswitchX2"));
  choices_.SetEnabled(kSystem, true);
  EXPECT_TRUE(Enabled("Label9"));
  EXPECT_TRUE(Enabled("SlswitchX5"));
}

}  // namespace
}  // namespace dosmara
