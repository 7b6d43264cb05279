// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTemperatura: its rows, its entries, the gates that start out as open, its closing.
#include <QApplication>
#include <QGroupBox>

#include "forms/row_cases.h"
#include "link/identification.h"

namespace dosmara {
namespace {

// What each row of a tank shows and takes. Off is the end of the bar, behind the warmest temperature, and an
// offset is held plus five.
const RowCase kTankRows[] = {
    {.record = 51,
     .mirror = 266,
     .min = 1,
     .max = 16,
     .large_change = 3,
     .length = 3,
     .arrivals =
         {{1, "1", 1}, {15, "15", 15}, {16, "OFF", 16}, {17, "OFF", 16}, {200, "OFF", 16}, {0, "1", 1}},
     .good = {{"15", 15}, {"off", 16}, {"2", 2}, {"Off", 16}, {"OFF", 16}, {"1", 1}},
     .bad = {"oFF", "oFf", "16", "0", "0.6", "-1", "", "x"}},
    {.record = 53,
     .mirror = 268,
     .min = 10,
     .max = 50,
     .large_change = 10,
     .length = 3,
     .arrivals = {{10, "1.0", 10}, {35, "3.5", 35}, {200, "5.0", 50}, {0, "1.0", 10}},
     .good = {{"3", 30}, {"3,5", 35}, {"2.0", 20}, {"1", 10}, {"5", 50}},
     .bad = {"5,5", "0,9", "6", "0", "", "10", "3x5", "3.x", "3.", ".5", "OFF", "x"}},
    {.record = 54,
     .mirror = 269,
     .min = 5,
     .max = 50,
     .large_change = 3,
     .length = 2,
     .arrivals = {{5, "5", 5}, {49, "49", 49}, {200, "50", 50}, {0, "5", 5}},
     .good = {{"50", 50}, {"5", 5}},
     .bad = {"4", "51", "", "x"}},
    {.record = 55,
     .mirror = 270,
     .min = 1,
     .max = 9,
     .large_change = 3,
     .length = 1,
     .arrivals = {{1, "1", 1}, {8, "8", 8}, {200, "9", 9}, {0, "1", 1}},
     .good = {{"9", 9}, {"1", 1}},
     .bad = {"0", "", "x"}},
    {.record = 56,
     .mirror = 271,
     .min = 1,
     .max = 12,
     .large_change = 3,
     .length = 2,
     .arrivals = {{1, "1", 1}, {11, "11", 11}, {200, "12", 12}, {0, "1", 1}},
     .good = {{"12", 12}, {"1", 1}},
     .bad = {"0", ".6", "13", "", "x"}},
    {.record = 57,
     .mirror = 272,
     .min = 1,
     .max = 30,
     .large_change = 3,
     .length = 2,
     .arrivals = {{1, "1", 1}, {29, "29", 29}, {200, "30", 30}, {0, "1", 1}},
     .good = {{"30", 30}, {"1", 1}},
     .bad = {"0", ",6", "31", "", "x"}},
    {.record = 52,
     .mirror = 267,
     .min = 0,
     .max = 10,
     .large_change = 3,
     .length = 2,
     .arrivals = {{0, "-5", 0},
                  {1, "-4", 1},
                  {2, "-3", 2},
                  {3, "-2", 3},
                  {4, "-1", 4},
                  {5, "0", 5},
                  {6, "1", 6},
                  {7, "2", 7},
                  {8, "3", 8},
                  {9, "4", 9},
                  {10, "5", 10},
                  {200, "5", 10}},
     .good = {{"+5", 10}, {"-5", 0}, {"0", 5}, {"3", 8}, {"-2", 3}, {"-0", 5}},
     .bad = {"6", "+6", "-6", "12", "+", "-", "", "x"}},
};

const RowCase kBoiler = {.caption = "Label1s",
                         .value = "Label1",
                         .box = "Text1",
                         .bar = "HScroll1",
                         .words = "#245",
                         .node = 1,
                         .record = 24,
                         .mirror = 502,
                         .min = 70,
                         .max = 110,
                         .large_change = 5,
                         .length = 3,
                         .arrivals = {{92, "92", 92}, {70, "70", 70}, {111, "111", 110}, {20, "20", 70}},
                         .good = {{"70", 70}, {"110", 110}},
                         .bad = {"69", "111", "", "OFF", "9x"}};

// A control of the tank of node 2 or 3: "Text2(1)" is Control("Text", 2, 1).
std::string Control(const std::string& stem, int node, int n) {
  return Element((stem + std::to_string(node)).c_str(), n);
}
std::string Caption(int node, int n) { return Element(("Label" + std::to_string(node) + "s").c_str(), n); }

FormRows TemperatureRows() {
  FormRows form = {.form = "FrmTemperatura",
                   .opens = {{0, 312, 4}, {0, 313, 4}, {0, 357, 4}},
                   .closes = {{0, 312, 0}, {0, 313, 0}, {0, 357, 0}},
                   .rows = {kBoiler}};
  for (const int node : {2, 3}) {
    for (int n = 0; n < 7; ++n) {
      RowCase& row = form.rows.emplace_back(kTankRows[n]);
      row.caption = Caption(node, n);
      row.value = Control("Label", node, n);
      row.box = Control("Text", node, n);
      row.bar = Control("HScroll", node, n);
      row.words = "#" + std::to_string(247 + n);
      row.node = node;
    }
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmTemperatura, EachRow, testing::Values(TemperatureRows()));

class FrmTemperaturaTest : public FormFixture {
 protected:
  void Open() { FormFixture::Open("FrmTemperatura"); }

  // Each row arrives once, within its bar: 15 arrivals.
  void ArriveRows() {
    Arrive(1, 24, 92);
    for (const int node : {2, 3}) {
      for (const RowCase& row : kTankRows) {
        Arrive(node, row.record, row.min);
      }
    }
  }

  // All boards are in use and have answered.
  void OpenLoaded() {
    Open();
    ArriveRows();
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, 4);
    }
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
    friend void PrintTo(const Groups& open, std::ostream* out) {
      *out << "boiler " << open.boiler << ", tanks " << open.tank2 << ' ' << open.tank3;
    }
  };
  Groups AllOpen() { return {BoilerOpen(), TankOpen(2), TankOpen(3)}; }
};

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
    for (int record = 51; record <= 57; ++record) {
      expected.push_back({node, record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), expected);
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
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, 255);
    }
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

TEST_F(FrmTemperaturaTest, AllFramesOpenAfterLoadingWhateverTheGatesSaidMeanwhileAsPrescribed) {
  Open();
  for (int i = 0; i < 5; ++i) {
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, 0);
    }
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

TEST_F(FrmTemperaturaTest, AGateIsHeldToBe255UntilItArrivesAfterLoadingAsPrescribed) {
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

TEST_F(FrmTemperaturaTest, ATankThatOpensAgainShowsItsValuesAnewButNotTheBoilerAsPrescribed) {
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
  for (int n = 0; n < 7; ++n) {
    EXPECT_NE(BoxText(Control("Text", 3, n)), "") << n;
  }
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

TEST_F(FrmTemperaturaTest, ABarLiesBelowItsValueSoThatThreeFramesFitSideBySide) {
  OpenLoaded();
  QApplication::processEvents();
  for (const int node : {2, 3}) {
    for (int n = 0; n < 7; ++n) {
      SCOPED_TRACE(Control("Text", node, n));
      const QRect box = Find(Control("Text", node, n)).geometry();
      const QRect bar = Find(Control("HScroll", node, n)).geometry();
      EXPECT_GT(box.left(), Find(Caption(node, n)).geometry().right());
      EXPECT_GT(bar.top(), box.bottom());
      EXPECT_LE(bar.left(), Find(Caption(node, n)).x());
      EXPECT_GT(bar.right(), box.right()) << "the bar has the width of all above it";
      EXPECT_EQ(MarkBehind(Control("Text", node, n)), EchoMark::State::kNone);
      if (n > 0) {
        EXPECT_GT(Find(Caption(node, n)).y(), Find(Control("HScroll", node, n - 1)).geometry().bottom());
      }
    }
  }
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
