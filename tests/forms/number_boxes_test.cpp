// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers without bars, before and after their value has arrived.
#include "fields/number_boxes.h"

#include <QTest>

#include "fields/data_form.h"
#include "forms/form_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;
using State = EchoMark::State;

constexpr NumberBox kNumbers[] = {
    {.line = 1, .record = 50, .mirror = 252, .characters = 4, .largest = 9999},
    {.line = 2, .record = 51, .characters = 3, .largest = 240},
};

class Numbers : public DataForm {
 public:
  Numbers()
      : DataForm({.name = "Numbers", .title = 47}),
        numbers(NewNumberBoxes({"Label1", 2}, {"Text1", 2}, kNumbers)) {
    auto* grid = new QGridLayout(Body());
    numbers.PlaceIn(*grid);
    Watch(numbers, Counts::kNo);
  }

  NumberBoxes& numbers;
};

class NumberBoxesTest : public FormFixture {
 protected:
  NumberBoxesTest() {
    for (const int record : {50, 51}) {
      ParamTable[0][record].Value[0] = 77;  // what an index file says
    }
    Open(numbers_);
  }

  void Replace(const std::string& box, const std::string& text) {
    Focus(box);
    Find<QLineEdit>(box).setText(QString::fromStdString(text));
    PressEnter();
  }
  State Mark(int n) { return numbers_->numbers.mark(n).state(); }

  Numbers* numbers_ = new Numbers;
};

TEST_F(NumberBoxesTest, SubscribesTheRecordsAlone) {
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 50, 1}, {0, 51, 1}}));
}

TEST_F(NumberBoxesTest, CaptionsComeFromTheLanguage) {
  EXPECT_EQ(LabelText("Label1(2)"), "#1");
  EXPECT_EQ(LabelText("Label1(3)"), "#2");
  EXPECT_EQ(Find("Text1(3)").accessibleName(), "#2");
}

TEST_F(NumberBoxesTest, IsEmptyUntilTheNumberArrives) {
  EXPECT_EQ(BoxText("Text1(2)"), "");
  Arrive(0, 50, 0);
  EXPECT_EQ(BoxText("Text1(2)"), "0");
  EXPECT_EQ(BoxText("Text1(3)"), "");
}

TEST_F(NumberBoxesTest, WhatAnIndexFileSaysIsNeitherShownNorWritten) {
  for (const char* bad : {"", "x", "-5", "241", "999", "-1"}) {
    SCOPED_TRACE(bad);
    Replace("Text1(3)", bad);
    EXPECT_EQ(BoxText("Text1(3)"), "");
    EXPECT_EQ(Written(), Writes{});
    EXPECT_EQ(Mark(1), State::kNone);
  }
}

TEST_F(NumberBoxesTest, AGoodNumberNeedsNotWaitForTheOldOne) {
  Replace("Text1(3)", "240");
  EXPECT_EQ(Written(), (Writes{{0, 51, 240}}));
  EXPECT_EQ(Mark(1), State::kOnItsWay);
  Replace("Text1(3)", "x");
  EXPECT_EQ(BoxText("Text1(3)"), "240");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(NumberBoxesTest, EnterWritesTheRecordAndItsMirrorIfItHasOne) {
  Arrive(0, 50, 1);
  Arrive(0, 51, 1);
  Replace("Text1(2)", "9999");
  EXPECT_EQ(Written(), (Writes{{0, 50, 9999}, {0, 252, 9999}}));
  Focus("Text1(3)");
  Written();
  Replace("Text1(3)", "0");
  EXPECT_EQ(Written(), (Writes{{0, 51, 0}}));
}

TEST_F(NumberBoxesTest, ANumberAboveItsLimitWritesTheOneInForceAgain) {
  Arrive(0, 51, 120);
  Replace("Text1(3)", "241");
  EXPECT_EQ(BoxText("Text1(3)"), "120");
  EXPECT_EQ(Written(), (Writes{{0, 51, 120}}));
}

TEST_F(NumberBoxesTest, LeavingABoxConfirmsAndEscapeGivesUp) {
  Arrive(0, 50, 5);
  Focus("Text1(2)");
  Find<QLineEdit>("Text1(2)").setText("6");
  QTest::keyClick(&Find("Text1(2)"), Qt::Key_Escape);
  EXPECT_EQ(BoxText("Text1(2)"), "5");
  EXPECT_EQ(Written(), Writes{});
  Find<QLineEdit>("Text1(2)").setText("6");
  Focus("Text1(3)");
  EXPECT_EQ(Written(), (Writes{{0, 50, 6}, {0, 252, 6}}));
}

TEST_F(NumberBoxesTest, LeavingABoxWhoseNumberHasNotArrivedWritesNothing) {
  Focus("Text1(2)");
  Focus("Text1(3)");
  Focus("Text1(2)");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(NumberBoxesTest, TheMarkTellsWhatHasBecomeOfTheNumber) {
  Arrive(0, 51, 5);
  Replace("Text1(3)", "6");
  EXPECT_EQ(Mark(1), State::kOnItsWay);
  EXPECT_EQ(Mark(0), State::kNone);
  Arrive(0, 51, 6);
  EXPECT_EQ(Mark(1), State::kTaken);
  Replace("Text1(3)", "7");
  Arrive(0, 51, 8);
  EXPECT_EQ(Mark(1), State::kNotTaken);
  EXPECT_EQ(BoxText("Text1(3)"), "8");
}

TEST_F(NumberBoxesTest, AnArrivalReplacesWhatIsBeingTyped) {
  Type("Text1(3)", "12");
  Arrive(0, 51, 99);
  EXPECT_EQ(BoxText("Text1(3)"), "99");
  Type("Text1(3)", "1");
  EXPECT_EQ(BoxText("Text1(3)"), "1");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(NumberBoxesTest, ClosingConfirmsNothing) {
  Arrive(0, 51, 5);
  Focus("Text1(3)");
  Find<QLineEdit>("Text1(3)").setText("6");
  Close();
  EXPECT_EQ(Written(), Writes{});
}

}  // namespace
}  // namespace dosmara
