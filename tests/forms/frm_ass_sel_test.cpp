// SPDX-License-Identifier: GPL-3.0-or-later
// FrmAssSel: the price of each selection on one board, two extra prices on another.
#include <QLocale>

#include "fields/records.h"
#include "forms/row_cases.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

constexpr int kSelections = 22;

// 1 to 16, then 21 to 26.
std::string Number(int n) { return std::to_string(n < 16 ? n + 1 : n + 5); }

const std::vector<Sent> kOpens = [] {
  std::vector<Sent> sent = {{0, 311, 2}, {0, 83, 0}, {0, 312, 4}, {0, 42, 10}, {0, 43, 10}};
  for (int n = 0; n < kSelections; ++n) {
    sent.push_back({1, n + 1, 0});
  }
  return sent;
}();

FormRows SelectionRows() {
  FormRows form = {.form = "FrmAssSel", .opens = kOpens, .closes = {{0, 83, 1}}, .rows = {}};
  for (int n = 0; n < kSelections; ++n) {
    form.rows.push_back(
        {.caption = Element("Label11", n),
         .value = Element("Label1", n),
         .box = Element("Text1", n),
         .bar = Element("HScroll1", n),
         .words = "#121 " + Number(n),
         .node = 1,
         .record = n + 1,
         .mirror = n + 479,
         .min = 1,
         .max = 30,
         .large_change = 3,
         .length = 5,
         .offset = -1,
         .arrivals = {{n, std::to_string(n + 1), n + 1},
                      {0, "1", 1},
                      {28, "29", 29},
                      {29, "30", 30},
                      {30, "31", 30},
                      {255, "256", 30}},
         .good = {{"30", 29}, {"1", 0}, {"2,5", 2}, {"2.5", 2}, {"0.5", 0}, {"30.4", 29}, {" 17", 16}},
         .bad = {"31", "0", "0.4", "30,5", "-1", "", " ", "x", "1e1", "OFF"},
         .closed_box_stays = true,
         .held = true});
  }
  // Its bar stands at the first of its values.
  form.rows[0].arrivals.front() = {5, "6", 6};
  return form;
}

FormRows ExtraRows() {
  FormRows form = {.form = "FrmAssSel", .opens = kOpens, .closes = {}, .rows = {}};
  for (int n = 0; n < 2; ++n) {
    form.rows.push_back({.caption = Element("Label11", 30 + n),
                         .value = Element("Label1", 30 + n),
                         .box = Element("Text2", n),
                         .bar = Element("HScroll1", 30 + n),
                         .words = "#" + std::to_string(122 + n),
                         .node = 0,
                         .record = 42 + n,
                         .mirror = 244 + n,
                         .min = -32768,
                         .max = 32767,
                         .large_change = 100,
                         .length = 12,
                         .offset = 32768,
                         .arrivals = {{110 + n, "1.1" + std::to_string(n), 110 + n - 32768},
                                      {0, "0.00", -32768},
                                      {65535, "655.35", 32767},
                                      {65536, "655.35", 32767}},
                         .good = {{"2,5", 250}, {"1.555x", 155}, {"0", 0}, {"655,35", 65535}},
                         .bad = {"", "1a", "-1", "655.36", "656", "OFF"},
                         .closed_box_stays = true,
                         .held = true});
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmAssSel, EachRow, testing::Values(SelectionRows(), ExtraRows()));

class FrmAssSelTest : public FormFixture {
 protected:
  FrmAssSelTest() { Open("FrmAssSel"); }

  void SendSelections(int count = kSelections) {
    for (int n = 0; n < count; ++n) {
      Arrive(1, n + 1, n);
    }
  }
  void SendExtras() {
    Arrive(0, 42, 42);
    Arrive(0, 43, 43);
  }
  // The form open for changes, which 83 and 312 may forbid.
  void Unlock(int options = 0, int gate = 4) {
    Arrive(0, 311, 0);
    Arrive(0, 83, options);
    Arrive(0, 312, gate);
    SendExtras();
    SendSelections();
  }

  void ExpectSelections(bool open) {
    for (int n = 0; n < kSelections; ++n) {
      SCOPED_TRACE(n);
      for (const char* array : {"Label11", "Label1", "HScroll1", "Text1"}) {
        EXPECT_EQ(Enabled(Element(array, n)), open) << array;
      }
    }
  }
  // Bars and boxes of the extra prices.
  void ExpectExtras(bool open) {
    for (const char* control : {"HScroll1(30)", "HScroll1(31)", "Text2(0)", "Text2(1)"}) {
      EXPECT_EQ(Enabled(control), open) << control;
    }
  }
  void ExpectExtraLabels(bool open) {
    for (const char* control : {"Label11(30)", "Label11(31)", "Label1(30)", "Label1(31)"}) {
      EXPECT_EQ(Enabled(control), open) << control;
    }
  }
};

TEST_F(FrmAssSelTest, SubscribesSelectionsOnOneBoardAndTheRestOnTheOther) {
  std::vector<Subscription> expected;
  for (const int record : {42, 43, 83, 311, 312}) {
    expected.push_back({0, record, 1});
  }
  for (int record = 1; record <= 22; ++record) {
    expected.push_back({1, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmAssSelTest, CaptionsComeFromTheLanguageAndSelectionsSkipFromSixteenToTwentyOne) {
  EXPECT_EQ(form().windowTitle(), "#11");
  EXPECT_EQ(LabelText("Label11(15)"), "#121 16");
  EXPECT_EQ(LabelText("Label11(16)"), "#121 21");
  EXPECT_EQ(LabelText("Label11(21)"), "#121 26");
  EXPECT_EQ(LabelText("Label11(30)"), "#122");
  EXPECT_EQ(LabelText("Label11(31)"), "#123");
}

TEST_F(FrmAssSelTest, TheControlsBetweenSelectionsAndExtraPricesStayHiddenAsPrescribed) {
  Unlock();
  for (int n = 22; n < 30; ++n) {
    for (const char* array : {"Label11", "Label1", "HScroll1", "Text1"}) {
      EXPECT_FALSE(Shown(Element(array, n))) << array << n;
    }
  }
  EXPECT_TRUE(Shown("Text1(21)"));
  EXPECT_TRUE(Shown("Text2(1)"));
}

TEST_F(FrmAssSelTest, OpensWithTheLastSelectionAndNotBefore) {
  ExpectSelections(false);
  ExpectExtras(false);
  ExpectExtraLabels(false);
  Arrive(0, 311, 0);
  Arrive(0, 83, 0);
  Arrive(0, 312, 4);
  SendExtras();
  SendSelections(21);
  ExpectSelections(false);
  ExpectExtras(false);
  ExpectExtraLabels(false);
  Arrive(1, 22, 3);
  ExpectSelections(true);
  ExpectExtras(true);
  ExpectExtraLabels(true);
}

TEST_F(FrmAssSelTest, OpensWithTheLastExtraPriceAndNotBefore) {
  Arrive(0, 311, 0);
  Arrive(0, 83, 0);
  SendSelections();
  Arrive(0, 43, 1);
  ExpectSelections(false);
  ExpectExtras(false);
  Arrive(0, 42, 1);
  ExpectSelections(true);
  ExpectExtras(true);
}

TEST_F(FrmAssSelTest, AnArrivalOfAnyOtherRecordOpensItTooAsPrescribed) {
  for (int n = 0; n < kSelections; ++n) {
    ParamTable[1][n + 1].Flags |= kArrived;
  }
  ParamTable[0][42].Flags |= kArrived;
  ParamTable[0][43].Flags |= kArrived;
  Arrive(3, 600, 1);
  ExpectSelections(true);
  ExpectExtras(true);
}

TEST_F(FrmAssSelTest, AnArrivalOpensNoBarWhileTheFormIsLocked) {
  Arrive(0, 311, 0);
  Arrive(0, 312, 4);
  Arrive(1, 5, 6);
  Arrive(0, 42, 6);
  EXPECT_EQ(LabelText("Label1(4)"), "7");
  EXPECT_EQ(LabelText("Label1(30)"), "6");
  ExpectSelections(false);
  ExpectExtras(false);
}

TEST_F(FrmAssSelTest, TheExtraPricesOpenWithoutTheSelectionsWhereThoseAreNotInUse) {
  Arrive(0, 311, 0);
  Arrive(0, 312, 251);
  Arrive(0, 42, 1);
  ExpectExtras(false);
  Arrive(0, 43, 1);
  ExpectExtras(true);
  ExpectExtraLabels(false);
  Arrive(1, 5, 6);
  ExpectSelections(false);
}

TEST_F(FrmAssSelTest, TheExtraPricesOpenWithoutTheSelectionsAfterTheLockToo) {
  Unlock(1);
  Arrive(0, 312, 0);
  ExpectExtras(false);
  PutRecord(1, 5, 0);  // from another form
  Arrive(3, 600, 1);
  ExpectExtras(true);
}

TEST_F(FrmAssSelTest, WhileAnExtraPriceIsMissingTheSwitchOfPriceOneIsFollowedAndTheGateIsNotAsPrescribed) {
  Arrive(0, 311, 0);
  Arrive(0, 83, 0);
  SendSelections();
  Arrive(0, 312, 0);
  Arrive(0, 312, 4);
  ExpectSelections(false);
  Arrive(0, 83, 0);
  ExpectSelections(true);
  ExpectExtras(false);
  Arrive(0, 312, 0);
  ExpectSelections(true);
  Arrive(0, 83, 0);
  ExpectSelections(false);
}

TEST_F(FrmAssSelTest, AnExtraPriceOnItsWayClosesBothWhileTheFormIsLockedAsPrescribed) {
  Arrive(0, 311, 0);
  Arrive(0, 312, 0);
  SendExtras();
  Enter("Text2(0)", "77");
  EXPECT_FALSE(Enabled("HScroll1(30)"));
  EXPECT_TRUE(Enabled("HScroll1(31)"));
  Arrive(3, 600, 1);
  ExpectExtras(false);
  Arrive(0, 42, 77);
  ExpectExtras(true);
  EXPECT_EQ(Written(), (Writes{{0, 42, 77}, {0, 244, 77}}));
}

TEST_F(FrmAssSelTest, SelectionsThatAreNotInUseStayClosedWhenAllHasArrived) {
  Unlock(0, 251);
  ExpectSelections(false);
  ExpectExtras(true);
  ExpectExtraLabels(true);
}

TEST_F(FrmAssSelTest, TheGateCountsAsSetUntilItHasArrivedAsPrescribed) {
  Arrive(0, 311, 0);
  SendExtras();
  ExpectExtras(false);
  SendSelections();
  ExpectSelections(true);
}

TEST_F(FrmAssSelTest, WithEverythingAtPriceOneNothingOpensAndTheLockClearsAllTheSameAsPrescribed) {
  Unlock(1);
  ExpectSelections(false);
  ExpectExtras(false);
  ExpectExtraLabels(false);
  Arrive(0, 42, 5);
  EXPECT_TRUE(Enabled("HScroll1(30)")) << "an arrival opens its row: the form is not locked";
  EXPECT_TRUE(Enabled("Text2(0)"));
  EXPECT_FALSE(Enabled("HScroll1(31)"));
  ExpectExtraLabels(false);
  Arrive(0, 43, 5);
  Arrive(0, 83, 254);
  ExpectSelections(true);
  ExpectExtras(true);
}

TEST_F(FrmAssSelTest, TheSwitchOfPriceOneClosesAndOpensTheSelectionsAlone) {
  Unlock();
  Arrive(0, 83, 1);
  ExpectSelections(false);
  ExpectExtras(true);
  Arrive(0, 312, 5);
  ExpectSelections(false);
  Arrive(0, 83, 0);
  ExpectSelections(true);
}

TEST_F(FrmAssSelTest, AnAnswerOpensNoBarAmongClosedSelections) {
  Unlock();
  Enter("Text1(3)", "8");
  Arrive(0, 83, 1);
  Arrive(1, 4, 7);
  ExpectSelections(false);
  EXPECT_EQ(LabelText("Label1(3)"), "8");
  Arrive(0, 83, 0);
  ExpectSelections(true);
}

TEST_F(FrmAssSelTest, TheSwitchOfPriceOneIsFollowedOnlyOnceTheDecimalsAreThereAsPrescribed) {
  SendExtras();
  SendSelections();
  ExpectSelections(true);
  Arrive(0, 83, 1);
  ExpectSelections(true);
  Arrive(0, 311, 0);
  Arrive(0, 83, 1);
  ExpectSelections(false);
}

TEST_F(FrmAssSelTest, TheSwitchOfPriceOneIsKnownBeforeTheDecimalsAre) {
  Arrive(0, 83, 1);
  SendExtras();
  SendSelections();
  ExpectSelections(false);
  ExpectExtras(false);
}

TEST_F(FrmAssSelTest, TheGateClosesAndOpensTheSelectionsAlone) {
  Unlock();
  Arrive(0, 312, 0);
  ExpectSelections(false);
  ExpectExtras(true);
  Arrive(0, 83, 0);
  ExpectSelections(false);
  Arrive(0, 312, 4);
  ExpectSelections(true);
}

TEST_F(FrmAssSelTest, HalvesAreRoundedInALocaleWithAComma) {
  QLocale::setDefault(QLocale(QLocale::Italian));
  Unlock();
  Focus("Text2(0)");
  Enter("Text1(9)", "2,5");
  EXPECT_EQ(Written(), (Writes{{1, 10, 2}, {1, 488, 2}}));
  Arrive(1, 10, 0);
  Focus("Text2(0)");
  Enter("Text1(9)", "2.5");
  EXPECT_EQ(Written(), (Writes{{1, 10, 2}, {1, 488, 2}}));
}

TEST_F(FrmAssSelTest, AnExtraPriceWaitsForItsDecimalsAndIsDrawnAnewWithThem) {
  Arrive(0, 42, 150);
  EXPECT_EQ(LabelText("Label1(30)"), "");
  Arrive(0, 311, 2);
  EXPECT_EQ(LabelText("Label1(30)"), "1.50");
  EXPECT_EQ(BoxText("Text2(0)"), "1.50");
  EXPECT_EQ(BarOf("HScroll1(30)").Value(), 150 - 32768);
  EXPECT_EQ(LabelText("Label1(31)"), "");
  Arrive(0, 311, 5);
  EXPECT_EQ(LabelText("Label1(30)"), "15.0");
}

TEST_F(FrmAssSelTest, RecordsOfOtherBoardsAreForeign) {
  Unlock();
  for (const int node : {1, 2, 3}) {
    Arrive(node, 83, 1);
  }
  for (const int node : {1, 2, 3}) {
    Arrive(node, 312, 0);
  }
  ExpectSelections(true);
}

}  // namespace
}  // namespace dosmara
