// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of prices and discounts: amounts of money that are held until the machine answers.
#include "forms/row_cases.h"

namespace dosmara {
namespace {

// Row n of either form, with two decimals.
RowCase MoneyCase(int n, int record, int mirror, const std::string& words) {
  return {.caption = Element("Label11", n),
          .value = Element("Label1", n),
          .box = Element("Text1", n),
          .bar = Element("HScroll1", n),
          .words = words,
          .node = 0,
          .record = record,
          .mirror = mirror,
          .min = -32768,
          .max = 32767,
          .large_change = 100,
          .length = 12,
          .offset = 32768,
          .arrivals = {{150, "1.50", -32618},
                       {0, "0.00", -32768},
                       {32768, "327.68", 0},
                       {65535, "655.35", 32767},
                       {65536, "655.35", 32767}},
          .good = {{"2", 200}, {"0", 0}, {"12,34", 1234}, {"655.35", 65535}},
          .bad = {"655.36", "656", "OFF", "-1", "1x", ""},
          .closed_box_stays = true,
          .held = true};
}

FormRows PricesRows() {
  FormRows form = {.form = "FrmPrezzi", .opens = {{0, 311, 2}, {0, 83, 0}}, .closes = {}, .rows = {}};
  for (int n = 0; n < 50; ++n) {
    const int record = n < 30 ? 12 + n : 337 + n;
    form.rows.push_back(MoneyCase(n, record, n < 30 ? 214 + n : 0, "#115 " + std::to_string(n + 1)));
  }
  return form;
}

FormRows DiscountsRows() {
  FormRows form = {.form = "FrmSconti", .opens = {{0, 311, 2}}, .closes = {}, .rows = {}};
  for (int n = 0; n < 30; ++n) {
    form.rows.push_back(MoneyCase(n, 44 + n, 246 + n, "#118 " + std::to_string(n + 1)));
  }
  form.rows.push_back(MoneyCase(30, 74, 276, "#119"));
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmPrezzi, EachRow, testing::Values(PricesRows()));
INSTANTIATE_TEST_SUITE_P(FrmSconti, EachRow, testing::Values(DiscountsRows()));

}  // namespace
}  // namespace dosmara
