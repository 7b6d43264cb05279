// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTemperatura: its rows, its entries, the gates that start out as open, its closing.
#include <QApplication>
#include <QGroupBox>

#include "forms/form_fixture.h"
#include "link/identification.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

struct TankRow {
  int n, record, mirror;
  int min, max, large_change;
  int length;
};
constexpr TankRow kTankRows[] = {{0, 51, 266, 1, 16, 3, 3}, {1, 53, 268, 10, 50, 10, 3},
                                 {2, 54, 269, 5, 50, 3, 2}, {3, 55, 270, 1, 9, 3, 1},
                                 {4, 56, 271, 1, 12, 3, 2}, {5, 57, 272, 1, 30, 3, 2},
                                 {6, 52, 267, 0, 10, 3, 2}};

// A control of the tank of node 2 or 3: "Text2(1)" is Control("Text", 2, 1).
std::string Control(const std::string& stem, int node, int n) {
  return Element((stem + std::to_string(node)).c_str(), n);
}
std::string Caption(int node, int n) { return Element(("Label" + std::to_string(node) + "s").c_str(), n); }

class FrmTemperaturaTest : public FormFixture {
 protected:
  void Open() { FormFixture::Open("FrmTemperatura"); }

  // Each row arrives once, within its bar: 15 arrivals.
  void ArriveRows() {
    Arrive(1, 24, 92);
    for (const int node : {2, 3}) {
      for (const TankRow& row : kTankRows) Arrive(node, row.record, row.min);
    }
  }

  // All boards are in use and have answered.
  void OpenLoaded() {
    Open();
    ArriveRows();
    for (const int gate : {312, 313, 357}) Arrive(0, gate, 4);
  }

  bool BoilerOpen() {
    const bool open = Enabled("Frame1");
    EXPECT_EQ(Shown("Text1"), open);
    for (const char* name : {"Label1s", "Label1", "HScroll1"}) {
      EXPECT_EQ(Enabled(name), open) << name;
      EXPECT_TRUE(Shown(name)) << name;
    }
    return open;
  }

  bool TankOpen(int node) {
    const bool open = Enabled("Frame" + std::to_string(node));
    for (int n = 0; n < 7; ++n) {
      EXPECT_EQ(Shown(Control("Text", node, n)), open) << n;
      for (const std::string& name :
           {Caption(node, n), Control("Label", node, n), Control("HScroll", node, n)}) {
        EXPECT_EQ(Enabled(name), open) << name;
        EXPECT_TRUE(Shown(name)) << name;
      }
    }
    return open;
  }

  struct Groups {
    bool boiler, tank2, tank3;
    bool operator==(const Groups&) const = default;
  };
  Groups AllOpen() { return {BoilerOpen(), TankOpen(2), TankOpen(3)}; }

  // What a tank row shows, which its box has to show as well.
  std::string Shows(int node, int n) {
    EXPECT_EQ(BoxText(Control("Text", node, n)), LabelText(Control("Label", node, n)));
    return LabelText(Control("Label", node, n));
  }

  // In both tanks the entry is good and makes the record and its mirror `value`.
  void Takes(int n, const std::string& text, int value) {
    for (const int node : {2, 3}) {
      EnterAndLeave(Control("Text", node, n), text, "HScroll1");
      EXPECT_EQ(Written(), (Writes{{node, kTankRows[n].record, value}, {node, kTankRows[n].mirror, value}}))
          << text;
    }
  }

  // In both tanks the entry is bad: nothing is written, nothing moves, the old text is back.
  void Refuses(int n, const std::vector<std::string>& texts) {
    for (const int node : {2, 3}) {
      const std::string box = Control("Text", node, n);
      const int before = BarOf(Control("HScroll", node, n)).Value();
      const std::string shown = LabelText(Control("Label", node, n));
      for (const std::string& text : texts) {
        Enter(box, text);
        EXPECT_EQ(BoxText(box), shown) << text;
        EXPECT_EQ(Written(), Writes{}) << text;
        EXPECT_EQ(BarOf(Control("HScroll", node, n)).Value(), before) << text;
        Focus("HScroll1");
      }
    }
  }
};

TEST_F(FrmTemperaturaTest, TheBoilersRow) {
  OpenLoaded();
  Focus("HScroll1");
  const Bar& bar = BarOf("HScroll1");
  EXPECT_EQ(bar.minimum(), 70);
  EXPECT_EQ(bar.maximum(), 110);
  EXPECT_EQ(bar.singleStep(), 1);
  EXPECT_EQ(bar.pageStep(), 5);
  EXPECT_EQ(Find<QLineEdit>("Text1").maxLength(), 3);
  EXPECT_EQ(LabelText("Label1s"), "#245");
  EXPECT_EQ(LabelText("Label1"), "92");
  EXPECT_EQ(BoxText("Text1"), "92");
  BarOf("HScroll1").SetValue(95);
  EXPECT_EQ(Written(), (Writes{{1, 24, 95}, {1, 502, 95}}));
  EXPECT_EQ(LabelText("Label1"), "92");
}

TEST_F(FrmTemperaturaTest, TheBoilersEntryIsAWholeNumberFrom70To110) {
  OpenLoaded();
  EnterAndLeave("Text1", "70", "HScroll1");
  EXPECT_EQ(Written(), (Writes{{1, 24, 70}, {1, 502, 70}}));
  EnterAndLeave("Text1", "110", "HScroll1");
  EXPECT_EQ(Written(), (Writes{{1, 24, 110}, {1, 502, 110}}));
  for (const char* bad : {"69", "111", "", "OFF", "9x"}) {
    Enter("Text1", bad);
    EXPECT_EQ(BoxText("Text1"), "92") << bad;
    EXPECT_EQ(Written(), Writes{}) << bad;
    Focus("HScroll1");
  }
}

TEST_F(FrmTemperaturaTest, TheBoilerIsShownAsItIsEvenBeyondItsBar) {
  OpenLoaded();
  Arrive(1, 24, 111);
  EXPECT_EQ(LabelText("Label1"), "111");
  EXPECT_EQ(BarOf("HScroll1").Value(), 110);
  Arrive(1, 24, 20);
  EXPECT_EQ(BoxText("Text1"), "20");
  EXPECT_EQ(BarOf("HScroll1").Value(), 70);
}

TEST_F(FrmTemperaturaTest, EveryTankRowHasItsCaptionItsSpanAndItsBox) {
  OpenLoaded();
  for (const int node : {2, 3}) {
    for (const TankRow& row : kTankRows) {
      SCOPED_TRACE(Control("Text", node, row.n));
      EXPECT_EQ(LabelText(Caption(node, row.n)), "#" + std::to_string(247 + row.n));
      const Bar& bar = BarOf(Control("HScroll", node, row.n));
      EXPECT_EQ(bar.minimum(), row.min);
      EXPECT_EQ(bar.maximum(), row.max);
      EXPECT_EQ(bar.singleStep(), 1);
      EXPECT_EQ(bar.pageStep(), row.large_change);
      EXPECT_EQ(Find<QLineEdit>(Control("Text", node, row.n)).maxLength(), row.length);
    }
  }
}

TEST_F(FrmTemperaturaTest, ABarWritesItsRecordAndItsMirrorOnItsNode) {
  OpenLoaded();
  for (const int node : {2, 3}) {
    for (const TankRow& row : kTankRows) {
      SCOPED_TRACE(Control("HScroll", node, row.n));
      const std::string before = Shows(node, row.n);
      BarOf(Control("HScroll", node, row.n)).SetValue(row.max);
      EXPECT_EQ(Written(), (Writes{{node, row.record, row.max}, {node, row.mirror, row.max}}));
      EXPECT_EQ(Shows(node, row.n), before);
    }
  }
}

TEST_F(FrmTemperaturaTest, ATankRowShowsNothingThatItsBarCannotHold) {
  OpenLoaded();
  const char* const lowest[] = {"1", "1.0", "5", "1", "1", "1", "-5"};
  const char* const highest[] = {"OFF", "5.0", "50", "9", "12", "30", "5"};
  for (const int node : {2, 3}) {
    for (const TankRow& row : kTankRows) {
      SCOPED_TRACE(row.n);
      Arrive(node, row.record, 200);
      EXPECT_EQ(Shows(node, row.n), highest[row.n]);
      EXPECT_EQ(BarOf(Control("HScroll", node, row.n)).Value(), row.max);
      Arrive(node, row.record, 0);
      EXPECT_EQ(Shows(node, row.n), lowest[row.n]);
      EXPECT_EQ(BarOf(Control("HScroll", node, row.n)).Value(), row.min);
    }
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmTemperaturaTest, TheTankIsOffAtTheEndOfItsBar) {
  OpenLoaded();
  Arrive(2, 51, 15);
  EXPECT_EQ(Shows(2, 0), "15");
  Arrive(2, 51, 16);
  EXPECT_EQ(Shows(2, 0), "OFF");
  Arrive(2, 51, 17);
  EXPECT_EQ(Shows(2, 0), "OFF");
  EXPECT_EQ(BarOf("HScroll2(0)").Value(), 16);
}

TEST_F(FrmTemperaturaTest, AnOffsetIsHeldPlusFive) {
  OpenLoaded();
  const char* const shown[] = {"-5", "-4", "-3", "-2", "-1", "0", "1", "2", "3", "4", "5"};
  for (int value = 0; value <= 10; ++value) {
    Arrive(3, 52, value);
    EXPECT_EQ(Shows(3, 6), shown[value]);
    EXPECT_EQ(BarOf("HScroll3(6)").Value(), value);
  }
}

TEST_F(FrmTemperaturaTest, TheTankTakesOneToFifteenAndThreeSpellingsOfOff) {
  OpenLoaded();
  Takes(0, "15", 15);
  Takes(0, "off", 16);
  Takes(0, "2", 2);
  Takes(0, "Off", 16);
  Takes(0, "3", 3);
  Takes(0, "OFF", 16);
  Refuses(0, {"oFF", "oFf", "16", "0", "0.6", "-1", ""});
}

TEST_F(FrmTemperaturaTest, TheHysteresisIsADigitOrADigitWithATenth) {
  OpenLoaded();
  Takes(1, "3", 30);
  Takes(1, "3,5", 35);
  Takes(1, "2.0", 20);
  Takes(1, "1", 10);
  Takes(1, "5", 50);
  Refuses(1, {"5,5", "0,9", "6", "0", "", "10", "3x5", "3.x", "3.", ".5", "OFF"});
}

TEST_F(FrmTemperaturaTest, TheWholeRowsTakeWhatTheirBarsHold) {
  OpenLoaded();
  Takes(2, "50", 50);
  Takes(2, "5", 5);
  Refuses(2, {"4", "51", "", "x"});
  Takes(3, "9", 9);
  Takes(3, "1", 1);
  Refuses(3, {"0", "", "x"});
  Takes(4, "12", 12);
  Takes(4, "1", 1);
  Refuses(4, {"0", ".6", "13", "", "x"});
  Takes(5, "30", 30);
  Takes(5, "1", 1);
  Refuses(5, {"0", ",6", "31", "", "x"});
}

TEST_F(FrmTemperaturaTest, TheOffsetTakesASignAndADigit) {
  OpenLoaded();
  Takes(6, "+5", 10);
  Takes(6, "-5", 0);
  Takes(6, "0", 5);
  Takes(6, "3", 8);
  Takes(6, "-2", 3);
  Takes(6, "-0", 5);
  Refuses(6, {"6", "+6", "-6", "12", "+", "-", "", "x"});
}

TEST_F(FrmTemperaturaTest, ABadEntryBringsTheShownValueBack) {
  OpenLoaded();
  for (const int n : {0, 1, 2, 3, 4, 5, 6}) {
    SCOPED_TRACE(n);
    Enter(Control("Text", 2, n), "x");
    EXPECT_EQ(BoxText(Control("Text", 2, n)), LabelText(Control("Label", 2, n)));
    Focus("HScroll1");
  }
}

TEST_F(FrmTemperaturaTest, EachBoxKeepsItsOwnText) {
  OpenLoaded();
  Type("Text2(2)", "4");
  Arrive(2, 55, 7);
  Arrive(3, 54, 33);
  Focus("HScroll1");
  EXPECT_EQ(BoxText("Text2(2)"), "5");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmTemperaturaTest, TakesItsWordsFromTheLanguage) {
  Open();
  EXPECT_EQ(form().windowTitle(), "#26");
  EXPECT_EQ(Find<QGroupBox>("Frame1").title(), "#244");
  EXPECT_EQ(Find<QGroupBox>("Frame2").title(), "#246");
  EXPECT_EQ(Find<QGroupBox>("Frame3").title(), "#254");
}

TEST_F(FrmTemperaturaTest, SubscribesItsRecordsAndTheGates) {
  Open();
  std::vector<Subscription> expected = {{0, 312, 1}, {0, 313, 1}, {0, 357, 1}, {1, 24, 1}};
  for (const int node : {2, 3}) {
    for (int record = 51; record <= 57; ++record) expected.push_back({node, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmTemperaturaTest, ClosingReleasesTheMirrorsOfTheFirstTankTwiceAndOfTheSecondNever) {
  Open();
  ParamTable[1][502].Subscribers = 3;
  for (const int node : {2, 3}) {
    for (int mirror = 266; mirror <= 272; ++mirror) ParamTable[node][mirror].Subscribers = 3;
  }
  Close();
  std::vector<Subscription> left = {{1, 502, 2}};
  for (int mirror = 266; mirror <= 272; ++mirror) left.push_back({2, mirror, 1});
  for (int mirror = 266; mirror <= 272; ++mirror) left.push_back({3, mirror, 3});
  EXPECT_EQ(Subscribed(), left);
}

TEST_F(FrmTemperaturaTest, UnlocksAtTheSixteenthArrivalOfARow) {
  Open();
  EXPECT_EQ(AllOpen(), (Groups{false, false, false}));
  ArriveRows();
  EXPECT_EQ(AllOpen(), (Groups{false, false, false}));
  Arrive(1, 24, 92);
  EXPECT_EQ(AllOpen(), (Groups{true, true, true}));
}

TEST_F(FrmTemperaturaTest, EveryArrivalOfAGateCountsAndNoForeignOne) {
  Open();
  for (int i = 0; i < 5; ++i) {
    for (const int gate : {312, 313, 357}) Arrive(0, gate, 255);
    Arrive(0, 24, 92);
    Arrive(1, 502, 92);
    Arrive(1, 51, 5);
    Arrive(2, 24, 92);
    Arrive(3, 266, 5);
  }
  EXPECT_EQ(AllOpen(), (Groups{false, false, false}));
  Arrive(0, 357, 255);
  EXPECT_EQ(AllOpen(), (Groups{true, true, true}));
}

TEST_F(FrmTemperaturaTest, AllFramesOpenAfterLoadingWhateverTheGatesSaidMeanwhile) {
  Open();
  for (int i = 0; i < 5; ++i) {
    for (const int gate : {312, 313, 357}) Arrive(0, gate, 0);
  }
  Arrive(1, 24, 92);
  EXPECT_EQ(AllOpen(), (Groups{true, true, true}));
  Arrive(0, 313, 0);
  EXPECT_EQ(AllOpen(), (Groups{true, false, true}));
}

TEST_F(FrmTemperaturaTest, EachFrameFollowsItsOwnGate) {
  OpenLoaded();
  Arrive(0, 312, 0);
  EXPECT_EQ(AllOpen(), (Groups{false, true, true}));
  Arrive(0, 357, 3);
  EXPECT_EQ(AllOpen(), (Groups{false, true, false}));
  Arrive(0, 313, 251);
  EXPECT_EQ(AllOpen(), (Groups{false, false, false}));
  Arrive(0, 357, 4);
  EXPECT_EQ(AllOpen(), (Groups{false, false, true}));
  Arrive(0, 312, 255);
  Arrive(0, 313, 6);
  EXPECT_EQ(AllOpen(), (Groups{true, true, true}));
}

TEST_F(FrmTemperaturaTest, TheWholeGateIsComparedAndAnEqualOneChangesNothing) {
  OpenLoaded();
  Arrive(0, 313, 4);
  Find("Frame2").setEnabled(false);
  Arrive(0, 313, 4);
  EXPECT_FALSE(Enabled("Frame2"));
  Arrive(0, 313, 6);
  EXPECT_TRUE(Enabled("Frame2"));
}

TEST_F(FrmTemperaturaTest, AGateIsHeldToBe255UntilItArrivesAfterLoading) {
  Open();
  ArriveRows();
  Arrive(1, 24, 92);
  for (const int node : {2, 3}) {
    const int gate = node == 2 ? 313 : 357;
    Type(Control("Text", node, 2), "1");
    Arrive(0, gate, 255);
    EXPECT_EQ(BoxText(Control("Text", node, 2)), "1") << "an equal gate opens nothing anew";
    Arrive(0, gate, 4);
    EXPECT_EQ(BoxText(Control("Text", node, 2)), "5");
  }
  Find("Frame1").setEnabled(false);
  Arrive(0, 312, 255);
  EXPECT_FALSE(Enabled("Frame1"));
  Arrive(0, 312, 4);
  EXPECT_TRUE(Enabled("Frame1"));
}

TEST_F(FrmTemperaturaTest, ATankThatOpensAgainShowsItsValuesAnewButNotTheBoiler) {
  OpenLoaded();
  Type("Text2(2)", "1");
  Arrive(0, 313, 6);
  EXPECT_EQ(BoxText("Text2(2)"), LabelText("Label2(2)"));
  Type("Text3(4)", "1");
  Arrive(0, 357, 6);
  EXPECT_EQ(BoxText("Text3(4)"), LabelText("Label3(4)"));
  Type("Text1", "7");
  Arrive(0, 312, 6);
  EXPECT_EQ(BoxText("Text1"), "7");
}

TEST_F(FrmTemperaturaTest, ClosingAFrameEmptiesNoOtherBox) {
  OpenLoaded();
  Type("Text2(6)", "1");
  Arrive(0, 313, 0);
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
  for (int n = 0; n < 7; ++n) EXPECT_NE(BoxText(Control("Text", 3, n)), "") << n;
  EXPECT_EQ(BoxText("Text2(6)"), "-5");
}

TEST_F(FrmTemperaturaTest, TheModelMakesNoDifference) {
  for (const int model : {20, 24, 25}) {
    ModelCode = model;
    OpenLoaded();
    EXPECT_EQ(AllOpen(), (Groups{true, true, true})) << model;
    Close();
  }
}

TEST_F(FrmTemperaturaTest, TheFramesLieSideBySide) {
  OpenLoaded();
  const QRect frames[] = {Find("Frame1").geometry(), Find("Frame2").geometry(), Find("Frame3").geometry()};
  EXPECT_LT(frames[0].right(), frames[1].left());
  EXPECT_LT(frames[1].right(), frames[2].left());
  EXPECT_EQ(frames[0].top(), frames[2].top());
}

TEST_F(FrmTemperaturaTest, TheTabKeyFollowsTheRows) {
  OpenLoaded();
  Focus("Text1");
  std::vector<std::string> expected = {"HScroll1"};
  for (const int node : {2, 3}) {
    for (int n = 0; n < 7; ++n) {
      expected.push_back(Control("Text", node, n));
      expected.push_back(Control("HScroll", node, n));
    }
  }
  EXPECT_EQ(TabThrough(29), expected);
}

}  // namespace
}  // namespace dosmara
