// SPDX-License-Identifier: GPL-3.0-or-later
// FrmPagamento: its rows, in the payment system that opens them, and how money is shown and typed.
#include "forms/row_cases.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

// The seven arrivals that open the form, with a payment system.
std::vector<Sent> Opens(int system) {
  return {{0, 311, 2}, {0, 83, 0}, {0, 84, system}, {0, 85, 0}, {0, 353, 100}, {0, 355, 0}, {0, 361, 0}};
}

RowCase Amount(const std::string& caption, const std::string& value, const std::string& box,
               const std::string& bar, const std::string& words, int record, int mirror) {
  return {.caption = caption,
          .value = value,
          .box = box,
          .bar = bar,
          .words = words,
          .record = record,
          .mirror = mirror,
          .min = -32768,
          .max = 32767,
          .large_change = 100,
          .length = 12,
          .offset = 32768,
          .arrivals = {{300, "3.00", -32468},
                       {5, "0.05", -32763},
                       {0, "0.00", -32768},
                       {32768, "327.68", 0},
                       {65535, "655.35", 32767},
                       {65536, "655.35", 32767}},
          .good = {{"1,5", 150},
                   {"1.55", 155},
                   {"1,555", 155},
                   {"1,55x", 155},
                   {"1", 100},
                   {",5", 50},
                   {"0", 0},
                   {"655,35", 65535}},
          .bad = {"1,x", "1,5x", "1,5,", "655,36", "656", "x", "1x", "-1", "+1", " 1", "", ",", "OFF"}};
}

FormRows Coins() {
  FormRows coins = {.form = "FrmPagamento", .opens = Opens(1), .closes = {{0, 84, 4}}, .rows = {}};
  for (int n = 0; n < 8; ++n) {
    coins.rows.push_back(Amount(Element("Label1", n), Element("Label10", n), Element("txtMon", n),
                                Element("HScroll10", n), "#88 " + std::to_string(n + 1), 4 + n, 206 + n));
  }
  return coins;
}

// Which box moves which bar does not go by the numbers.
FormRows Mdb() {
  RowCase change = Amount("Label4(0)", "Label11(0)", "txtMDB(0)", "HScroll11(0)", "#91", 79, 281);
  change.min = 0;
  change.max = 9999;
  change.offset = 0;
  change.arrivals = {{500, "5.00", 500}, {0, "0.00", 0}, {9999, "99.99", 9999}, {10000, "99.99", 9999}};
  change.good = {{"99,99", 9999}, {"99.995", 9999}, {"1", 100}, {"0", 0}};
  change.bad = {"100", "655,35", "1,x", "", "x"};
  RowCase overpay = {.caption = "Label4(3)",
                     .value = "Label11(3)",
                     .bar = "HScroll11(3)",
                     .words = "#625",
                     .record = 365,
                     .mirror = 366,
                     .max = 180,
                     .large_change = 100,
                     .arrivals = {{60, "60", 60}, {0, "0", 0}, {180, "180", 180}, {200, "200", 180}}};
  FormRows mdb = {
      .form = "FrmPagamento",
      .opens = Opens(4),
      .closes = {{0, 84, 0}},
      .rows = {Amount("Label6(0)", "Label6s(0)", "txtMDB(1)", "HScroll6(0)", "#101 1", 347, 350),
               Amount("Label6(1)", "Label6s(1)", "txtMDB(2)", "HScroll6(1)", "#101 2", 348, 351),
               Amount("Label6(2)", "Label6s(2)", "txtMDB(3)", "HScroll6(2)", "#101 3", 349, 352), change,
               Amount("Label4(1)", "Label11(1)", "txtMDB(4)", "HScroll11(1)", "#99", 345, 346),
               Amount("Label4(2)", "Label11(2)", "txtMDB(5)", "HScroll11(2)", "#113", 363, 364), overpay}};
  return mdb;
}

FormRows Executive() {
  return {
      .form = "FrmPagamento",
      .opens = Opens(2 + 64),
      .closes = {{0, 84, 2}},
      .rows = {{.caption = "Label8",
                .value = "Label8v",
                .box = "txtTmPr",
                .bar = "scrTP",
                .words = "#105",
                .record = 353,
                .mirror = 354,
                .min = 20,
                .max = 250,
                .large_change = 100,
                .length = 12,
                .arrivals = {{100, "10.0", 100},
                             {21, "2.1", 21},
                             {20, "2.0", 20},
                             {250, "25.0", 250},
                             {10, "1.0", 20},
                             {255, "25.5", 250}},
                .good = {{"2", 20}, {"25", 250}, {"2,5", 25}, {"2.55", 25}, {"0025x", 250}, {"25,0", 250}},
                .bad = {"26", "1,9", "1", "25,1", "2,", "2,x", "x", "", "-2", "OFF"}}}};
}

std::vector<FormRows> AllRows() {
  std::vector<FormRows> all = {Coins(), Mdb(), Executive()};
  for (FormRows& form : all) {
    for (RowCase& row : form.rows) {
      row.closed_box_stays = true;
    }
  }
  return all;
}

INSTANTIATE_TEST_SUITE_P(FrmPagamento, EachRow, testing::ValuesIn(AllRows()));

using Writes = std::vector<Write>;

class PagamentoMoney : public FormFixture {
 protected:
  PagamentoMoney() { Open("FrmPagamento"); }
};

constexpr int kAmounts[] = {4, 5, 6, 7, 8, 9, 10, 11, 79, 345, 363, 347, 348, 349};
const std::vector<std::string> kAmountTexts = {
    "Label10(0)", "Label10(1)", "Label10(2)", "Label10(3)", "Label10(4)", "Label10(5)", "Label10(6)",
    "Label10(7)", "Label11(0)", "Label11(1)", "Label11(2)", "Label6s(0)", "Label6s(1)", "Label6s(2)"};

TEST_F(PagamentoMoney, AmountsWaitForTheirDecimalsAndFollowThem) {
  for (const int record : kAmounts) {
    Arrive(0, record, 1000 + record);
  }
  for (const std::string& label : kAmountTexts) {
    EXPECT_EQ(LabelText(label), "");
  }
  const auto expect = [this](int decimals) {
    for (std::size_t i = 0; i < kAmountTexts.size(); ++i) {
      std::string text = std::to_string(1000 + kAmounts[i]);
      if (decimals > 0) {
        text.insert(text.size() - static_cast<std::size_t>(decimals), ".");
      }
      EXPECT_EQ(LabelText(kAmountTexts[i]), text);
    }
    EXPECT_EQ(BoxText("txtMDB(5)"), LabelText("Label11(2)"));
  };
  for (const int decimals : {0, 3, 2, 1}) {
    Arrive(0, 311, decimals);
    expect(decimals);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(PagamentoMoney, WithoutDecimalsASeparatorIsBadAndSixDigitsAreReadAsPrescribed) {
  for (const Sent& sent : Opens(4)) {
    Arrive(sent.node, sent.record, sent.value);
  }
  Arrive(0, 311, 0);
  const auto written = [this](const char* box, const char* text) {
    EnterAndLeave(box, text, "SliderX1");
    return Written();
  };
  for (const char* text : {"1,5", "1.", ",5", "10000", "9999999"}) {
    EXPECT_EQ(written("txtMDB(0)", text), Writes{}) << text;
  }
  EXPECT_EQ(written("txtMDB(0)", "15"), (Writes{{0, 79, 15}, {0, 281, 15}}));
  EXPECT_EQ(written("txtMDB(4)", "10000"), (Writes{{0, 345, 10000}, {0, 346, 10000}}));
  EXPECT_EQ(BarOf("HScroll11(1)").Value(), 10000 - 32768);
  EXPECT_EQ(written("txtMDB(4)", "0655350"), (Writes{{0, 345, 65535}, {0, 346, 65535}}));
  EXPECT_EQ(written("txtMDB(5)", "9999999"), Writes{});
}

}  // namespace
}  // namespace dosmara
