// SPDX-License-Identifier: GPL-3.0-or-later
// FrmDosi's own rules: opening, gate, selections, heads and dependants, entry, closing.
#include <QApplication>
#include <QTest>

#include "controls/echo_mark.h"
#include "forms/dosi_fixture.h"
#include "link/identification.h"

namespace dosmara {
namespace {

TEST_F(FrmDosiTest, OpensGreyOnTheFirstSelection) {
  Open();
  ExpectAllGrey();
  EXPECT_EQ(LabelText("Label7"), "#58 1");
  EXPECT_EQ(BarOf("HScroll7").Value(), 0);
  EXPECT_EQ(BarOf("HScroll7").maximum(), 21);
  EXPECT_EQ(BarOf("HScroll7").pageStep(), 3);
  EXPECT_EQ(form().windowTitle(), "#5");
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 2000);
  EXPECT_FALSE(Running("Timer1"));
  EXPECT_FALSE(Running("Timer3"));
}

TEST_F(FrmDosiTest, SubscribesTheRecordsOfTheFirstSelectionAndTheStatus) {
  Open();
  std::vector<Subscription> expected = {{0, 312, 1}, {0, 317, 1}};
  for (const int record : {34,  35,  36,  38,  39,  40,  42,  43,  44,  148, 170, 192, 214, 236,
                           280, 302, 324, 346, 368, 390, 412, 434, 456, 563, 589, 590, 591}) {
    expected.push_back({1, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmDosiTest, UnlocksAtTheTwentyFourthArrival) {
  Open();
  Arrive(0, 312, 4);
  for (const int record : kBitRecords) {
    Arrive(1, record, 0);
  }
  for (int i = 0; i < 10; ++i) {
    Arrive(1, 148, 7);
  }
  ExpectAllGrey();
  Arrive(1, 148, 7);
  EXPECT_TRUE(Enabled("Command1(0)"));
  EXPECT_TRUE(RowOpen(0));
}

TEST_F(FrmDosiTest, EveryRowAndEveryByteOfAPropertyCounts) {
  std::vector<int> records(std::begin(kRowRecords), std::end(kRowRecords));
  records.insert(records.end(), std::begin(kBitRecords), std::end(kBitRecords));
  for (const int record : records) {
    SCOPED_TRACE(record);
    Open();
    Arrive(0, 312, 4);
    for (int i = 0; i < 22; ++i) {
      Arrive(1, record, 7);
    }
    EXPECT_FALSE(Enabled("Command1(0)"));
    Arrive(1, record, 7);
    EXPECT_TRUE(Enabled("Command1(0)"));
    Close();
  }
}

TEST_F(FrmDosiTest, ForeignArrivalsDoNotCount) {
  Open();
  Arrive(0, 312, 4);
  for (int i = 0; i < 30; ++i) {
    Arrive(0, 317, 0);
    Arrive(1, 456, 7);
    Arrive(1, 149, 7);
    Arrive(2, 148, 7);
    Arrive(0, 148, 7);
  }
  ExpectAllGrey();
  EXPECT_EQ(LabelText("lblVal(0)"), "");
}

TEST_F(FrmDosiTest, StaysGreyWhenTheMachineDoesNotAllowChanges) {
  Open();
  Arrive(0, 312, 251);
  for (const int record : kBitRecords) {
    Arrive(1, record, 0);
  }
  for (const int record : kRowRecords) {
    Arrive(1, record, 0);
  }
  ExpectAllGrey();
}

TEST_F(FrmDosiTest, FollowsTheGateOnceItHasLoaded) {
  OpenLoaded();
  Arrive(0, 312, 0);
  ExpectAllGrey();
  Arrive(0, 312, 255);
  EXPECT_TRUE(Enabled("HScroll7"));
  EXPECT_TRUE(RowOpen(13));
}

TEST_F(FrmDosiTest, AGateThatStaysAsItIsChangesNothing) {
  OpenLoaded();
  Find("HScroll7").setEnabled(false);
  Arrive(0, 312, 6);
  EXPECT_FALSE(Enabled("HScroll7"));
}

TEST_F(FrmDosiTest, EnablingLeavesTheLabelsOfTheRowsGreyAsPrescribed) {
  OpenLoaded();
  for (int n = 0; n < 14; ++n) {
    EXPECT_TRUE(RowOpen(n)) << n;
    EXPECT_FALSE(Enabled(Element("lblDes", n))) << n;
    EXPECT_EQ(Enabled(Element("lblVal", n)), n == 13) << n;
  }
  EXPECT_TRUE(Enabled("Label8(2)"));
}

TEST_F(FrmDosiTest, EachSelectionShowsItsNumber) {
  OpenLoaded();
  for (int n = 0; n < 22; ++n) {
    Click(Element("Label11", n));
    EXPECT_EQ(LabelText("Label7"), "#58 " + std::to_string(n < 16 ? n + 1 : n + 5));
    EXPECT_EQ(BarOf("HScroll7").Value(), n);
  }
  BarOf("HScroll7").SetValue(16);
  EXPECT_EQ(LabelText("Label7"), "#58 21");
  BarOf("HScroll7").SetValue(21);
  EXPECT_EQ(LabelText("Label7"), "#58 26");
}

TEST_F(FrmDosiTest, AChangeOfSelectionMovesTheSubscriptions) {
  OpenLoaded();
  Click("Label11(5)");
  std::vector<Subscription> expected = {{0, 312, 1}, {0, 317, 1}};
  for (const int record : {34,  35,  36,  38,  39,  40,  42,  43,  44,  153, 175, 197, 219, 241,
                           285, 307, 329, 351, 373, 395, 417, 439, 461, 568, 589, 590, 591}) {
    expected.push_back({1, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
  BarOf("HScroll7").SetValue(0);
  Click("Label11(0)");
  EXPECT_EQ(Subscribed().size(), expected.size());
  EXPECT_EQ(Subscribed()[11], (Subscription{1, 148, 1}));
}

TEST_F(FrmDosiTest, OnlyTheSelectionShownIsHeard) {
  OpenLoaded();
  Click("Label11(5)");
  Arrive(1, 148, 99);
  EXPECT_EQ(LabelText("lblVal(0)"), "");
  Arrive(1, 153, 88);
  EXPECT_EQ(LabelText("lblVal(0)"), "88");
}

TEST_F(FrmDosiTest, TheSwitchesShowThePreviousSelectionUntilTheBytesAreReadAgainAsPrescribed) {
  OpenLoaded();
  Arrive(1, 38, 1);
  EXPECT_EQ(Position("SwitchX1(0)"), 1);
  Click("Label11(1)");
  EXPECT_EQ(Position("SwitchX1(0)"), 1);
  Arrive(1, 39, 255);
  Arrive(1, 40, 255);
  EXPECT_EQ(Position("SwitchX1(0)"), 1);
  Arrive(1, 38, 1);
  EXPECT_EQ(Position("SwitchX1(0)"), 0);
  Arrive(1, 39, 255);
  EXPECT_EQ(Position("SwitchX1(0)"), 0);
}

TEST_F(FrmDosiTest, ABytesOtherBitsAreKeptWhileAnotherSelectionIsShown) {
  OpenLoaded();
  Arrive(1, 39, 0b01000010);
  Click("Label11(8)");
  Click("SwitchX1(0)");
  EXPECT_EQ(Written(), (Writes{{1, 39, 0b01000011}, {1, 517, 0b01000011}}));
  Click("Label11(14)");
  Arrive(1, 39, 0b01000011);
  Click("SwitchX1(0)");
  EXPECT_EQ(Written(), (Writes{{1, 39, 0b00000011}, {1, 517, 0b00000011}}));
}

TEST_F(FrmDosiTest, TheFirstThreeSwitchesHaveWordsAsPrescribed) {
  OpenLoaded();
  for (int n = 0; n < 4; ++n) {
    EXPECT_EQ(Find(Element("SwitchX1", n)).accessibleDescription(), n < 3 ? "#65" : "");
    EXPECT_EQ(Find(Element("SwitchX1", n)).accessibleName(), "#" + QString::number(n < 3 ? 62 + n : 624));
  }
}

struct HeadRule {
  int row;
  std::vector<int> rows;
  std::vector<int> tests;
};
const HeadRule kHeadRules[] = {{1, {2, 3, 4, 5}, {0, 1}}, {6, {7, 8}, {2}}, {9, {10, 13}, {3}}};

TEST_F(FrmDosiTest, AHeadAtNoughtClosesItsDependantsAndAnyOtherValueOpensThem) {
  OpenLoaded();
  for (const HeadRule& head : kHeadRules) {
    SCOPED_TRACE(head.row);
    for (const int value : {0, 1, 0, 999}) {
      Arrive(1, kRowRecords[head.row], value);
      EXPECT_TRUE(RowOpen(head.row));
      for (const int n : head.rows) {
        EXPECT_EQ(RowOpen(n), value != 0) << n;
      }
      for (const int n : head.tests) {
        EXPECT_EQ(Enabled(Element("cmdProva", n)), value != 0) << n;
      }
      EXPECT_EQ(Enabled("lblVal(13)"), head.row != 9 || value != 0);
    }
    for (const int n : {0, 1, 6, 9, 11, 12}) {
      EXPECT_TRUE(RowOpen(n));
    }
  }
}

TEST_F(FrmDosiTest, EnablingOpensTheDependantsOfTheHeadsThatAreOn) {
  OpenLoaded();
  Arrive(1, 170, 0);
  Arrive(1, 214, 0);
  Arrive(0, 312, 0);
  Arrive(0, 312, 4);
  for (const int n : {2, 3, 4, 5, 10, 13}) {
    EXPECT_FALSE(RowOpen(n)) << n;
  }
  for (const int n : {0, 1, 6, 7, 8, 9, 11, 12}) {
    EXPECT_TRUE(RowOpen(n)) << n;
  }
  for (const int n : {0, 1, 3}) {
    EXPECT_FALSE(Enabled(Element("cmdProva", n))) << n;
  }
  for (const int n : {2, 4}) {
    EXPECT_TRUE(Enabled(Element("cmdProva", n))) << n;
  }
}

TEST_F(FrmDosiTest, AHeadThatArrivesWhileLoadingOpensItsDependantsAsPrescribed) {
  Open();
  Arrive(1, 192, 7);
  EXPECT_TRUE(RowOpen(7));
  EXPECT_FALSE(RowOpen(6));
}

TEST_F(FrmDosiTest, AModelBelow25HasNoDecaffeinatedDelay) {
  ModelCode = 24;
  OpenLoaded();
  for (const char* name : {"lblDes(13)", "lblVal(13)", "txtVal(13)", "scrDosi(13)"}) {
    EXPECT_FALSE(Shown(name)) << name;
  }
  EXPECT_TRUE(RowOpen(10));
  EXPECT_EQ(LabelText("lblVal(13)"), "0.7");
}

TEST_F(FrmDosiTest, TheDisplayWaitsForTheMachine) {
  OpenLoaded();
  auto& echo = *form().findChildren<EchoMark*>().front();
  Enter("txtVal(0)", "120");
  EXPECT_EQ(LabelText("lblVal(0)"), "7");
  EXPECT_EQ(echo.state(), EchoMark::State::kOnItsWay);
  Arrive(1, 148, 120);
  EXPECT_EQ(LabelText("lblVal(0)"), "120");
  EXPECT_EQ(BoxText("txtVal(0)"), "120");
  EXPECT_EQ(echo.state(), EchoMark::State::kTaken);
  Click("Label11(1)");
  EXPECT_EQ(echo.state(), EchoMark::State::kNone);
}

TEST_F(FrmDosiTest, NoughtOnAWaterRowComesBackAsOff) {
  OpenLoaded();
  Enter("txtVal(0)", "0");
  EXPECT_EQ(Written(), (Writes{{1, 148, 0}}));
  Arrive(1, 148, 0);
  EXPECT_EQ(LabelText("lblVal(0)"), "OFF");
}

TEST_F(FrmDosiTest, ABoxThatIsLeftForTheKeypadShowsWhatItsLabelShows) {
  OpenLoaded();
  for (const bool typed : {false, true}) {
    Click("txtVal(0)");
    EXPECT_EQ(BoxText("txtVal(0)"), "");
    if (typed) {
      Type("txtVal(0)", "12");
    }
    Click("Label11(5)");
    Focus("HScroll7");
    EXPECT_EQ(BoxText("txtVal(0)"), LabelText("lblVal(0)"));
    Click("txtVal(0)");
    Arrive(1, 153, 88);
    Click("Label11(0)");
    Focus("HScroll7");
    EXPECT_EQ(BoxText("txtVal(0)"), LabelText("lblVal(0)"));
    Arrive(1, 148, 7);
    EXPECT_EQ(BoxText("txtVal(0)"), "7");
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmDosiTest, ASwitchThatTheMachineDoesNotTakeSaysSoUntilItIsChangedAgain) {
  OpenLoaded();
  const auto mark = [this] { return MarkBehind("SwitchX1(1)"); };
  EXPECT_EQ(mark(), EchoMark::State::kNone);
  Click("SwitchX1(1)");
  EXPECT_EQ(mark(), EchoMark::State::kOnItsWay);
  Arrive(1, 34, 0);
  EXPECT_EQ(mark(), EchoMark::State::kNotTaken);
  EXPECT_EQ(Position("SwitchX1(1)"), 0);
  Arrive(1, 34, 1);
  EXPECT_EQ(mark(), EchoMark::State::kNotTaken);
  Click("SwitchX1(1)");
  EXPECT_EQ(mark(), EchoMark::State::kOnItsWay);
  Arrive(1, 34, 0);
  EXPECT_EQ(mark(), EchoMark::State::kTaken);
}

TEST_F(FrmDosiTest, TheTabKeyFollowsTheRows) {
  OpenLoaded();
  Focus("HScroll7");
  for (const char* next :
       {"Command1(0)", "Command1(1)", "Command1(2)", "txtVal(0)", "scrDosi(0)", "txtVal(1)", "scrDosi(1)",
        "txtVal(2)", "scrDosi(2)", "cmdProva(0)", "txtVal(3)"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Find(next).hasFocus()) << next;
  }
  Focus("scrDosi(10)");
  for (const char* next : {"cmdProva(3)", "txtVal(13)", "scrDosi(13)", "txtVal(11)", "scrDosi(11)",
                           "txtVal(12)", "scrDosi(12)", "cmdProva(4)", "SwitchX1(0)", "SwitchX1(1)"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Find(next).hasFocus()) << next;
  }
}

TEST_F(FrmDosiTest, TheValuesOfAnotherSelectionAreEmptyUntilTheyArrive) {
  OpenLoaded();
  Click("Label11(2)");
  for (int n = 0; n < 14; ++n) {
    EXPECT_EQ(LabelText(Element("lblVal", n)), "") << n;
    EXPECT_EQ(BoxText(Element("txtVal", n)), "") << n;
    EXPECT_FALSE(BarOf(Element("scrDosi", n)).IsKnown()) << "a step would lead on from another selection";
  }
  Arrive(1, 148 + 2, 55);
  EXPECT_EQ(LabelText("lblVal(0)"), "55");
}

TEST_F(FrmDosiTest, AClosedFormReleasesTheSelectionShown) {
  OpenLoaded();
  Click("Label11(9)");
  Close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

}  // namespace
}  // namespace dosmara
