// SPDX-License-Identifier: GPL-3.0-or-later
// What all forms with amounts of money share: the decimals that the machine reports, and how amounts wait for
// them.
#include "fields/money.h"

#include "fields/data_form.h"
#include "forms/form_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;
using State = EchoMark::State;

constexpr FieldRow kAmounts[] = {
    MoneyRow({.line = 1, .record = 4, .mirror = 206}),
    {.line = 2, .record = 79, .mirror = 281, .max = 9999, .money = true, .limit = 9999, .length = 12},
    WholeRow({.line = 3, .record = 365, .max = 180, .length = 3}),
};

class MoneyForm : public DataForm {
 public:
  MoneyForm()
      : DataForm({.name = "MoneyForm", .title = 47}),
        rows(NewRows({.caption = {"Label2"}, .value = {"Label1"}, .box = {"Text1"}, .bar = {"HScroll1"}},
                     kAmounts, &money)) {
    auto* grid = new QGridLayout(Body());
    rows.PlaceInColumns(*grid, 1);
    Watch(money, Counts::kNo);
    Watch(rows, Counts::kYes);
    rows.SetOpen(true);
  }

  Money money;
  FieldRows& rows;
};

class MoneyTest : public FormFixture {
 protected:
  MoneyForm& OpenMoney() {
    auto* form = new MoneyForm;
    Open(form);
    Focus("HScroll1(2)");
    return *form;
  }
  // Another form has had a value from the machine already, and goes on polling it.
  void KeepFresh(int record, int value) {
    ParamRec& kept = ParamTable[0][record];
    kept.Value[0] = static_cast<std::uint8_t>(value);
    kept.Flags |= kArrived;
    kept.Subscribers = 1;
  }
  std::string Shows(int n) {
    EXPECT_EQ(BoxText(Element("Text1", n)), LabelText(Element("Label1", n)));
    return LabelText(Element("Label1", n));
  }
};

TEST_F(MoneyTest, DecimalsAreTheLowTwoBits) {
  Money money;
  EXPECT_FALSE(money.IsKnown());
  EXPECT_EQ(money.decimals(), 255);
  for (const int value : {0, 1, 2, 3, 4, 9, 254, 255}) {
    money.Show(0, value);
    EXPECT_TRUE(money.IsKnown());
    EXPECT_EQ(money.decimals(), value % 4);
  }
}

TEST_F(MoneyTest, TellsWhetherTheDecimalsHaveChanged) {
  for (const int first : {0, 1, 2, 3}) {
    Money money;
    int changes = 0;
    money.WhenChanged([&changes] { ++changes; });
    money.Show(0, first);
    EXPECT_EQ(changes, 1) << first;
    for (const int same : {first, first + 4, first + 252}) {
      money.Show(0, same);
      EXPECT_EQ(changes, 1) << same;
    }
    money.Show(0, (first + 1) % 4);
    EXPECT_EQ(changes, 2) << first;
  }
}

TEST_F(MoneyTest, TakesTheDecimalsThatAnotherFormKeepsFresh) {
  KeepFresh(311, 7);
  const Money money;
  EXPECT_TRUE(money.IsKnown());
  EXPECT_EQ(money.decimals(), 3);
}

TEST_F(MoneyTest, AnAmountIsNotShownBeforeItsDecimals) {
  OpenMoney();
  Arrive(0, 4, 40000);
  Arrive(0, 79, 9000);
  Arrive(0, 365, 90);
  EXPECT_EQ(Shows(0), "");
  EXPECT_EQ(Shows(1), "");
  EXPECT_EQ(Shows(2), "90");
  Arrive(0, 311, 2);
  EXPECT_EQ(Shows(0), "400.00");
  EXPECT_EQ(Shows(1), "90.00");
  EXPECT_EQ(Shows(2), "90");
  EXPECT_EQ(BarOf("HScroll1(0)").Value(), 7232);
  EXPECT_EQ(BarOf("HScroll1(1)").Value(), 9000);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(MoneyTest, DecimalsOfNoughtLetThemShowToo) {
  OpenMoney();
  Arrive(0, 4, 85);
  Arrive(0, 311, 0);
  EXPECT_EQ(Shows(0), "85");
}

TEST_F(MoneyTest, WhatHasNotArrivedIsNotDrawnWithTheDecimals) {
  KeepFresh(4, 85);
  OpenMoney();
  Arrive(0, 311, 2);
  EXPECT_EQ(Shows(0), "");
  Arrive(0, 4, 85);
  EXPECT_EQ(Shows(0), "0.85");
}

TEST_F(MoneyTest, ATypedAmountIsRefusedBeforeItsDecimals) {
  OpenMoney();
  for (const char* amount : {"1", "1,5", "0"}) {
    Enter("Text1(0)", amount);
    EXPECT_EQ(BoxText("Text1(0)"), "") << amount;
    Focus("HScroll1(2)");
  }
  EXPECT_EQ(Written(), Writes{});
  Enter("Text1(2)", "90");
  EXPECT_EQ(Written(), (Writes{{0, 365, 90}}));
  Arrive(0, 311, 2);
  Enter("Text1(0)", "1,5");
  EXPECT_EQ(Written(), (Writes{{0, 4, 150}, {0, 206, 150}}));
}

TEST_F(MoneyTest, DecimalsThatAnotherFormKeepsFreshAreThereFromTheStart) {
  KeepFresh(311, 254);
  const MoneyForm& form = OpenMoney();
  EXPECT_TRUE(form.money.IsKnown());
  Arrive(0, 4, 150);
  EXPECT_EQ(Shows(0), "1.50");
  Enter("Text1(1)", "2.5");
  EXPECT_EQ(Written(), (Writes{{0, 79, 250}, {0, 281, 250}}));
  Arrive(0, 311, 2);
  EXPECT_EQ(Shows(0), "1.50");
}

TEST_F(MoneyTest, DecimalsOfAnIndexFileAreNotTheMachines) {
  ParamTable[0][311].Value[0] = 3;
  const MoneyForm& form = OpenMoney();
  EXPECT_FALSE(form.money.IsKnown());
  Arrive(0, 4, 150);
  EXPECT_EQ(Shows(0), "");
}

TEST_F(MoneyTest, AChangeOfTheDecimalsRedrawsAllAmountsAtOnce) {
  OpenMoney();
  Arrive(0, 311, 2);
  Arrive(0, 4, 40000);
  Arrive(0, 79, 9000);
  Arrive(0, 365, 90);
  Arrive(0, 311, 7);
  EXPECT_EQ(Shows(0), "40.000");
  EXPECT_EQ(Shows(1), "9.000");
  EXPECT_EQ(Shows(2), "90");
  Arrive(0, 311, 4);
  EXPECT_EQ(Shows(0), "40000");
  EXPECT_EQ(Shows(1), "9000");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(MoneyTest, NoOtherBitRedrawsAnything) {
  OpenMoney();
  Arrive(0, 311, 2);
  Arrive(0, 4, 85);
  Find<QLabel>("Label1(0)").setText("as it was");
  for (const int bit : {4, 8, 16, 32, 64, 128}) {
    Arrive(0, 311, 2 + bit);
  }
  Arrive(0, 311, 2);
  EXPECT_EQ(LabelText("Label1(0)"), "as it was");
}

TEST_F(MoneyTest, AnAmountOnItsWayKeepsTheOldOneInTheNewScale) {
  MoneyForm& form = OpenMoney();
  Arrive(0, 311, 2);
  Arrive(0, 4, 85);
  Enter("Text1(0)", "1,5");
  Focus("HScroll1(2)");
  EXPECT_EQ(Written(), (Writes{{0, 4, 150}, {0, 206, 150}}));
  EXPECT_EQ(Shows(0), "0.85");
  Arrive(0, 311, 1);
  EXPECT_EQ(Shows(0), "8.5");
  EXPECT_EQ(form.rows[0].echo().state(), State::kOnItsWay);
  EXPECT_EQ(Written(), Writes{});
  Arrive(0, 4, 150);
  EXPECT_EQ(Shows(0), "15.0");
  EXPECT_EQ(form.rows[0].echo().state(), State::kTaken);
}

TEST_F(MoneyTest, AnEntryIsReadInTheScaleInForce) {
  OpenMoney();
  Arrive(0, 311, 2);
  Type("Text1(0)", "12");
  Arrive(0, 311, 1);
  PressEnter();
  EXPECT_EQ(Written(), (Writes{{0, 4, 120}, {0, 206, 120}}));
}

TEST_F(MoneyTest, EachRowHasItsOwnLimit) {
  OpenMoney();
  Arrive(0, 311, 0);
  Enter("Text1(1)", "10000");
  Enter("Text1(0)", "65536");
  Enter("Text1(0)", "1234567");
  EXPECT_EQ(Written(), Writes{});
  Enter("Text1(1)", "9999");
  EXPECT_EQ(Written(), (Writes{{0, 79, 9999}, {0, 281, 9999}}));
  Enter("Text1(0)", "10000");
  EXPECT_EQ(Written(), (Writes{{0, 4, 10000}, {0, 206, 10000}}));
  EXPECT_EQ(BarOf("HScroll1(0)").Value(), 10000 - 32768);
}

TEST_F(MoneyTest, ABoxTakesMoreThanIsRead) {
  OpenMoney();
  Arrive(0, 311, 3);
  Enter("Text1(0)", "00065,5359");
  EXPECT_EQ(Written(), (Writes{{0, 4, 65535}, {0, 206, 65535}}));
}

}  // namespace
}  // namespace dosmara
