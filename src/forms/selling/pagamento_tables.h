// SPDX-License-Identifier: GPL-3.0-or-later
// What the payment window is made of: its records, rows, choices and switches.
#pragma once

#include <array>

#include "fields/data_form.h"
#include "fields/machine_records.h"

namespace dosmara::pagamento {

inline constexpr int kCoinsAccepted = 85;
inline constexpr int kCoinsAcceptedMirror = 287;

// The mirrors of coins and switches are only ever written; the accepted coins are released twice.
inline constexpr Records kReleasedBesides[] = {
    {kMainBoard, 206, 8}, {kMainBoard, 281}, {kMainBoard, 285, 3},        {kMainBoard, 354},
    {kMainBoard, 362},    {kMainBoard, 366}, {kMainBoard, kCoinsAccepted}};

inline constexpr FormSetup kSetup = {
    .name = "FrmPagamento", .title = 7, .opens_with = 7, .also_released = kReleasedBesides};

inline constexpr int kFirstModelWithChangeOptions = 24;
inline constexpr int kFirstModelWithSecondCredit = 25;
inline constexpr int kSecondCredit = 1;  // row of the credits

// A machine on tokens takes money on this coin channel alone, counted from 0.
inline constexpr int kTokenChannel = 6;
inline constexpr int kCoinChannels = 8;
inline constexpr int kTokenKinds = 3;

constexpr std::array<FieldRow, kCoinChannels> CoinRows() {
  std::array<FieldRow, kCoinChannels> rows{};
  for (int n = 0; n < kCoinChannels; ++n) {
    rows[n] = MoneyRow({.line = 88, .number = n + 1, .record = 4 + n, .mirror = 206 + n});
  }
  return rows;
}
inline constexpr auto kCoins = CoinRows();

constexpr std::array<FieldRow, kTokenKinds> TokenRows() {
  std::array<FieldRow, kTokenKinds> rows{};
  for (int t = 0; t < kTokenKinds; ++t) {
    rows[t] = MoneyRow({.line = 101, .number = t + 1, .record = 347 + t, .mirror = 350 + t});
  }
  return rows;
}
inline constexpr auto kTokens = TokenRows();

constexpr FieldRow ChangeRow() {
  FieldRow row = MoneyRow({.line = 91, .record = 79, .mirror = 281});
  row.offset = 0;
  row.min = 0;
  row.max = 9999;
  row.limit = 9999;
  return row;
}
inline constexpr FieldRow kChange[] = {ChangeRow()};
inline constexpr FieldRow kCredits[] = {MoneyRow({.line = 99, .record = 345, .mirror = 346}),
                                        MoneyRow({.line = 113, .record = 363, .mirror = 364})};
inline constexpr FieldRow kOverpay[] = {
    WholeRow({.line = 625, .record = 365, .mirror = 366, .max = 180, .large_change = 100})};
inline constexpr FieldRow kTimeout[] = {{.line = 105,
                                         .record = 353,
                                         .mirror = 354,
                                         .min = 20,
                                         .max = 250,
                                         .large_change = 100,
                                         .text = TenthsText,
                                         .parse = ParseTenths,
                                         .low = 20,
                                         .limit = 250,
                                         .length = 12}};  // four characters of it are read

// Modes of an Executive system, which exclude each other; of two the first one holds.
inline constexpr int kModeBits[] = {0, 64, 128};
inline int ModePosition(int value, int /*count*/) {
  return (value & kModeBits[1]) != 0 ? 1 : (value & kModeBits[2]) != 0 ? 2 : 0;
}
inline constexpr int kAnyMode = 192;
inline constexpr ChoiceRow kModes[] = {{.control_name = "SliderX5",
                                        .line = kExecutiveLine,
                                        .written = {kMainBoard, kPaymentOptions, kPaymentOptionsMirror},
                                        .mask = kAnyMode,
                                        .position = ModePosition,
                                        .bits = [](int position) { return kModeBits[position]; }}};

inline constexpr BitRecord kBytes[] = {{kMainBoard, kSellingOptions, kSellingOptionsMirror},
                                       {kMainBoard, kCreditOptions, kCreditOptionsMirror},
                                       {kMainBoard, kCoinsAccepted, kCoinsAcceptedMirror},
                                       {kMainBoard, 355, 356}};

constexpr BitRow Switch(int line, int byte, int mask, ControlArray caption, ControlArray control) {
  return {.line = line, .byte = byte, .mask = mask, .caption = caption, .control = control};
}
inline constexpr BitRow kSwitches[] = {
    Switch(97, 0, 32, {"Label9", kNoArray}, {"iSwitchSliderX2", kNoArray}),
    Switch(102, 0, 8, {"Label3", 0}, {"iSwSliderX3", 0}),
    Switch(103, 0, 16, {"Label3", 1}, {"iSwSliderX3", 1}),
    Switch(104, 0, 64, {"Label3", 2}, {"iSwSliderX3", 2}),
    Switch(111, 1, 1, {"Label13", kNoArray}, {"swslResto", kNoArray}),
    Switch(112, 1, 2, {"Label14", kNoArray}, {"swslExact", kNoArray}),
    Switch(93, 2, 1, {"Label2", kNoArray}, {"SliderX4", kNoArray}),
    Switch(108, 3, 1, {"Label7", kNoArray}, {"SliderX6", kNoArray}),
};
// Rows of the switches.
inline constexpr int kChanger = 0;
inline constexpr int kChangeForToken = 1;
inline constexpr int kRechargeForToken = 2;
inline constexpr int kExactForToken = 3;
inline constexpr int kImmediateChange = 4;
inline constexpr int kIgnoreExactChange = 5;

// Sixteen channels that the machine takes or not: a selector of them, and the switch of the chosen one.
struct Channels {
  const char* frame;
  int frame_line;
  const char* caption;
  const char* selector;
  int line;
  int accepted;  // row of the switches
};
inline constexpr Channels kChannels[] = {{"Frame3", 90, "Label5", "SliderX1", 92, 6},
                                         {"Frame6", 106, "Label12", "SliderX7", 107, 7}};
inline constexpr char kChannelNumbers[] = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16";

// The style of all rows here: a closed row keeps its box in sight, in grey.
constexpr RowStyle Style(ControlArray caption, ControlArray value, ControlArray box, ControlArray bar) {
  return {.caption = caption, .value = value, .box = box, .bar = bar, .closed_box_stays = true};
}

}  // namespace dosmara::pagamento
