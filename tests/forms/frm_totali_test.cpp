// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTotali: what the machine has taken and sold.
#include "controls/field_label.h"
#include "forms/form_fixture.h"
#include "link/identification.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

struct Total {
  int record;
  const char* value;
  const char* caption;
  int line;
  bool money;
};
constexpr Total kTotals[] = {
    {127, "Label4(0)", "Label1(0)", 131, true},  {123, "Label4(1)", "Label1(1)", 134, false},
    {332, "Label4(2)", "Label1(2)", 133, true},  {128, "Label3(0)", "Label2(0)", 131, true},
    {129, "Label3(1)", "Label2(1)", 132, true},  {130, "Label3(2)", "Label2(2)", 133, true},
    {124, "Label3(3)", "Label2(3)", 134, false}, {125, "Label3(4)", "Label2(4)", 135, false},
    {131, "Label3(5)", "Label2(5)", 136, false}, {126, "Label3(6)", "Label2(6)", 137, false},
    {336, "Label3(7)", "Label2(7)", 138, false}, {337, "Label3(8)", "Label2(8)", 139, false},
    {338, "Label3(9)", "Label2(9)", 140, false},
};
constexpr int kMoney[] = {127, 128, 129, 130, 332};

class Totals : public FormFixture {
 protected:
  void OpenWith(int model) {
    ModelCode = static_cast<std::int16_t>(model);
    Open("FrmTotali");
  }
  void SendMoney(double value) {
    for (const int record : kMoney) {
      Arrive(0, record, value);
    }
  }
  // What the amounts show: of 127, 128, 129, 130, and 332.
  std::vector<std::string> Amounts() {
    std::vector<std::string> amounts;
    for (const char* label : {"Label4(0)", "Label3(0)", "Label3(1)", "Label3(2)", "Label4(2)"}) {
      amounts.push_back(LabelText(label));
    }
    return amounts;
  }
  using Texts = std::vector<std::string>;
  static Texts Four(const std::string& text, const std::string& overpay) {
    return {text, text, text, text, overpay};
  }
  bool ShowsOverpayOfItsLife() { return Shown("Label1(2)") && Shown("Label4(2)"); }
  bool ShowsPreselections() {
    int shown = 0;
    for (int n = 7; n < 10; ++n) {
      shown += Shown(Element("Label2", n)) + Shown(Element("Label3", n));
    }
    EXPECT_TRUE(shown == 0 || shown == 6) << shown;
    return shown == 6;
  }
};

TEST_F(Totals, SubscribesItsRecordsOfTheMainBoard) {
  OpenWith(25);
  std::vector<Subscription> all;
  for (int record = 123; record <= 131; ++record) {
    all.push_back({0, record, 1});
  }
  for (const int record : {311, 332, 336, 337, 338}) {
    all.push_back({0, record, 1});
  }
  EXPECT_EQ(Subscribed(), all);
  Close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_F(Totals, CaptionsComeFromTheLanguage) {
  OpenWith(25);
  EXPECT_EQ(form().windowTitle(), "#15");
  EXPECT_EQ(Find("Frame1").property("title").toString(), "#129");
  EXPECT_EQ(Find("Frame2").property("title").toString(), "#130");
  for (const Total& total : kTotals) {
    EXPECT_EQ(LabelText(total.caption), "#" + std::to_string(total.line)) << total.caption;
  }
}

TEST_F(Totals, WhatNothingClearsStandsInAFrameOfItsOwn) {
  OpenWith(25);
  for (const Total& total : kTotals) {
    const char* frame = std::string(total.value).starts_with("Label4") ? "Frame1" : "Frame2";
    EXPECT_EQ(Find(total.value).parentWidget(), &Find(frame));
    EXPECT_EQ(Find(total.caption).parentWidget(), &Find(frame));
  }
}

TEST_F(Totals, EachRecordShowsOnItsLabelAlone) {
  OpenWith(25);
  Arrive(0, 311, 1);
  for (const Total& total : kTotals) {
    Arrive(0, total.record, total.record);
  }
  for (const Total& total : kTotals) {
    const std::string whole = std::to_string(total.record);
    EXPECT_EQ(LabelText(total.value), total.money ? whole.substr(0, 2) + "." + whole.substr(2) : whole);
  }
}

TEST_F(Totals, OtherRecordsAndOtherBoardsAreForeign) {
  OpenWith(25);
  Arrive(0, 311, 0);
  for (int record = 1; record <= kRecords; ++record) {
    for (int node = 1; node < 4; ++node) {
      Arrive(node, record, 5);
    }
    if (record < 123 || (record > 131 && record != 332 && (record < 336 || record > 338))) {
      Arrive(0, record, 5);
    }
  }
  for (const Total& total : kTotals) {
    EXPECT_EQ(LabelText(total.value), "") << total.value;
  }
}

TEST_F(Totals, CountsDoNotWaitForTheDecimals) {
  OpenWith(25);
  for (const Total& total : kTotals) {
    Arrive(0, total.record, 1234);
    EXPECT_EQ(LabelText(total.value), total.money ? "" : "1234") << total.value;
  }
}

TEST_F(Totals, AmountsAheadOfTheDecimalsWaitAndFourOfTheFiveAreDrawnByThemAsPrescribed) {
  OpenWith(25);
  SendMoney(150);
  EXPECT_EQ(Amounts(), Four("", ""));
  Arrive(0, 311, 2);
  EXPECT_EQ(Amounts(), Four("1.50", ""));
  Arrive(0, 332, 150);
  EXPECT_EQ(Amounts(), Four("1.50", "1.50"));
}

TEST_F(Totals, DecimalsAreTheLowTwoBits) {
  OpenWith(25);
  SendMoney(1234);
  const struct {
    int decimals;
    const char* shown;
  } cases[] = {{0, "1234"}, {1, "123.4"}, {2, "12.34"}, {3, "1.234"}, {7, "1.234"}, {4, "1234"}};
  for (const auto& each : cases) {
    Arrive(0, 311, each.decimals);
    EXPECT_EQ(Amounts(), Four(each.shown, "")) << each.decimals;
  }
}

TEST_F(Totals, NewDecimalsDrawFourAmountsAnewAndLeaveTheOverpayOfItsLifeAsPrescribed) {
  OpenWith(25);
  Arrive(0, 311, 2);
  SendMoney(150);
  Arrive(0, 311, 1);
  EXPECT_EQ(Amounts(), Four("15.0", "1.50"));
  Arrive(0, 332, 160);
  EXPECT_EQ(Amounts(), Four("15.0", "16.0"));
}

TEST_F(Totals, AmountsThatHaveNotArrivedAreNotDrawnByTheDecimals) {
  OpenWith(25);
  for (const int record : kMoney) {
    ParamTable[0][record].Value[0] = 99;  // of the index file
  }
  Arrive(0, 311, 2);
  EXPECT_EQ(Amounts(), Four("", ""));
}

TEST_F(Totals, DecimalsThatAnotherFormHasReadAreGood) {
  ParamTable[0][311].Value[0] = 2;
  ParamTable[0][311].Flags = kArrived | kWanted;
  ParamTable[0][311].Subscribers = 1;
  OpenWith(25);
  SendMoney(150);
  EXPECT_EQ(Amounts(), Four("1.50", "1.50"));
}

TEST_F(Totals, NoAmountIsDrawnWithDecimalsThatTheMachineHasNotTold) {
  OpenWith(25);
  ParamTable[0][311].Flags |= kArrived;
  SendMoney(150);
  EXPECT_EQ(Amounts(), Four("", ""));
}

TEST_F(Totals, InAReadingAmountsWaitForTheDecimalsAnew) {
  OpenWith(25);
  Arrive(0, 311, 2);
  SendMoney(150);
  Fire("Timer1");
  EXPECT_EQ(Amounts(), Four("1.50", "1.50"));
  SendMoney(275);
  EXPECT_EQ(Amounts(), Four("1.50", "1.50")) << "the decimals are not fresh";
  Arrive(0, 311, 1);
  EXPECT_EQ(Amounts(), Four("27.5", "1.50"));
  Arrive(0, 332, 275);
  EXPECT_EQ(Amounts(), Four("27.5", "27.5"));
}

TEST_F(Totals, AnAmountThatComesAfterTheDecimalsOfAReadingIsDrawnByItself) {
  OpenWith(25);
  Arrive(0, 311, 2);
  SendMoney(150);
  Fire("Timer1");
  Arrive(0, 311, 1);
  EXPECT_EQ(Amounts(), Four("1.50", "1.50"));
  SendMoney(150);
  EXPECT_EQ(Amounts(), Four("15.0", "15.0"));
}

TEST_F(Totals, ALargeAmountIsShownWhole) {
  OpenWith(25);
  for (const int record : kMoney) {
    ParamTable[0][record].Control = 3;
  }
  Arrive(0, 311, 2);
  SendMoney(1234567);
  EXPECT_EQ(Amounts(), Four("12345.67", "12345.67"));
  SendMoney(4294967295.0);
  EXPECT_EQ(Amounts(), Four("42949672.95", "42949672.95"));
  Arrive(0, 311, 0);
  EXPECT_EQ(Amounts(), Four("4294967295", "42949672.95"));
}

TEST_F(Totals, AnAmountOfNoughtIsQuiet) {
  OpenWith(25);
  Arrive(0, 311, 2);
  auto& value = Find<FieldLabel>("Label4(0)");
  for (const int amount : {0, 5}) {
    Arrive(0, 127, amount);
    const QImage as_shown = value.grab().toImage();
    value.SetQuiet(amount != 0);
    EXPECT_NE(value.grab().toImage(), as_shown) << amount;
  }
}

TEST_F(Totals, OnlyModel21ShowsTheOverpayOfItsLife) {
  for (const int model : {20, 21, 22, 23, 25}) {
    OpenWith(model);
    EXPECT_EQ(ShowsOverpayOfItsLife(), model == 21) << model;
    EXPECT_TRUE(Shown("Label4(1)"));
    EXPECT_EQ(Subscribed().size(), 14u) << "it is read all the same";
    Close();
  }
}

TEST_F(Totals, PreselectionsShowFromModel22On) {
  for (const int model : {20, 21, 22, 23, 25}) {
    OpenWith(model);
    EXPECT_EQ(ShowsPreselections(), model >= 22) << model;
    EXPECT_TRUE(Shown("Label3(6)"));
    EXPECT_EQ(Subscribed().size(), 14u);
    Close();
  }
}

// 1155 and 2535 twips, or what the lines need.
TEST_F(Totals, AFrameThatShowsLessHasItsHeight) {
  OpenWith(21);
  const int three_lines = Find("Frame1").height();
  Close();
  OpenWith(23);
  EXPECT_EQ(Find("Frame1").height(), 77);
  EXPECT_LT(Find("Frame1").height(), three_lines);
  const int ten_lines = Find("Frame2").height();
  Close();
  OpenWith(20);
  EXPECT_EQ(Find("Frame1").height(), 77);
  EXPECT_GE(Find("Frame2").height(), 169);
  EXPECT_EQ(Find("Frame2").minimumHeight(), 169);
  EXPECT_LT(Find("Frame2").height(), ten_lines);
}

}  // namespace
}  // namespace dosmara
