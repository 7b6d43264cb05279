// SPDX-License-Identifier: GPL-3.0-or-later
// FrmDosi, row by row: which record a row is, how it shows, what it takes.
#include <QAbstractButton>
#include <QLocale>

#include "forms/row_cases.h"

namespace dosmara {
namespace {

// Water is a count. A time is in tenths of a second, and sugar is one with an off state below its nought. The
// limit of an entry is 25.5 where the bar of sugar ends at 10.0.
enum Kind { kWater, kTime, kSugar };

struct DoseRow {
  int row;
  int record;  // of the first selection
  int line;
  Kind kind;
};

constexpr DoseRow kDoses[] = {{0, 148, 68, kWater},  {1, 170, 69, kWater}, {2, 280, 70, kTime},
                              {3, 368, 71, kTime},   {4, 302, 72, kTime},  {5, 390, 73, kTime},
                              {6, 192, 74, kWater},  {7, 324, 75, kTime},  {8, 412, 76, kTime},
                              {9, 214, 77, kWater},  {10, 346, 78, kTime}, {11, 236, 79, kWater},
                              {12, 434, 80, kSugar}, {13, 563, 81, kTime}};

constexpr int kBitRecords[] = {34, 35, 36, 38, 39, 40, 42, 43, 44, 589, 590, 591};

RowCase CaseOf(const DoseRow& dose) {
  RowCase row = {.caption = Element("lblDes", dose.row),
                 .value = Element("lblVal", dose.row),
                 .box = Element("txtVal", dose.row),
                 .bar = Element("scrDosi", dose.row),
                 .words = "#" + std::to_string(dose.line),
                 .node = 1,
                 .record = dose.record,
                 .large_change = 10};
  switch (dose.kind) {
    case kWater:
      row.max = 999;
      row.length = 3;
      row.arrivals = {{7, "7", 7}, {0, "OFF", 0}, {2, "2", 2}, {999, "999", 999}, {1000, "999", 999}};
      row.good = {{"999", 999}, {"0", 0},   {"1", 1},   {"120", 120},
                  {"OFF", 0},   {"Off", 0}, {"off", 0}, {"oFF", 0}};
      row.bad = {"oFf", "OfF", "1a", ".", "-1", ""};
      break;
    case kTime:
      row.max = 255;
      row.length = 4;
      row.arrivals = {{7, "0.7", 7}, {0, "0.0", 0}, {1, "0.1", 1}, {255, "25.5", 255}, {256, "25.5", 255}};
      row.good = {{"25.5", 255}, {"2,55", 25}, {"12", 120}, {"0", 0}};
      row.bad = {"25.6", "26", "2,", "OFF", "1a", ""};
      break;
    case kSugar:
      row.max = 100;
      row.length = 4;
      row.arrivals = {{7, "0.7", 7}, {0, "OFF", 0}, {2, "0.2", 2}, {100, "10.0", 100}, {101, "10.0", 100}};
      row.good = {{"10.0", 100}, {"0", 0}, {"0.1", 1}};
      row.bad = {"10.1", "25.5", "25.6", "OFF", ""};
      break;
  }
  return row;
}

FormRows DosesRows() {
  FormRows form = {.form = "FrmDosi", .opens = {{0, 312, 4}}, .closes = {{0, 312, 0}}, .rows = {}};
  for (const int record : kBitRecords) {
    form.opens.push_back({1, record, 0});
  }
  for (const DoseRow& dose : kDoses) {
    form.rows.push_back(CaseOf(dose));
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmDosi, EachRow, testing::Values(DosesRows()));

// The form with every row open.
class FrmDosiTable : public FormFixture {
 protected:
  FrmDosiTable() {
    Open("FrmDosi");
    Arrive(0, 312, 4);
    for (const int record : kBitRecords) {
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

TEST_F(FrmDosiTable, ABarWritesTheRecordOfTheSelectionShown) {
  Click("Label11(21)");
  for (const DoseRow& dose : kDoses) {
    SCOPED_TRACE(dose.row);
    BarOf(Element("scrDosi", dose.row)).SetValue(42);
    EXPECT_EQ(Written(), (std::vector<Write>{{1, dose.record + 21, 42}}));
  }
}

TEST_F(FrmDosiTable, ALowestCountIsShownAsNoughtAsPrescribed) {
  for (const DoseRow& dose : kDoses) {
    SCOPED_TRACE(dose.row);
    Arrive(1, dose.record, 1);
    EXPECT_EQ(Shows(dose.row), dose.kind == kWater ? "0" : dose.kind == kSugar ? "0.0" : "0.1");
    EXPECT_EQ(BarOf(Element("scrDosi", dose.row)).Value(), 1);
  }
}

TEST_F(FrmDosiTable, TheDecimalSeparatorIsTheLocales) {
  QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
  Arrive(1, 280, 125);
  EXPECT_EQ(Shows(2), "12,5");
  Arrive(1, 434, 1);
  EXPECT_EQ(Shows(12), "0,0");
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
