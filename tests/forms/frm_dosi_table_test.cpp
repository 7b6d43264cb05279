// SPDX-License-Identifier: GPL-3.0-or-later
// FrmDosi, row by row: which record a row is, how it shows, what it takes.
#include <QAbstractButton>
#include <QLocale>

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

struct DoseRow {
  int row;
  int record;  // of the first selection
  int max;     // of the bar
  int length;
  int line;
  bool water;
};

constexpr DoseRow kDoses[] = {
    {0, 148, 999, 3, 68, true},   {1, 170, 999, 3, 69, true},   {2, 280, 255, 4, 70, false},
    {3, 368, 255, 4, 71, false},  {4, 302, 255, 4, 72, false},  {5, 390, 255, 4, 73, false},
    {6, 192, 999, 3, 74, true},   {7, 324, 255, 4, 75, false},  {8, 412, 255, 4, 76, false},
    {9, 214, 999, 3, 77, true},   {10, 346, 255, 4, 78, false}, {11, 236, 999, 3, 79, true},
    {12, 434, 100, 4, 80, false}, {13, 563, 255, 4, 81, false}};

// The form with every row open.
class FrmDosiTable : public FormFixture {
 protected:
  FrmDosiTable() {
    Open("FrmDosi");
    Arrive(0, 312, 4);
    for (const int record : {34, 35, 36, 38, 39, 40, 42, 43, 44, 589, 590, 591}) {
      Arrive(1, record, 0);
    }
    for (const DoseRow& dose : kDoses) {
      Arrive(1, dose.record, 7);
    }
  }

  // What a row shows, which its box has to show as well.
  std::string Shows(int row) {
    EXPECT_EQ(BoxText(Element("txtVal", row)), LabelText(Element("lblVal", row)));
    return LabelText(Element("lblVal", row));
  }
};

TEST_F(FrmDosiTable, EveryRowHasItsCaptionAndItsSpan) {
  for (const DoseRow& dose : kDoses) {
    SCOPED_TRACE(dose.row);
    EXPECT_EQ(LabelText(Element("lblDes", dose.row)), "#" + std::to_string(dose.line));
    const Bar& bar = BarOf(Element("scrDosi", dose.row));
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.maximum(), dose.max);
    EXPECT_EQ(bar.singleStep(), 1);
    EXPECT_EQ(bar.pageStep(), 10);
    EXPECT_EQ(Find<QLineEdit>(Element("txtVal", dose.row)).maxLength(), dose.length);
  }
}

TEST_F(FrmDosiTable, ABarWritesTheRecordOfItsRowAlone) {
  for (const DoseRow& dose : kDoses) {
    SCOPED_TRACE(dose.row);
    BarOf(Element("scrDosi", dose.row)).SetValue(42);
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record, 42}}));
  }
}

TEST_F(FrmDosiTable, ABarWritesTheRecordOfTheSelectionShown) {
  Click("Label11(21)");
  for (const DoseRow& dose : kDoses) {
    SCOPED_TRACE(dose.row);
    BarOf(Element("scrDosi", dose.row)).SetValue(42);
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record + 21, 42}}));
  }
}

TEST_F(FrmDosiTable, AWaterCountOfOneIsShownAsNought) {
  for (const DoseRow& dose : kDoses) {
    if (!dose.water) continue;
    SCOPED_TRACE(dose.row);
    Arrive(1, dose.record, 0);
    EXPECT_EQ(Shows(dose.row), "OFF");
    Arrive(1, dose.record, 1);
    EXPECT_EQ(Shows(dose.row), "0");
    EXPECT_EQ(BarOf(Element("scrDosi", dose.row)).Value(), 1);
    Arrive(1, dose.record, 2);
    EXPECT_EQ(Shows(dose.row), "2");
    Arrive(1, dose.record, 999);
    EXPECT_EQ(Shows(dose.row), "999");
    Arrive(1, dose.record, 1000);
    EXPECT_EQ(Shows(dose.row), "999");
  }
}

TEST_F(FrmDosiTable, ATimeIsShownInTenthsOfASecond) {
  for (const DoseRow& dose : kDoses) {
    if (dose.water || dose.row == 12) continue;
    SCOPED_TRACE(dose.row);
    Arrive(1, dose.record, 0);
    EXPECT_EQ(Shows(dose.row), "0.0");
    Arrive(1, dose.record, 1);
    EXPECT_EQ(Shows(dose.row), "0.1");
    Arrive(1, dose.record, 255);
    EXPECT_EQ(Shows(dose.row), "25.5");
    Arrive(1, dose.record, 256);
    EXPECT_EQ(Shows(dose.row), "25.5");
    EXPECT_EQ(BarOf(Element("scrDosi", dose.row)).Value(), 255);
  }
}

TEST_F(FrmDosiTable, SugarHasAnOffStateBelowNought) {
  Arrive(1, 434, 0);
  EXPECT_EQ(Shows(12), "OFF");
  Arrive(1, 434, 1);
  EXPECT_EQ(Shows(12), "0.0");
  EXPECT_EQ(BarOf("scrDosi(12)").Value(), 1);
  Arrive(1, 434, 2);
  EXPECT_EQ(Shows(12), "0.2");
}

TEST_F(FrmDosiTable, SugarAboveTheBarIsShownAtItsEnd) {
  Arrive(1, 434, 101);
  EXPECT_EQ(Shows(12), "10.0");
  EXPECT_EQ(BarOf("scrDosi(12)").Value(), 100);
}

TEST_F(FrmDosiTable, TheDecimalSeparatorIsTheLocales) {
  QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
  Arrive(1, 280, 125);
  EXPECT_EQ(Shows(2), "12,5");
  Arrive(1, 434, 1);
  EXPECT_EQ(Shows(12), "0,0");
}

TEST_F(FrmDosiTable, AWaterEntryIsAWholeNumberOrOff) {
  for (const DoseRow& dose : kDoses) {
    if (!dose.water) continue;
    SCOPED_TRACE(dose.row);
    Enter(Element("txtVal", dose.row), "999");
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record, 999}}));
    Enter(Element("txtVal", dose.row), "off");
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record, 0}}));
    BarOf(Element("scrDosi", dose.row)).SetValue(5);
    Written();
  }
}

TEST_F(FrmDosiTable, ATimeEntryIsInSecondsWithATenth) {
  for (const DoseRow& dose : kDoses) {
    if (dose.water || dose.row == 12) continue;
    SCOPED_TRACE(dose.row);
    const std::string box = Element("txtVal", dose.row);
    Enter(box, "25.5");
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record, 255}}));
    Enter(box, "2,55");
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record, 25}}));
    for (const char* bad : {"25.6", "26", "2,", "OFF", "1a"}) {
      Focus("HScroll7");
      Enter(box, bad);
      EXPECT_EQ(Written(), std::vector<Write>{}) << bad;
      EXPECT_EQ(BoxText(box), "0.7") << bad;
    }
    Focus("HScroll7");
  }
}

TEST_F(FrmDosiTable, ASugarEntryAboveTheBarIsRefusedByTheBar) {
  Enter("txtVal(12)", "10.0");
  EXPECT_EQ(Written(), (std::vector<Write>{{1, 434, 100}}));
  Focus("HScroll7");
  for (const char* bad : {"10.1", "25.5", "25.6", "OFF"}) {
    Enter("txtVal(12)", bad);
    EXPECT_EQ(Written(), std::vector<Write>{}) << bad;
    EXPECT_EQ(BarOf("scrDosi(12)").Value(), 100) << bad;
    Focus("HScroll7");
  }
}

TEST_F(FrmDosiTable, EachPropertyIsABitOfItsBytes) {
  struct Property {
    int n, record, mirror, line;
  };
  for (const Property& property : {Property{0, 38, 516, 62}, Property{1, 34, 512, 63},
                                   Property{2, 42, 520, 64}, Property{3, 589, 593, 624}}) {
    const std::string name = Element("SwitchX1", property.n);
    SCOPED_TRACE(name);
    EXPECT_EQ(LabelText(Element("Label8", property.n)), "#" + std::to_string(property.line));
    for (int n = 0; n < 22; ++n) {
      SCOPED_TRACE(n);
      const int byte = n / 8;
      const int bit = 1 << (n - 8 * byte);
      Click(Element("Label11", n));
      Arrive(1, property.record + byte, bit);
      EXPECT_EQ(Position(name), 1);
      Arrive(1, property.record + byte, 255 - bit);
      EXPECT_EQ(Position(name), 0);
      EXPECT_EQ(Written(), std::vector<Write>{});
      Click(name);
      EXPECT_EQ(Written(),
                (std::vector<Write>{{1, property.record + byte, 255}, {1, property.mirror + byte, 255}}));
      Click(name);
      EXPECT_EQ(Written(), (std::vector<Write>{{1, property.record + byte, 255 - bit},
                                               {1, property.mirror + byte, 255 - bit}}));
    }
  }
}

TEST_F(FrmDosiTable, TheCommandsOfTheTests) {
  struct DrinkTest {
    int n, command, line;
  };
  for (const DrinkTest& test : {DrinkTest{0, 4, 59}, DrinkTest{1, 3, 60}, DrinkTest{2, 2, 61}}) {
    const std::string name = Element("Command1", test.n);
    SCOPED_TRACE(name);
    EXPECT_EQ(Find<QAbstractButton>(name).text().toStdString(), "#" + std::to_string(test.line));
    Click(name);
    EXPECT_EQ(Written(), (std::vector<Write>{{0, 315, 1}}));
    Arrive(0, 315, 1);
    EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, test.command}}));
    Fire("Timer1");
  }
}

TEST_F(FrmDosiTable, TheCodesAndTheLengthsOfThePartTests) {
  struct PartTest {
    int n, row, code;
  };
  for (const PartTest& test : {PartTest{0, 2, 66}, PartTest{1, 4, 68}, PartTest{2, 7, 72},
                               PartTest{3, 10, 80}, PartTest{4, 12, 192}}) {
    const std::string name = Element("cmdProva", test.n);
    SCOPED_TRACE(name);
    EXPECT_EQ(Find<QAbstractButton>(name).text(), "#67");
    Arrive(1, kDoses[test.row].record, 30 + test.n);
    Click(name);
    EXPECT_EQ(Written(), (std::vector<Write>{{0, 315, 0}, {0, 316, test.code}}));
    EXPECT_TRUE(Running("Timer3"));
    EXPECT_EQ(Find<QTimer>("Timer3").interval(), 1000 + 100 * (30 + test.n));
    Arrive(0, 315, 0);
    EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, 7}}));
    Fire("Timer3");
  }
}

}  // namespace
}  // namespace dosmara
