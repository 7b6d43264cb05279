// SPDX-License-Identifier: GPL-3.0-or-later
// FrmPrezzi: fifty prices in two runs of records, and the switch that makes the first one hold for all.
#include "forms/price_rows_fixture.h"
#include "forms/row_cases.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

constexpr int kPrices = 50;

// The record of price n, counted from 0: 12 to 41, then 367 to 386.
int Record(int n) { return n < 30 ? 12 + n : 367 + (n - 30); }

// Two decimals; each price can be told from the others.
FormRows PriceRows() {
  FormRows form = {.form = "FrmPrezzi", .opens = {{0, 311, 2}, {0, 83, 0}}, .closes = {}, .rows = {}};
  for (int n = 0; n < kPrices; ++n) {
    form.rows.push_back({.caption = Element("Label11", n),
                         .value = Element("Label1", n),
                         .box = Element("Text1", n),
                         .bar = Element("HScroll1", n),
                         .words = "#115 " + std::to_string(n + 1),
                         .node = 0,
                         .record = Record(n),
                         .mirror = n < 30 ? 214 + n : 0,
                         .min = -32768,
                         .max = 32767,
                         .large_change = 100,
                         .length = 12,
                         .offset = 32768,
                         .arrivals = {{110 + n, "1." + std::to_string(10 + n), 110 + n - 32768},
                                      {0, "0.00", -32768},
                                      {5, "0.05", -32763},
                                      {32768, "327.68", 0},
                                      {40000, "400.00", 7232},
                                      {65535, "655.35", 32767},
                                      {65536, "655.35", 32767}},
                         .good = {{"2,5", 250},
                                  {"12,34", 1234},
                                  {"1.555x", 155},
                                  {",5", 50},
                                  {"0", 0},
                                  {"2", 200},
                                  {"655,35", 65535}},
                         .bad = {"", ",", "1a", "-1", "655.36", "656", "1,x", "1,5x", "OFF", "1234567"},
                         .closed_box_stays = true,
                         .held = true});
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmPrezzi, EachRow, testing::Values(PriceRows()));

class FrmPrezziTest : public PriceRowsFixture {
 protected:
  FrmPrezziTest() { Open("FrmPrezzi"); }

  // Sends price n as 100 + n, for all but the records in `missing`.
  void SendPrices(const std::vector<int>& missing = {}) {
    for (int n = 0; n < kPrices; ++n) {
      if (std::find(missing.begin(), missing.end(), Record(n)) == missing.end()) {
        Arrive(0, Record(n), 100 + n);
      }
    }
  }
  // The form with two decimals, options 0 and all prices there; the switch has the focus.
  void Fill(int decimals = 2) {
    Arrive(0, 311, decimals);
    Arrive(0, 83, 0);
    SendPrices();
    Focus("Switch1");
  }
  // Closes the form and opens it anew.
  void Reopen() {
    Close();
    Open("FrmPrezzi");
  }
};

TEST_F(FrmPrezziTest, SubscribesDecimalsOptionsAndBothRunsOfPrices) {
  std::vector<Subscription> expected;
  for (int record = 12; record <= 41; ++record) {
    expected.push_back({0, record, 1});
  }
  expected.push_back({0, 83, 1});
  expected.push_back({0, 311, 1});
  for (int record = 367; record <= 386; ++record) {
    expected.push_back({0, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmPrezziTest, CaptionsComeFromTheLanguage) {
  EXPECT_EQ(form().windowTitle(), "#9");
  EXPECT_EQ(LabelText("Label2"), "#116");
  EXPECT_EQ(Find("Switch1").accessibleName(), "#116");
}

TEST_F(FrmPrezziTest, OpensLockedAndWithoutValues) {
  EXPECT_FALSE(Enabled("Switch1"));
  EXPECT_FALSE(Find<TwoPositionSwitch>("Switch1").IsKnown());
  for (int n = 0; n < kPrices; ++n) {
    EXPECT_FALSE(BarOpen(n));
    EXPECT_FALSE(Enabled(Element("Text1", n)));
    EXPECT_EQ(Shows(n), "");
  }
}

TEST_F(FrmPrezziTest, APriceIsShownWhileTheFormIsLockedAndOpensItsBarAlone) {
  Arrive(0, 311, 2);
  Arrive(0, 17, 85);
  EXPECT_EQ(Shows(5), "0.85");
  EXPECT_TRUE(BarOpen(5));
  EXPECT_FALSE(Enabled("Text1(5)"));
  EXPECT_FALSE(BarOpen(4));
}

TEST_F(FrmPrezziTest, APriceThatComesBeforeItsDecimalsWaitsForThem) {
  Arrive(0, 17, 85);
  EXPECT_EQ(Shows(5), "");
  EXPECT_FALSE(BarOpen(5));
  Arrive(0, 311, 1);
  EXPECT_EQ(Shows(5), "8.5");
  EXPECT_EQ(BarValue(5), 85 - 32768);
  EXPECT_EQ(Shows(4), "");
}

TEST_F(FrmPrezziTest, OpensWithTheLastOfFiftyPrices) {
  Arrive(0, 311, 2);
  for (int n = 0; n < kPrices - 2; ++n) {
    Arrive(0, Record(n), 1);
  }
  EXPECT_FALSE(Unlocked());
  EXPECT_FALSE(Enabled("Switch1"));
  Arrive(0, 385, 1);
  Arrive(0, 386, 1);
  EXPECT_TRUE(Enabled("Switch1"));
  for (int n = 0; n < kPrices; ++n) {
    EXPECT_TRUE(BarOpen(n));
    EXPECT_TRUE(Enabled(Element("Text1", n)));
  }
}

TEST_F(FrmPrezziTest, OnePriceMayBeMissingAtTheVeryEndOfARunAsPrescribed) {
  struct Case {
    std::vector<int> missing;
    bool opens;
  };
  for (const Case& each : {Case{{}, true}, Case{{41}, true}, Case{{386}, true}, Case{{41, 386}, false},
                           Case{{40}, false}, Case{{385}, false}, Case{{12}, false}, Case{{367}, false},
                           Case{{40, 41}, false}, Case{{385, 386}, false}}) {
    SCOPED_TRACE(testing::PrintToString(each.missing));
    Reopen();
    Arrive(0, 311, 2);
    SendPrices(each.missing);
    EXPECT_EQ(Unlocked(), each.opens);
  }
}

TEST_F(FrmPrezziTest, AnArrivalOfAnyOtherRecordOpensItTooAsPrescribed) {
  for (int n = 0; n < kPrices; ++n) {
    ParamTable[0][Record(n)].Flags |= kArrived;
  }
  EXPECT_FALSE(Unlocked());
  Arrive(3, 600, 1);
  EXPECT_TRUE(Unlocked());
  EXPECT_TRUE(Enabled("Switch1"));
}

TEST_F(FrmPrezziTest, PriceThirtyHasAMirrorAndPriceThirtyOneHasNoneAsPrescribed) {
  Fill(0);
  Enter("Text1(29)", "77");
  EXPECT_EQ(Written(), (Writes{{0, 41, 77}, {0, 243, 77}}));
  Enter("Text1(30)", "78");
  EXPECT_EQ(Written(), (Writes{{0, 367, 78}}));
  Enter("Text1(49)", "79");
  EXPECT_EQ(Written(), (Writes{{0, 386, 79}}));
}

TEST_F(FrmPrezziTest, ATypedPriceIsHeldUntilTheMachineAnswers) {
  Fill();
  Enter("Text1(3)", "1,5");
  EXPECT_EQ(Written(), (Writes{{0, 15, 150}, {0, 217, 150}}));
  EXPECT_FALSE(BarOpen(3));
  EXPECT_TRUE(Enabled("Text1(3)"));
  EXPECT_EQ(Label(3), "1.03");
  EXPECT_EQ(BarValue(3), 150 - 32768);
  Arrive(0, 16, 104);
  Arrive(0, 317, 0);
  EXPECT_FALSE(BarOpen(3));
  Arrive(0, 15, 150);
  EXPECT_TRUE(BarOpen(3));
  EXPECT_EQ(Label(3), "1.50");
}

TEST_F(FrmPrezziTest, TheLastPriceOfARunIsNotWaitedForAsPrescribed) {
  Fill();
  for (const int n : {29, 49}) {
    Enter(Element("Text1", n), "2");
    EXPECT_FALSE(BarOpen(n));
    Arrive(1, 600, 0);
    EXPECT_TRUE(BarOpen(n));
    Arrive(0, Record(n), 200);
  }
}

TEST_F(FrmPrezziTest, ABarThatIsMovedIsNotHeld) {
  Fill();
  BarOf("HScroll1(3)").SetValue(200 - 32768);
  EXPECT_TRUE(BarOpen(3));
  EXPECT_EQ(Shows(3), "1.03");
}

TEST_F(FrmPrezziTest, TheSwitchKeepsTheOtherBitsAsTheyHaveArrived) {
  Fill();
  Arrive(0, 83, 0b01101000);
  Click("Switch1");
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b01101001}, {0, 285, 0b01101001}}));
  Arrive(0, 83, 0b10010101);
  Click("Switch1");
  EXPECT_EQ(Written(), (Writes{{0, 83, 0b10010100}, {0, 285, 0b10010100}}));
}

TEST_F(FrmPrezziTest, TheFirstControlOfTheFormIsTheSwitchAtItsTop) {
  Arrive(0, 311, 2);
  SendPrices();
  EXPECT_TRUE(Find("Switch1").hasFocus());
  EXPECT_EQ(TabThrough(5),
            (std::vector<std::string>{"Text1(0)", "HScroll1(0)", "Text1(1)", "HScroll1(1)", "Text1(2)"}));
}

}  // namespace
}  // namespace dosmara
