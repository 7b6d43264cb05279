// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTempi, row by row: which record a row is, how it shows, what it takes.
#include <QTabWidget>

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

// A row of any of the three tables, by the names of its controls.
struct TimeRow {
  int tab;
  std::string caption, value, box, bar;
  std::string caption_text;
  int node, record, mirror;
  int min, max, large_change;
  int length;
  bool tenths;
};

TimeRow SingleRow(int n, int tab, int line, int node, int record, int mirror, int min, int max, int length,
                  bool tenths) {
  return {tab,
          Element("Label2", n),
          Element("Label1", n),
          Element("txtTempi", n),
          Element("HScroll1", n),
          "#" + std::to_string(line),
          node,
          record,
          mirror,
          min,
          max,
          1,
          length,
          tenths};
}

// Row i of the drawers on tab 2 or 3, the node being the tab.
TimeRow DrawerRow(int tab, int i, const std::string& caption, int min, int max, int large_change, int length,
                  bool tenths) {
  const char* const names[][4] = {{"Label10", "Label3", "txtzeth1", "HScroll3"},
                                  {"Label11", "Label4", "txtzeth2", "HScroll4"}};
  const auto& name = names[tab - 2];
  return {tab,
          Element(name[0], i - 1),
          Element(name[1], i),
          Element(name[2], i),
          Element(name[3], i),
          caption,
          tab,
          291 + i,
          309 + i,
          min,
          max,
          large_change,
          length,
          tenths};
}

std::vector<TimeRow> AllRows() {
  std::vector<TimeRow> rows = {
      SingleRow(0, 1, 48, 1, 31, 509, 0, 100, 4, true),
      SingleRow(1, 1, 49, 1, 25, 503, 0, 100, 4, true),
      SingleRow(2, 1, 50, 1, 26, 504, 0, 100, 4, true),
      SingleRow(3, 1, 51, 1, 30, 508, 0, 255, 4, true),
      SingleRow(4, 1, 52, 1, 32, 510, 0, 90, 2, false),
      SingleRow(5, 2, 55, 2, 58, 273, 0, 250, 4, true),
      SingleRow(6, 1, 53, 1, 561, 562, 5, 60, 2, false),
      SingleRow(7, 3, 55, 3, 58, 273, 0, 250, 4, true),
      SingleRow(8, 1, 622, 1, 587, 588, 29, 230, 4, true),
      SingleRow(9, 1, 623, 1, 585, 586, 0, 255, 3, false),
  };
  for (const int tab : {2, 3}) {
    for (int drawer = 1; drawer <= 8; ++drawer) {
      const std::string number = " " + std::to_string(drawer);
      rows.push_back(DrawerRow(tab, drawer, "#618" + number, 0, 10, 10, 3, true));
      rows.push_back(DrawerRow(tab, 8 + drawer, "#619" + number, 1, 3, 1, tab == 2 ? 1 : 3, false));
    }
    rows.push_back(DrawerRow(tab, 17, "#620", 10, 30, 10, 3, true));
    rows.push_back(DrawerRow(tab, 18, "#621", 120, 240, 10, 3, false));
  }
  return rows;
}

// The form with every row open, at the lower end of its bar.
class FrmTempiTable : public FormFixture {
 protected:
  FrmTempiTable() {
    Open("FrmTempi");
    for (const int gate : {312, 313, 357}) Arrive(0, gate, 4);
    for (const TimeRow& row : rows_) Arrive(row.node, row.record, row.min);
  }

  void ShowTab(int tab) { Find<QTabWidget>("SSTab1").setCurrentIndex(tab - 1); }

  // The entry is good and makes the record and its mirror `value`.
  void Takes(const std::string& box, const std::string& text, int node, int record, int mirror, int value) {
    EnterAndLeave(box, text, "SSTab1");
    EXPECT_EQ(Written(), (Writes{{node, record, value}, {node, mirror, value}})) << box << " " << text;
  }

  // The entry is bad: nothing is written, nothing moves, the old text is back.
  void Refuses(const std::string& box, const std::string& bar, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      const int before = BarOf(bar).Value();
      const std::string shown = BoxText(box);
      Enter(box, text);
      EXPECT_EQ(BoxText(box), shown) << box << " " << text;
      Focus("SSTab1");
      EXPECT_EQ(Written(), Writes{}) << box << " " << text;
      EXPECT_EQ(BarOf(bar).Value(), before) << box << " " << text;
      EXPECT_EQ(BoxText(box), shown) << box << " " << text;
    }
  }

  const std::vector<TimeRow> rows_ = AllRows();
};

TEST_F(FrmTempiTable, EveryRowHasItsCaptionItsSpanAndItsBox) {
  EXPECT_EQ(rows_.size(), 46u);
  for (const TimeRow& row : rows_) {
    SCOPED_TRACE(row.box);
    EXPECT_EQ(LabelText(row.caption), row.caption_text);
    const Bar& bar = BarOf(row.bar);
    EXPECT_EQ(bar.minimum(), row.min);
    EXPECT_EQ(bar.maximum(), row.max);
    EXPECT_EQ(bar.singleStep(), 1);
    EXPECT_EQ(bar.pageStep(), row.large_change);
    EXPECT_EQ(Find<QLineEdit>(row.box).maxLength(), row.length);
    EXPECT_EQ(Find(row.box).accessibleName().toStdString(), row.caption_text);
    EXPECT_EQ(bar.accessibleName().toStdString(), row.caption_text);
  }
}

TEST_F(FrmTempiTable, EveryRowLiesOnTheTabOfItsBoard) {
  for (const int tab : {1, 2, 3}) {
    ShowTab(tab);
    for (const TimeRow& row : rows_) {
      EXPECT_EQ(Find(row.box).isVisible(), row.tab == tab) << row.box << " on tab " << tab;
      EXPECT_EQ(Find(row.bar).isVisible(), row.tab == tab) << row.bar << " on tab " << tab;
    }
  }
}

TEST_F(FrmTempiTable, ABarWritesItsRecordAndItsMirrorAndNothingElse) {
  for (const TimeRow& row : rows_) {
    SCOPED_TRACE(row.bar);
    BarOf(row.bar).SetValue(row.max);
    EXPECT_EQ(Written(), (Writes{{row.node, row.record, row.max}, {row.node, row.mirror, row.max}}));
  }
}

TEST_F(FrmTempiTable, TheDisplayWaitsForTheValueToComeBack) {
  for (const TimeRow& row : rows_) {
    SCOPED_TRACE(row.value);
    const std::string before = LabelText(row.value);
    BarOf(row.bar).SetValue(row.max);
    EXPECT_EQ(LabelText(row.value), before);
    Arrive(row.node, row.record, row.max);
    EXPECT_NE(LabelText(row.value), before);
    EXPECT_EQ(BoxText(row.box), LabelText(row.value));
  }
}

TEST_F(FrmTempiTable, AValueIsShownInTenthsOrWhole) {
  for (const TimeRow& row : rows_) {
    SCOPED_TRACE(row.value);
    Arrive(row.node, row.record, row.max);
    const std::string whole = std::to_string(row.max);
    const std::string tenths = std::to_string(row.max / 10) + "." + std::to_string(row.max % 10);
    EXPECT_EQ(LabelText(row.value), row.tenths ? tenths : whole);
    EXPECT_EQ(BarOf(row.bar).Value(), row.max);
  }
}

TEST_F(FrmTempiTable, AValueOutOfRangeIsShownAsItIsWithTheBarAtItsEnd) {
  for (const TimeRow& row : rows_) {
    SCOPED_TRACE(row.value);
    Arrive(row.node, row.record, 257);
    EXPECT_EQ(LabelText(row.value), row.tenths ? "25.7" : "257");
    EXPECT_EQ(BoxText(row.box), row.tenths ? "25.7" : "257");
    EXPECT_EQ(BarOf(row.bar).Value(), row.max);
    Arrive(row.node, row.record, 0);
    EXPECT_EQ(LabelText(row.value), row.tenths ? "0.0" : "0");
    EXPECT_EQ(BarOf(row.bar).Value(), row.min);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmTempiTable, TenthsAreTypedWithATenthOrInWholes) {
  Takes("txtTempi(0)", "9,9", 1, 31, 509, 99);
  Takes("txtTempi(0)", "10", 1, 31, 509, 100);
  Refuses("txtTempi(0)", "HScroll1(0)", {"10.1", "11", "", "OFF", "1,", "-1", "1x"});
  Takes("txtTempi(1)", "10.0", 1, 25, 503, 100);
  Refuses("txtTempi(1)", "HScroll1(1)", {"10.1", "11"});
  Takes("txtTempi(2)", "10.0", 1, 26, 504, 100);
  Refuses("txtTempi(2)", "HScroll1(2)", {"10.1", "11"});
  Takes("txtTempi(3)", "12,3", 1, 30, 508, 123);
  Takes("txtTempi(3)", "25.5", 1, 30, 508, 255);
  Refuses("txtTempi(3)", "HScroll1(3)", {"25.6", "26"});
}

TEST_F(FrmTempiTable, TheMotorTimeoutsOfBothUnitsAreTypedInTenths) {
  ShowTab(2);
  Takes("txtTempi(5)", "25", 2, 58, 273, 250);
  Refuses("txtTempi(5)", "HScroll1(5)", {"25.1", "26"});
  ShowTab(3);
  Takes("txtTempi(7)", "24,9", 3, 58, 273, 249);
  Refuses("txtTempi(7)", "HScroll1(7)", {"25.1", "26"});
}

TEST_F(FrmTempiTable, ThePumpAndTheFillTimeoutAreTypedAsWholeNumbers) {
  Takes("txtTempi(4)", "90", 1, 32, 510, 90);
  Refuses("txtTempi(4)", "HScroll1(4)", {"91", "-1", "x", ""});
  Takes("txtTempi(4)", "0", 1, 32, 510, 0);
  Takes("txtTempi(6)", "60", 1, 561, 562, 60);
  Refuses("txtTempi(6)", "HScroll1(6)", {"61", "4", "0", ",", ""});
  Takes("txtTempi(6)", "5", 1, 561, 562, 5);
}

TEST_F(FrmTempiTable, TheCoffeeTimePassesTheLimitOfTheRinseWaterAndMeetsTheBar) {
  Takes("txtTempi(8)", "23.0", 1, 587, 588, 230);
  Refuses("txtTempi(8)", "HScroll1(8)", {"23.1", "25.5", "25", "2.8", "0", "25.6"});
  Takes("txtTempi(8)", "2.9", 1, 587, 588, 29);
}

TEST_F(FrmTempiTable, TheRinseWaterIsTypedInTenthsUpToTheLimitOfTheCoffeeTime) {
  Takes("txtTempi(9)", "23", 1, 585, 586, 230);
  Refuses("txtTempi(9)", "HScroll1(9)", {"100", "24", "25"});
  Focus("txtTempi(9)");
  Type("txtTempi(9)", "23,5");
  EXPECT_EQ(BoxText("txtTempi(9)"), "23,");
  PressEnter();
  EXPECT_EQ(Written(), Writes{});
  Takes("txtTempi(9)", "2.5", 1, 585, 586, 25);
  BarOf("HScroll1(9)").SetValue(255);
  EXPECT_EQ(Written(), (Writes{{1, 585, 255}, {1, 586, 255}}));
}

TEST_F(FrmTempiTable, ADrawersTimeEndsAtOneSecond) {
  for (const int tab : {2, 3}) {
    ShowTab(tab);
    for (int i = 1; i <= 8; ++i) {
      const std::string box = Element(tab == 2 ? "txtzeth1" : "txtzeth2", i);
      Takes(box, "0,3", tab, 291 + i, 309 + i, 3);
      Takes(box, "1", tab, 291 + i, 309 + i, 10);
      Refuses(box, Element(tab == 2 ? "HScroll3" : "HScroll4", i), {"1.1", "2", ""});
    }
  }
}

TEST_F(FrmTempiTable, TheAttemptsOfTheFirstUnitAreChangedByTheBarAlone) {
  ShowTab(2);
  for (int i = 9; i <= 16; ++i) {
    const std::string bar = Element("HScroll3", i);
    Refuses(Element("txtzeth1", i), bar, {"0", "1", "2", "3", "0.2", ","});
    BarOf(bar).SetValue(2);
    EXPECT_EQ(Written(), (Writes{{2, 291 + i, 2}, {2, 309 + i, 2}}));
  }
}

TEST_F(FrmTempiTable, TheAttemptsOfTheSecondUnitAreTypedAsTenths) {
  ShowTab(3);
  for (int i = 9; i <= 16; ++i) {
    const std::string box = Element("txtzeth2", i);
    Takes(box, "0.2", 3, 291 + i, 309 + i, 2);
    Takes(box, "0,3", 3, 291 + i, 309 + i, 3);
    Refuses(box, Element("HScroll4", i), {"1", "2", "3", "0.4", "0.0", "0"});
  }
}

TEST_F(FrmTempiTable, TheDetectionTimeLiesBetweenOneAndThreeSeconds) {
  for (const int tab : {2, 3}) {
    ShowTab(tab);
    const std::string box = tab == 2 ? "txtzeth1(17)" : "txtzeth2(17)";
    Takes(box, "3", tab, 308, 326, 30);
    Takes(box, "1.1", tab, 308, 326, 11);
    Refuses(box, tab == 2 ? "HScroll3(17)" : "HScroll4(17)", {"3.1", "4", "0.9", "0"});
  }
}

TEST_F(FrmTempiTable, TheSensorTimeoutIsTypedAsATenthOfWhatItShows) {
  for (const int tab : {2, 3}) {
    ShowTab(tab);
    const std::string box = tab == 2 ? "txtzeth1(18)" : "txtzeth2(18)";
    Takes(box, "24", tab, 309, 327, 240);
    Takes(box, "12", tab, 309, 327, 120);
    Refuses(box, tab == 2 ? "HScroll3(18)" : "HScroll4(18)", {"120", "240", "25", "11", "9.9"});
  }
}

}  // namespace
}  // namespace dosmara
