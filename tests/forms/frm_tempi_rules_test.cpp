// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTempi's own rules: opening, the three gates, the model without a row, closing.
#include <QApplication>
#include <QGroupBox>
#include <QTabBar>
#include <QTabWidget>

#include "forms/form_fixture.h"
#include "link/identification.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

constexpr int kMainRecords[] = {31, 25, 26, 30, 32, 561, 585, 587};
constexpr int kMainMirrors[] = {509, 503, 504, 508, 510, 562, 586, 588};
constexpr int kMainRows[] = {0, 1, 2, 3, 4, 6, 8, 9};

class FrmTempiTest : public FormFixture {
 protected:
  void Open() { FormFixture::Open("FrmTempi"); }

  // All boards are in use and have answered.
  void OpenLoaded() {
    Open();
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, 4);
    }
    ArriveMain();
    ArriveZeth(2);
    ArriveZeth(3);
  }
  void ArriveMain() {
    for (const int record : kMainRecords) {
      Arrive(1, record, 40);
    }
  }
  // 19 arrivals.
  void ArriveZeth(int node) {
    Arrive(node, 58, 40);
    for (int record = 292; record <= 309; ++record) {
      Arrive(node, record, 2);
    }
  }

  QTabWidget& Tabs() { return Find<QTabWidget>("SSTab1"); }
  void ShowTab(int tab) { Tabs().setCurrentIndex(tab - 1); }

  // Whether a single row takes changes; its value is read on the label where it does not.
  bool SingleOpen(int n) {
    const bool open = Enabled(Element("HScroll1", n));
    EXPECT_EQ(Shown(Element("txtTempi", n)), open) << n;
    EXPECT_TRUE(Shown(Element("Label1", n))) << n;
    EXPECT_EQ(Enabled(Element("Label1", n)), open) << n;
    EXPECT_EQ(Enabled(Element("Label2", n)), open) << n;
    return open;
  }

  bool MainOpen() {
    ShowTab(1);
    const bool open = Enabled("Frame1");
    for (const int n : kMainRows) {
      EXPECT_EQ(SingleOpen(n), open) << n;
    }
    return open;
  }

  // The boxes of the drawers stay in sight whether they are open or not.
  bool ZethOpen(int tab) {
    ShowTab(tab);
    const bool open = Enabled(tab == 2 ? "Frame2" : "Frame3");
    EXPECT_EQ(SingleOpen(tab == 2 ? 5 : 7), open);
    for (const char* frame : {"Frame13", "Frame50", "Frame51"}) {
      EXPECT_EQ(Enabled(Element(frame, tab - 2)), open) << frame;
    }
    for (int i = 1; i <= 18; ++i) {
      for (const std::string& name :
           {Element(tab == 2 ? "Label10" : "Label11", i - 1), Element(tab == 2 ? "Label3" : "Label4", i),
            Element(tab == 2 ? "txtzeth1" : "txtzeth2", i), Element(tab == 2 ? "HScroll3" : "HScroll4", i)}) {
        EXPECT_EQ(Enabled(name), open) << name;
        EXPECT_TRUE(Shown(name)) << name;
      }
    }
    return open;
  }

  struct Groups {
    bool main, zeth, zeth2;
    bool operator==(const Groups&) const = default;
    friend void PrintTo(const Groups& open, std::ostream* out) {
      *out << "main " << open.main << ", units " << open.zeth << ' ' << open.zeth2;
    }
  };
  Groups Open3() { return {MainOpen(), ZethOpen(2), ZethOpen(3)}; }
};

using Writes = std::vector<Write>;

TEST_F(FrmTempiTest, OpensGreyOnTheFirstTab) {
  Open();
  EXPECT_EQ(Tabs().currentIndex(), 0);
  EXPECT_EQ(Tabs().count(), 3);
  EXPECT_EQ(Open3(), (Groups{false, false, false}));
}

TEST_F(FrmTempiTest, TakesItsWordsFromTheLanguage) {
  Open();
  EXPECT_EQ(form().windowTitle(), "#4");
  const char* const titles[] = {"#47", "#54", "#56"};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Tabs().tabText(i), titles[i]);
    EXPECT_EQ(Find<QGroupBox>("Frame" + std::to_string(i + 1)).title(), titles[i]);
  }
}

TEST_F(FrmTempiTest, SubscribesItsRecordsAndTheGates) {
  Open();
  std::vector<Subscription> expected = {{0, 312, 1}, {0, 313, 1}, {0, 357, 1}};
  for (const int record : {25, 26, 30, 31, 32, 561, 585, 587}) {
    expected.push_back({1, record, 1});
  }
  for (const int node : {2, 3}) {
    expected.push_back({node, 58, 1});
    for (int record = 292; record <= 309; ++record) {
      expected.push_back({node, record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmTempiTest, UnlocksAtTheTwentyFirstArrival) {
  Open();
  for (const int gate : {312, 313, 357}) {
    Arrive(0, gate, 4);
  }
  for (int i = 0; i < 17; ++i) {
    Arrive(1, 31, 50);
  }
  EXPECT_EQ(Open3(), (Groups{false, false, false}));
  Arrive(1, 587, 50);
  EXPECT_EQ(Open3(), (Groups{true, true, true}));
}

TEST_F(FrmTempiTest, EveryRowCounts) {
  for (const int node : {1, 2, 3}) {
    Open();
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, 4);
    }
    if (node == 1) {
      ArriveMain();
      ArriveMain();
      Arrive(1, 31, 0);
    } else {
      for (int record = 292; record <= 308; ++record) {
        Arrive(node, record, 1);
      }
    }
    EXPECT_FALSE(MainOpen());
    Arrive(node, node == 1 ? 31 : 58, 0);
    EXPECT_TRUE(MainOpen()) << node;
    Close();
  }
}

TEST_F(FrmTempiTest, ForeignArrivalsDoNotCount) {
  Open();
  Arrive(0, 312, 4);
  for (int i = 0; i < 30; ++i) {
    for (const int mirror : kMainMirrors) {
      Arrive(1, mirror, 40);
    }
    Arrive(0, 31, 40);
    Arrive(1, 58, 40);
    Arrive(1, 292, 4);
    Arrive(2, 31, 40);
    Arrive(3, 310, 2);
    Arrive(0, 317, 4);
  }
  EXPECT_EQ(Open3(), (Groups{false, false, false}));
  EXPECT_EQ(LabelText("Label1(0)"), "");
  EXPECT_EQ(LabelText("Label1(5)"), "");
}

TEST_F(FrmTempiTest, EachGroupUnlocksByItsOwnGate) {
  const struct {
    int hot_drinks, zeth, zeth2;
  } all[] = {{4, 0, 0}, {0, 4, 0}, {0, 0, 4}, {251, 255, 4}};
  for (const auto& gates : all) {
    Open();
    Arrive(0, 312, gates.hot_drinks);
    Arrive(0, 313, gates.zeth);
    Arrive(0, 357, gates.zeth2);
    ArriveMain();
    ArriveZeth(2);
    EXPECT_EQ(Open3(), (Groups{(gates.hot_drinks & 4) != 0, (gates.zeth & 4) != 0, (gates.zeth2 & 4) != 0}));
    Close();
  }
}

TEST_F(FrmTempiTest, EachGroupFollowsItsOwnGate) {
  OpenLoaded();
  EXPECT_EQ(Open3(), (Groups{true, true, true}));
  Arrive(0, 313, 0);
  EXPECT_EQ(Open3(), (Groups{true, false, true}));
  Arrive(0, 357, 3);
  EXPECT_EQ(Open3(), (Groups{true, false, false}));
  Arrive(0, 312, 0);
  EXPECT_EQ(Open3(), (Groups{false, false, false}));
  Arrive(0, 313, 255);
  EXPECT_EQ(Open3(), (Groups{false, true, false}));
  Arrive(0, 312, 4);
  Arrive(0, 357, 4);
  EXPECT_EQ(Open3(), (Groups{true, true, true}));
}

TEST_F(FrmTempiTest, OtherBitsOfAGateChangeNothing) {
  OpenLoaded();
  Find("Frame2").setEnabled(false);
  Arrive(0, 313, 6);
  EXPECT_FALSE(Enabled("Frame2"));
}

TEST_F(FrmTempiTest, ABoardThatNeverAnswersLeavesItsTabGreyAlone) {
  Open();
  Arrive(0, 312, 4);
  Arrive(0, 313, 4);
  ArriveMain();
  ArriveZeth(2);
  EXPECT_EQ(Open3(), (Groups{true, true, false}));
}

TEST_F(FrmTempiTest, TwentyArrivalsFromTheRestAreNotEnough) {
  Open();
  Arrive(0, 313, 4);
  ArriveZeth(2);
  EXPECT_EQ(Open3(), (Groups{false, false, false}));
}

TEST_F(FrmTempiTest, TheUnitsHoldTheirValuesApart) {
  OpenLoaded();
  Arrive(2, 292, 3);
  Arrive(3, 292, 9);
  Arrive(2, 58, 100);
  EXPECT_EQ(LabelText("Label3(1)"), "0.3");
  EXPECT_EQ(LabelText("Label4(1)"), "0.9");
  EXPECT_EQ(LabelText("Label1(5)"), "10.0");
  EXPECT_EQ(LabelText("Label1(7)"), "4.0");
}

TEST_F(FrmTempiTest, AClosedGroupStillShowsWhatArrives) {
  OpenLoaded();
  Arrive(0, 312, 0);
  Arrive(0, 313, 0);
  Arrive(1, 31, 99);
  Arrive(2, 309, 200);
  EXPECT_EQ(LabelText("Label1(0)"), "9.9");
  EXPECT_EQ(BoxText("txtzeth1(18)"), "200");
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmTempiTest, AModelWithoutTheFillTimeoutStillReadsItAsPrescribed) {
  ModelCode = 20;
  OpenLoaded();
  for (const char* name : {"Label2(6)", "Label1(6)", "HScroll1(6)", "txtTempi(6)"}) {
    EXPECT_FALSE(Shown(name)) << name;
  }
  EXPECT_EQ(ParamTable[1][561].Subscribers, 1);
  EXPECT_EQ(LabelText("Label1(6)"), "40");
  Arrive(0, 312, 0);
  Arrive(0, 312, 4);
  EXPECT_FALSE(Shown("txtTempi(6)"));
  EXPECT_TRUE(Shown("txtTempi(4)"));
}

TEST_F(FrmTempiTest, OtherModelsHaveTheFillTimeout) {
  for (const int model : {19, 21}) {
    ModelCode = model;
    OpenLoaded();
    EXPECT_TRUE(Shown("txtTempi(6)")) << model;
    Close();
  }
}

TEST_F(FrmTempiTest, ClosingAGroupEmptiesNoOtherBox) {
  OpenLoaded();
  ShowTab(2);
  Type("txtTempi(5)", "9");
  Arrive(0, 313, 0);
  EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
  for (int i = 1; i <= 18; ++i) {
    EXPECT_NE(BoxText(Element("txtzeth1", i)), "") << i;
  }
  EXPECT_EQ(BoxText("txtTempi(5)"), "4.0");
}

TEST_F(FrmTempiTest, TheBoxesOfAUnitStandInLineInEveryLanguage) {
  OpenLoaded();
  for (const char* words : {"a longer caption", "short"}) {
    CaptionTable[621] = words;
    form().InitMessaggi();
    for (const int tab : {2, 3}) {
      ShowTab(tab);
      QApplication::processEvents();
      const auto left = [&](const std::string& name) { return Find(name).mapTo(&form(), QPoint()).x(); };
      const int column = left(tab == 2 ? "txtTempi(5)" : "txtTempi(7)");
      for (const int i : {1, 8, 17, 18}) {
        EXPECT_EQ(left(Element(tab == 2 ? "txtzeth1" : "txtzeth2", i)), column) << words << " " << i;
      }
    }
  }
}

TEST_F(FrmTempiTest, OpensOnItsFirstTimeAndNotOnTheTabs) {
  Open();
  ASSERT_TRUE(Tabs().tabBar()->hasFocus());
  form().TakeFocus();
  for (const int gate : {312, 313, 357}) {
    Arrive(0, gate, 4);
  }
  ArriveMain();
  ArriveZeth(2);
  ArriveZeth(3);
  EXPECT_TRUE(Find("txtTempi(0)").hasFocus());
}

TEST_F(FrmTempiTest, TheTabKeyFollowsTheRows) {
  OpenLoaded();
  Focus("SSTab1");
  std::vector<std::string> expected;
  for (const int n : kMainRows) {
    expected.push_back(Element("txtTempi", n));
    expected.push_back(Element("HScroll1", n));
  }
  EXPECT_EQ(TabThrough(16), expected);
  ShowTab(3);
  Focus("SSTab1");
  expected = {"txtTempi(7)", "HScroll1(7)"};
  for (int i = 1; i <= 18; ++i) {
    expected.push_back(Element("txtzeth2", i));
    expected.push_back(Element("HScroll4", i));
  }
  EXPECT_EQ(TabThrough(38), expected);
}

}  // namespace
}  // namespace dosmara
