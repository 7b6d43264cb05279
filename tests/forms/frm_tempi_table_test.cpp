// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTempi, row by row: which record a row is, how it shows, what it takes.
#include <QTabWidget>

#include "forms/row_cases.h"

namespace dosmara {
namespace {

// "257" and "25.7"
std::string Whole(int value) { return std::to_string(value); }
std::string Tenths(int value) { return Whole(value / 10) + "." + Whole(value % 10); }

// A row that shows its value as `text` says, at either end of its bar and beyond: what the machine sends is
// shown as it is.
RowCase TimeRow(int line, int node, int record, int mirror, int min, int max, int length,
                std::string (*text)(int)) {
  return {
      .words = "#" + Whole(line),
      .node = node,
      .record = record,
      .mirror = mirror,
      .min = min,
      .max = max,
      .length = length,
      .arrivals = {{min, text(min), min}, {max, text(max), max}, {257, text(257), max}, {0, text(0), min}}};
}

RowCase SingleRow(int n, RowCase row, const std::vector<GoodEntry>& good,
                  const std::vector<std::string>& bad) {
  row.caption = Element("Label2", n);
  row.value = Element("Label1", n);
  row.box = Element("txtTempi", n);
  row.bar = Element("HScroll1", n);
  row.good = good;
  row.bad = bad;
  return row;
}

// Row i of the drawers, the first unit being node 2.
RowCase DrawerRow(int i, RowCase row, const std::vector<GoodEntry>& good,
                  const std::vector<std::string>& bad) {
  const bool first = row.node == 2;
  row.caption = Element(first ? "Label10" : "Label11", i - 1);
  row.value = Element(first ? "Label3" : "Label4", i);
  row.box = Element(first ? "txtzeth1" : "txtzeth2", i);
  row.bar = Element(first ? "HScroll3" : "HScroll4", i);
  row.closed_box_stays = true;
  row.good = good;
  row.bad = bad;
  return row;
}

// Tenths are typed with a tenth or in wholes.
void AddSingleRows(std::vector<RowCase>& rows) {
  rows.push_back(SingleRow(0, TimeRow(48, 1, 31, 509, 0, 100, 4, Tenths),
                           {{"9,9", 99}, {"10", 100}, {"0", 0}, {"10.0", 100}},
                           {"10.1", "11", "", "OFF", "1,", "-1", "1x"}));
  rows.push_back(
      SingleRow(1, TimeRow(49, 1, 25, 503, 0, 100, 4, Tenths), {{"10.0", 100}, {"0.0", 0}}, {"10.1", "11"}));
  rows.push_back(
      SingleRow(2, TimeRow(50, 1, 26, 504, 0, 100, 4, Tenths), {{"10.0", 100}, {"0.0", 0}}, {"10.1", "11"}));
  rows.push_back(SingleRow(3, TimeRow(51, 1, 30, 508, 0, 255, 4, Tenths),
                           {{"12,3", 123}, {"25.5", 255}, {"0", 0}}, {"25.6", "26"}));
  rows.push_back(
      SingleRow(4, TimeRow(52, 1, 32, 510, 0, 90, 2, Whole), {{"90", 90}, {"0", 0}}, {"91", "-1", "x", ""}));
  rows.push_back(SingleRow(5, TimeRow(55, 2, 58, 273, 0, 250, 4, Tenths),
                           {{"25", 250}, {"24,9", 249}, {"0", 0}}, {"25.1", "26"}));
  rows.push_back(SingleRow(6, TimeRow(53, 1, 561, 562, 5, 60, 2, Whole), {{"60", 60}, {"5", 5}},
                           {"61", "4", "0", ",", ""}));
  rows.push_back(SingleRow(7, TimeRow(55, 3, 58, 273, 0, 250, 4, Tenths),
                           {{"25", 250}, {"24,9", 249}, {"0", 0}}, {"25.1", "26"}));
}

void AddDrawerRows(std::vector<RowCase>& rows, int node) {
  for (int i = 1; i <= 8; ++i) {
    RowCase& time = rows.emplace_back(DrawerRow(i, TimeRow(618, node, 291 + i, 309 + i, 0, 10, 3, Tenths),
                                                {{"0,3", 3}, {"1", 10}, {"0", 0}}, {"1.1", "2", ""}));
    time.words += " " + Whole(i);
    time.large_change = 10;
  }
  rows.push_back(DrawerRow(17, TimeRow(620, node, 308, 326, 10, 30, 3, Tenths),
                           {{"3", 30}, {"1.1", 11}, {"1", 10}}, {"3.1", "4", "0.9", "0"}));
  rows.back().large_change = 10;
}

// The coffee time passes the limit of the rinse water and meets its own bar; the rinse water is shown whole,
// typed in tenths, and stops at the limit of the coffee time. Its box is too short for "23,5".
void AddOddSingleRows(std::vector<RowCase>& rows) {
  rows.push_back(SingleRow(8, TimeRow(622, 1, 587, 588, 29, 230, 4, Tenths), {{"23.0", 230}, {"2.9", 29}},
                           {"23.1", "25.5", "25", "2.8", "0", "25.6"}));
  rows.push_back(SingleRow(9, TimeRow(623, 1, 585, 586, 0, 255, 3, Whole),
                           {{"23", 230}, {"2.5", 25}, {"0", 0}}, {"100", "24", "25", "23,5"}));
}

// The attempts of the first unit are changed by the bar alone: their box is too short for a separator. The
// time-out of the sensor is typed as a tenth of what it shows.
void AddOddDrawerRows(std::vector<RowCase>& rows, int node) {
  for (int i = 1; i <= 8; ++i) {
    const RowCase attempts = TimeRow(619, node, 299 + i, 317 + i, 1, 3, node == 2 ? 1 : 3, Whole);
    rows.push_back(node == 2 ? DrawerRow(8 + i, attempts, {}, {"0", "1", "2", "3", "0.2", ","})
                             : DrawerRow(8 + i, attempts, {{"0.2", 2}, {"0,3", 3}, {"0.1", 1}},
                                         {"1", "2", "3", "0.4", "0.0", "0"}));
    rows.back().words += " " + Whole(i);
  }
  rows.push_back(DrawerRow(18, TimeRow(621, node, 309, 327, 120, 240, 3, Whole), {{"24", 240}, {"12", 120}},
                           {"120", "240", "25", "11", "9.9"}));
  rows.back().large_change = 10;
}

// A part of the rows, enough to open the form.
FormRows TimesForm() {
  return {.form = "FrmTempi",
          .opens = {{0, 312, 4}, {0, 313, 4}, {0, 357, 4}},
          .closes = {{0, 312, 0}, {0, 313, 0}, {0, 357, 0}},
          .rows = {}};
}

FormRows TimesRows() {
  FormRows form = TimesForm();
  AddSingleRows(form.rows);
  AddDrawerRows(form.rows, 2);
  AddDrawerRows(form.rows, 3);
  return form;
}

FormRows OddTimesRows() {
  FormRows form = TimesForm();
  AddOddSingleRows(form.rows);
  AddOddDrawerRows(form.rows, 2);
  AddOddDrawerRows(form.rows, 3);
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmTempi, EachRow, testing::Values(TimesRows()));
INSTANTIATE_TEST_SUITE_P(FrmTempiAsPrescribed, EachRow, testing::Values(OddTimesRows()));

class FrmTempiTable : public FormFixture {};

TEST_F(FrmTempiTable, EveryRowLiesOnTheTabOfItsBoard) {
  Open("FrmTempi");
  FormRows form = TimesRows();
  const FormRows odd = OddTimesRows();
  form.rows.insert(form.rows.end(), odd.rows.begin(), odd.rows.end());
  EXPECT_EQ(form.rows.size(), 46u);
  for (const Sent& gate : form.opens) {
    Arrive(gate.node, gate.record, gate.value);
  }
  for (const RowCase& row : form.rows) {
    Arrive(row.node, row.record, row.min);
  }
  for (const int node : {1, 2, 3}) {
    Find<QTabWidget>("SSTab1").setCurrentIndex(node - 1);
    for (const RowCase& row : form.rows) {
      EXPECT_EQ(Find(row.box).isVisible(), row.node == node) << row.box << " on the tab of node " << node;
      EXPECT_EQ(Find(row.bar).isVisible(), row.node == node) << row.bar << " on the tab of node " << node;
    }
  }
}

}  // namespace
}  // namespace dosmara
