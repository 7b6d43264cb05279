// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSconti: a discount for each of thirty prices, and one for a sale without a cup.
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

#include "forms/price_rows_fixture.h"
#include "forms/row_cases.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

constexpr int kRows = 31;  // the last one is the discount without a cup

// Two decimals; each discount can be told from the others.
FormRows DiscountRows() {
  FormRows form = {.form = "FrmSconti", .opens = {{0, 311, 2}}, .closes = {}, .rows = {}};
  for (int n = 0; n < kRows; ++n) {
    form.rows.push_back({.caption = Element("Label11", n),
                         .value = Element("Label1", n),
                         .box = Element("Text1", n),
                         .bar = Element("HScroll1", n),
                         .words = n < 30 ? "#118 " + std::to_string(n + 1) : "#119",
                         .node = 0,
                         .record = 44 + n,
                         .mirror = 246 + n,
                         .min = -32768,
                         .max = 32767,
                         .large_change = 100,
                         .length = 12,
                         .offset = 32768,
                         .arrivals = {{10 + n, "0." + std::to_string(10 + n), 10 + n - 32768},
                                      {0, "0.00", -32768},
                                      {32768, "327.68", 0},
                                      {40000, "400.00", 7232},
                                      {65535, "655.35", 32767},
                                      {65536, "655.35", 32767}},
                         .good = {{"1,5", 150}, {".05", 5}, {"0", 0}, {"2", 200}, {"655,35", 65535}},
                         .bad = {"", ".", "x", "-1", "655,36", "0,x", "OFF"},
                         .closed_box_stays = true,
                         .held = true});
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmSconti, EachRow, testing::Values(DiscountRows()));

class FrmScontiTest : public PriceRowsFixture {
 protected:
  FrmScontiTest() { Open("FrmSconti"); }

  // The form with two decimals; row n holds 10 + n. The second box has the focus.
  void Fill() {
    Arrive(0, 311, 2);
    for (int record = 44; record <= 74; ++record) {
      Arrive(0, record, record - 34);
    }
    Focus("Text1(1)");
  }
};

TEST_F(FrmScontiTest, SubscribesDecimalsAndDiscounts) {
  std::vector<Subscription> expected;
  for (int record = 44; record <= 74; ++record) {
    expected.push_back({0, record, 1});
  }
  expected.push_back({0, 311, 1});
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmScontiTest, TheDiscountWithoutACupGainsASubscriberAtEachOpeningAsPrescribed) {
  for (int times = 1; times <= 3; ++times) {
    Close();
    EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 74, times}}));
    Open("FrmSconti");
  }
}

TEST_F(FrmScontiTest, ItsTitleComesFromTheLanguage) { EXPECT_EQ(form().windowTitle(), "#10"); }

TEST_F(FrmScontiTest, OpensLockedAndWithoutValues) {
  for (int n = 0; n < kRows; ++n) {
    EXPECT_FALSE(BarOpen(n));
    EXPECT_FALSE(Enabled(Element("Text1", n)));
    EXPECT_EQ(Shows(n), "");
  }
}

TEST_F(FrmScontiTest, OpensWhenAllDiscountsAndTheDecimalsAreThere) {
  Arrive(0, 311, 2);
  for (int record = 44; record <= 73; ++record) {
    Arrive(0, record, 1);
  }
  EXPECT_FALSE(Unlocked());
  Arrive(0, 74, 1);
  for (int n = 0; n < kRows; ++n) {
    EXPECT_TRUE(BarOpen(n));
    EXPECT_TRUE(Enabled(Element("Text1", n)));
  }
}

TEST_F(FrmScontiTest, StaysLockedWhileAnyRecordIsMissing) {
  for (int missing = 44; missing <= 75; ++missing) {
    const int record_missing = missing == 75 ? 311 : missing;
    SCOPED_TRACE(record_missing);
    Close();
    ParamTable[0][74].Flags = 0;  // it stays subscribed, and so what has arrived
    Open("FrmSconti");
    if (record_missing != 311) {
      Arrive(0, 311, 2);
    }
    for (int record = 44; record <= 74; ++record) {
      if (record != record_missing) {
        Arrive(0, record, 1);
      }
    }
    Arrive(0, 317, 0);
    EXPECT_FALSE(Unlocked());
    Arrive(0, record_missing, 1);
    EXPECT_TRUE(Unlocked());
  }
}

TEST_F(FrmScontiTest, AnArrivalOfAnyOtherRecordOpensItTooAsPrescribed) {
  for (int record = 44; record <= 74; ++record) {
    ParamTable[0][record].Flags |= kArrived;
  }
  ParamTable[0][311].Flags |= kArrived;
  Arrive(2, 600, 1);
  EXPECT_TRUE(Unlocked());
}

TEST_F(FrmScontiTest, ADiscountThatComesBeforeItsDecimalsWaitsForThem) {
  Arrive(0, 74, 25);
  EXPECT_EQ(Shows(30), "");
  EXPECT_FALSE(BarOpen(30));
  Arrive(0, 311, 1);
  EXPECT_EQ(Shows(30), "2.5");
  Arrive(0, 74, 26);
  EXPECT_TRUE(BarOpen(30));
  EXPECT_FALSE(Enabled("Text1(30)"));
}

TEST_F(FrmScontiTest, FitsIntoTwoThirdsOfASmallScreen) {
  CaptionTable[118] = "Prezzo";
  CaptionTable[119] = "Sconto senza bicchiere";
  form().InitMessaggi();
  form().resize(900, 420);
  QApplication::processEvents();
  EXPECT_FALSE(form().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
}

TEST_F(FrmScontiTest, TheTabKeyGoesDownTheColumns) {
  Fill();
  Focus("HScroll1(29)");
  EXPECT_EQ(TabThrough(2), (std::vector<std::string>{"Text1(30)", "HScroll1(30)"}));
}

}  // namespace
}  // namespace dosmara
