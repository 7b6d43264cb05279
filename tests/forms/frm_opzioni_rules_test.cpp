// SPDX-License-Identifier: GPL-3.0-or-later
// FrmOpzioni: what opens and closes its controls.
#include <QApplication>
#include <QTest>

#include "forms/form_list.h"
#include "forms/opzioni_fixture.h"
#include "link/identification.h"

namespace dosmara {
namespace {

// The controls of the main board that open with the form.
const std::vector<std::string> kMain = {
    "Label1(1)",  "SwitchX1(1)",  "Label1(7)",  "SwitchX1(7)",  "Label1(13)", "SwitchX1(13)",
    "Label1(14)", "SwitchX1(14)", "Label1(15)", "SwitchX1(15)", "Label1(12)", "SwitchX1(12)",
    "Label1(20)", "SwitchX1(26)", "Label4",     "SlswitchX1",   "Label9",     "SlswitchX5"};
const std::vector<std::string> kPoint = {"Label5", "SlswitchX2"};
const std::vector<std::string> kZethUnit = {"Label8",       "SlswitchX4",   "Frame1",      "SwitchX1(18)",
                                            "SwitchX1(21)", "SwitchX1(22)", "SwitchX1(12)"};
const std::vector<std::string> kZeth2Unit = {"Label11",      "SlswitchX6",   "Frame2",
                                             "SwitchX1(23)", "SwitchX1(24)", "SwitchX1(20)"};

std::vector<std::string> HotDrinks() {
  std::vector<std::string> names;
  for (const int n : {0, 2, 3, 4, 5, 6, 8, 9, 10, 11, 16, 17, 19, 25}) {
    names.push_back(Element("Label1", n));
    names.push_back(Element("SwitchX1", n));
  }
  for (int n = 0; n < 3; ++n) {
    for (const char* array : {"HScroll1", "Label10", "Label6", "Text2"}) {
      names.push_back(Element(array, n));
    }
  }
  return names;
}

class FrmOpzioniRulesTest : public OpzioniFixture {
 protected:
  void ExpectOpen(const std::vector<std::string>& names, bool open) {
    for (const std::string& name : names) {
      EXPECT_EQ(Enabled(name), open) << name;
    }
  }
  void ExpectAllOpen(bool open) {
    for (const auto& group : {kMain, kPoint, HotDrinks(), kZethUnit, kZeth2Unit}) {
      ExpectOpen(group, open);
    }
  }
  bool Unlocked() { return Enabled("SlswitchX5"); }
};

TEST_F(FrmOpzioniRulesTest, IsLockedUntilTwentyArrivalsHaveCounted) {
  ExpectAllOpen(false);
  SendAll(kOpensOptions);
  ExpectAllOpen(false);
  SendAll({{1, 28, 20}, {1, 29, 20}});
  ExpectAllOpen(false);
  SendAll({{1, 33, 100}});
  ExpectAllOpen(true);
}

TEST_F(FrmOpzioniRulesTest, EachOfTheTwentyCounts) {
  for (const int record : {84, 77, 78, 359, 132, 133, 333, 334, 311}) {
    for (int i = 0; i < 2; ++i) {
      Arrive(0, record, 0);
    }
  }
  Arrive(1, 46, 0);
  EXPECT_FALSE(Unlocked()) << "nineteen";
  Arrive(1, 47, 0);
  EXPECT_TRUE(Unlocked());
  for (const Sent& sent :
       {Sent{1, 46, 0}, {1, 47, 0}, {1, 28, 0}, {1, 29, 0}, {1, 33, 0}, {2, 59, 0}, {3, 59, 0}}) {
    Close();
    FormFixture::Open("FrmOpzioni");
    for (int i = 0; i < 19; ++i) {
      Arrive(sent.node, sent.record, 0);
    }
    EXPECT_FALSE(Unlocked());
    Arrive(sent.node, sent.record, 0);
    EXPECT_TRUE(Unlocked()) << sent.node << " " << sent.record;
  }
}

TEST_F(FrmOpzioniRulesTest, ForeignOnesAndVersionsAndTwoOfTheBytesDoNotCount) {
  for (int i = 0; i < 25; ++i) {
    SendAll({{0, 83, 0},
             {0, 361, 0},
             {0, 310, 0},
             {1, 534, 0},
             {2, 283, 0},
             {3, 283, 0},
             {0, 76, 0},
             {0, 285, 0}});
  }
  SendAll(kOpensOptions);
  SendAll({{1, 28, 20}, {1, 29, 20}});
  EXPECT_FALSE(Unlocked());
}

TEST_F(FrmOpzioniRulesTest, UnitFlagsAndStatusCountOnlyWhenTheyDiffer) {
  for (const int record : {312, 313, 357, 317}) {
    SCOPED_TRACE(record);
    for (int i = 0; i < 25; ++i) {
      Arrive(0, record, 255);
    }
    EXPECT_FALSE(Unlocked()) << "the value that stands before any has come";
    for (int i = 0; i < 19; ++i) {
      Arrive(0, record, i % 2);
      Arrive(0, record, i % 2);
    }
    EXPECT_FALSE(Unlocked());
    Arrive(0, record, 2);
    EXPECT_TRUE(Unlocked());
    Close();
    FormFixture::Open("FrmOpzioni");
  }
}

TEST_F(FrmOpzioniRulesTest, AMachineWithoutAUnitKeepsTheFormLockedAsPrescribed) {
  for (const Sent& sent : kOpensOptions) {
    if (sent.node != 3) {
      Arrive(sent.node, sent.record, sent.value);
    }
  }
  SendSettings();
  for (int i = 0; i < 9; ++i) {
    SendAll({{0, 317, 8}, {0, 312, 4}, {0, 313, 4}, {0, 357, 4}});
  }
  ExpectAllOpen(false);
}

TEST_F(FrmOpzioniRulesTest, TheNumbersAreOpenFromTheStart) {
  for (int n = 0; n < 4; ++n) {
    EXPECT_TRUE(Enabled(Element("Text1", n)));
  }
}

TEST_F(FrmOpzioniRulesTest, OnlyTheUnitsInUseOpenWithTheForm) {
  SendAll({{0, 312, 251}, {0, 313, 251}, {0, 357, 0}});
  SendAll({{1, 46, 0},
           {1, 47, 0},
           {2, 59, 0},
           {3, 59, 0},
           {0, 317, 8},
           {0, 84, 0},
           {0, 77, 0},
           {0, 78, 0},
           {0, 359, 0},
           {0, 132, 7},
           {0, 133, 7},
           {0, 333, 7},
           {0, 334, 7},
           {0, 311, 0}});
  SendSettings();
  ExpectOpen(kMain, true);
  ExpectOpen(kPoint, true);
  ExpectOpen(HotDrinks(), false);
  ExpectOpen({"Label8", "SlswitchX4", "Frame1", "SwitchX1(18)", "SwitchX1(21)", "SwitchX1(22)"}, false);
  ExpectOpen(kZeth2Unit, false);
  Arrive(0, 313, 251);
  EXPECT_TRUE(Enabled("SwitchX1(12)")) << "no change of the unit";
}

TEST_F(FrmOpzioniRulesTest, AUnitOpensAndClosesWithItsFlagOnceTheFormIsOpen) {
  Unlock();
  const std::pair<int, std::vector<std::string>> units[] = {
      {312, HotDrinks()}, {313, kZethUnit}, {357, kZeth2Unit}};
  for (const auto& [record, names] : units) {
    SCOPED_TRACE(record);
    Arrive(0, record, 251);
    ExpectOpen(names, false);
    for (const auto& [other, others] : units) {
      if (other != record) {
        ExpectOpen(others, true);
      }
    }
    Arrive(0, record, 255);
    ExpectAllOpen(true);
  }
  Arrive(0, 313, 0);
  EXPECT_TRUE(Enabled("Label1(12)"));
}

TEST_F(FrmOpzioniRulesTest, DecaffeinatedGivesWayToTheFourthCanisterWhateverOpensTheUnit) {
  const std::vector<std::string> decaffeinated = {"Label1(0)", "SwitchX1(0)"};
  Unlock();
  Arrive(1, 47, 128);
  ExpectOpen(decaffeinated, false);
  EXPECT_TRUE(Enabled("SwitchX1(19)"));
  SendAll({{0, 312, 0}, {0, 312, 4}});
  ExpectOpen(decaffeinated, false);
  EXPECT_TRUE(Enabled("SwitchX1(8)"));
  Arrive(1, 47, 127);
  ExpectOpen(decaffeinated, true);
}

TEST_F(FrmOpzioniRulesTest, AFourthCanisterThatIsThereFirstKeepsDecaffeinatedClosed) {
  Arrive(1, 47, 128);
  for (const Sent& sent : kOpensOptions) {
    if (sent.record != 47) {
      Arrive(sent.node, sent.record, sent.value);
    }
  }
  SendSettings();
  EXPECT_TRUE(Unlocked());
  EXPECT_FALSE(Enabled("SwitchX1(0)"));
  EXPECT_FALSE(Enabled("Label1(0)"));
}

TEST_F(FrmOpzioniRulesTest, ThePointIsOpenWithTokensAndG13Alone) {
  Unlock();
  for (int bits = 0; bits < 8; ++bits) {
    Arrive(0, 84, 248 + bits);
    ExpectOpen(kPoint, bits < 2);
    Arrive(0, 84, 248);
    ExpectOpen(kPoint, true);
  }
}

TEST_F(FrmOpzioniRulesTest, ThePointOpensWithTheFormUnlessThePaymentSystemHasIt) {
  for (const auto& [value, open] : {std::pair{249, true}, {250, false}, {252, false}, {248, true}}) {
    Close();
    FormFixture::Open("FrmOpzioni");
    SendAll(kOpensOptions);
    SendAll({{1, 28, 20}});
    Arrive(0, 84, value);
    ExpectOpen(kPoint, false);
    SendAll({{1, 33, 100}});
    ExpectOpen(kPoint, open);
  }
}

TEST_F(FrmOpzioniRulesTest, NothingLocksItAgainAsPrescribed) {
  Unlock();
  SendAll(kOpensOptions);
  SendSettings();
  ExpectAllOpen(true);
}

TEST_F(FrmOpzioniRulesTest, AnOlderModelHasNoPowderFirst) {
  const auto marks = ShownMarks();
  for (const char* name : {"SwitchX1(25)", "Label1(25)", "Label12", "Label13"}) {
    EXPECT_TRUE(Shown(name)) << name;
  }
  Close();
  ModelCode = 24;
  FormFixture::Open("FrmOpzioni");
  Unlock();
  for (const char* name : {"SwitchX1(25)", "Label1(25)", "Label12", "Label13"}) {
    EXPECT_FALSE(Shown(name)) << name;
  }
  EXPECT_TRUE(Shown("SwitchX1(19)"));
  EXPECT_TRUE(Shown("Label2"));
  EXPECT_EQ(ShownMarks(), marks - 1);
}

TEST_F(FrmOpzioniRulesTest, TheTabKeyFollowsTheFrames) {
  Unlock();
  Focus("SlswitchX5");
  const std::vector<std::string> expected = {
      "SlswitchX2",   "SlswitchX1",   "SwitchX1(14)", "SwitchX1(13)", "SwitchX1(12)", "SwitchX1(7)",
      "SwitchX1(1)",  "SwitchX1(15)", "SwitchX1(26)", "Text1(0)",     "Text1(1)",     "Text1(2)",
      "Text1(3)",     "Text2(0)",     "HScroll1(0)",  "Text2(1)",     "HScroll1(1)",  "Text2(2)",
      "HScroll1(2)",  "SwitchX1(11)", "SwitchX1(25)", "SwitchX1(0)",  "SwitchX1(19)", "SwitchX1(8)",
      "SwitchX1(16)", "SwitchX1(9)",  "SwitchX1(10)", "SwitchX1(2)",  "SwitchX1(4)",  "SwitchX1(17)",
      "SwitchX1(5)",  "SwitchX1(6)",  "SwitchX1(3)",  "SlswitchX4",   "SwitchX1(18)", "SwitchX1(21)",
      "SwitchX1(22)", "SlswitchX6",   "SwitchX1(23)", "SwitchX1(24)", "SwitchX1(20)"};
  EXPECT_EQ(TabThrough(static_cast<int>(expected.size())), expected);
}

TEST_F(FrmOpzioniRulesTest, TheFocusOpensOnThePaymentSystem) {
  Unlock();
  QApplication::processEvents();
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "SlswitchX5");
}

}  // namespace
}  // namespace dosmara
