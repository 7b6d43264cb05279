// SPDX-License-Identifier: GPL-3.0-or-later
// The records behind the controls of FrmOpzioni, in the order in which they lie on it.
#pragma once

#include <algorithm>

#include "fields/boards_form.h"

namespace dosmara::opzioni {

// The mirrors are only ever written; three of them are not even released.
inline constexpr Records kMirrors[] = {{kMainBoard, kSellingOptionsMirror, 2},
                                       {kMainBoard, 279, 2},
                                       {kMainBoard, 360},
                                       {kHotDrinks, 524, 2},
                                       {kHotDrinks, 506, 2},
                                       {kHotDrinks, 511}};

inline constexpr FormSetup kSetup = {
    .name = "FrmOpzioni", .title = 23, .opens_with = 20, .also_released = kMirrors};

// The frame of the hot drinks unit and those of the two Zeth units.
inline constexpr BoardFrame kBoards[] = {{.line = kHotDrinksLine, .node = kHotDrinks},
                                         {.name = "Frame1", .line = 226, .node = kZeth},
                                         {.name = "Frame2", .line = kZeth2Line, .node = kZeth2}};
inline constexpr Gate kGate = {.counted = Gate::Counted::kChange};

// The machine knows eight languages or four, and tells which. Until then eight can be chosen.
inline constexpr Gate kStatus = {
    .record = kMachineStatus, .counted = Gate::Counted::kChange, .followed = true};
inline constexpr int kEightLanguages = 8;
inline constexpr const char* kEightWords = "1, 2, 3, 4, 5, 6, 7, 8";
inline constexpr const char* kFourWords = "1, 2, 3, 4";

// The payment system is one bit or none; with several, the highest counts.
constexpr int PaymentPosition(int value, int /*count*/) {
  return (value & kMdb) != 0 ? 3 : (value & kExecutive) != 0 ? 2 : value & kG13;
}
constexpr int PaymentBits(int position) { return position == 0 ? 0 : 1 << (position - 1); }
constexpr int PointPosition(int value, int /*count*/) { return value & 3; }
constexpr int LanguagePosition(int value, int count) { return value < count ? value : 0; }
constexpr int KindPosition(int value, int /*count*/) { return value >= 1 ? 1 : 0; }

// The choices of the main board.
enum { kPayment, kPoint, kLanguage };
inline constexpr ChoiceRow kChoices[] = {{.caption_name = "Label9",
                                          .control_name = "SlswitchX5",
                                          .line = 199,
                                          .words = "Gettone, G13, Executive, MDB",
                                          .written = {kMainBoard, kPaymentOptions, kPaymentOptionsMirror},
                                          .mask = 7,
                                          .position = PaymentPosition,
                                          .bits = PaymentBits},
                                         // The machine reports the decimals in use apart from those wanted.
                                         {.caption_name = "Label5",
                                          .control_name = "SlswitchX2",
                                          .line = 206,
                                          .words = "00000, 0000.0, 000.00, 00.000",
                                          .written = {kMainBoard, 76, 278},
                                          .read = kMoneyDecimals,
                                          .position = PointPosition},
                                         {.caption_name = "Label4",
                                          .control_name = "SlswitchX1",
                                          .line = 205,
                                          .words = kEightWords,
                                          .written = {kMainBoard, 77, 279},
                                          .position = LanguagePosition}};
// With these payment systems the decimal point comes from the system.
inline constexpr int kFirstWithItsOwnPoint = 2;

// The words of the switches.
inline constexpr OffOnLines kWords = {.off = 222, .on = 221};

// The switch SwitchX1(n), of which most have their captions in lines that follow each other.
constexpr BitRow Switch(int n, int byte, int mask, int line = 0) {
  return {.line = line != 0 ? line : 180 + n, .byte = byte, .mask = mask, .index = n};
}

// The switches of the main board. The bit of one of them lies in a byte of the first Zeth unit; the caption
// of another is the same in every language.
inline constexpr BitRecord kMainBytes[] = {{kMainBoard, kSellingOptions, kSellingOptionsMirror},
                                           {kMainBoard, kPaymentOptions, kPaymentOptionsMirror},
                                           {kMainBoard, kCreditOptions, kCreditOptionsMirror},
                                           {kZeth, 59, 274}};
enum { kCreditTimeout = 2, kCup = 6 };
inline constexpr BitRow kMainSwitches[] = {Switch(14, 0, 2),
                                           Switch(13, 0, 4),
                                           Switch(12, 3, 8),
                                           Switch(7, 1, 8),
                                           Switch(1, 1, 16),
                                           Switch(15, 1, 32),
                                           {.byte = 2, .mask = 8, .index = 26}};

inline constexpr BitRecord kHotDrinksBytes[] = {{kHotDrinks, 47, 525}, {kHotDrinks, 46, 524}};
enum { kPowderFirst = 1, kDecaffeinated = 2 };
inline constexpr BitRow kHotDrinksSwitches[] = {
    Switch(11, 0, 1),       // double milk
    Switch(25, 0, 2, 210),  // powder first
    Switch(0, 0, 4),        // decaffeinated
    Switch(19, 0, 128, 225), Switch(8, 0, 8),  Switch(16, 0, 16), Switch(9, 0, 32),
    Switch(10, 0, 64),       Switch(2, 1, 1),  Switch(4, 1, 2),   Switch(17, 1, 8),
    Switch(5, 1, 16),        Switch(6, 1, 32), Switch(3, 1, 64),
};
// The fourth canister takes the place of the decaffeinated coffee.
inline constexpr int kFourthCanister = 128;
inline constexpr int kFirstModelWithPowderFirst = 25;

// What a Zeth unit holds. The switches of the second unit share the words of the first.
struct ZethUnit {
  int node;
  ChoiceRow kind;
  BitRecord byte;
  ControlArray captions;
  BitRow switches[3];
};
inline constexpr ZethUnit kZethUnits[] = {
    {.node = kZeth,
     .kind = {.caption_name = "Label8",
              .control_name = "SlswitchX4",
              .line = 204,
              .words = "Snack, Pan",
              .written = {kMainBoard, 78, 280},
              .position = KindPosition},
     .byte = {kZeth, 59, 274},
     .captions = {"Label1"},
     .switches = {Switch(18, 0, 1), Switch(21, 0, 2, 219), Switch(22, 0, 4, 220)}},
    {.node = kZeth2,
     .kind = {.caption_name = "Label11",
              .control_name = "SlswitchX6",
              .line = 228,
              .words = "Snack, Pan",
              .written = {kMainBoard, 359, 360},
              .position = KindPosition},
     .byte = {kZeth2, 59, 274},
     .captions = {},
     .switches = {Switch(23, 0, 1, 198), Switch(24, 0, 2, 219), Switch(20, 0, 8, 192)}},
};

// What the machine is called.
inline constexpr int kFirstNumberCaption = 6;
inline constexpr NumberBox kNumbers[] = {
    {.line = 213, .record = 132, .characters = 6, .largest = 999999},
    {.line = 214, .record = 133, .characters = 5, .largest = 65535},
    {.line = 223, .record = 334, .characters = 5, .largest = 65535},
    {.line = 224, .record = 333, .characters = 5, .largest = 65535},
};

// The bar goes down to 1, an entry only down to 2.
constexpr FieldRow PotRow(int record, int mirror) {
  FieldRow row = WholeRow({.node = kHotDrinks,
                           .record = record,
                           .mirror = mirror,
                           .min = 1,
                           .max = 99,
                           .large_change = 10,
                           .length = 3});
  row.low = 2;
  return row;
}

// An entry below the span of the bar is taken as the lowest value of the bar.
constexpr int kLeastThreshold = 50;
inline std::optional<int> ParseThreshold(QStringView text, int min, int max) {
  const std::optional<int> entry = ParseTenthsUpTo(text, min, max);
  return entry ? std::optional(std::max(*entry, min)) : std::nullopt;
}

inline constexpr FieldRow kSettings[] = {PotRow(28, 506),
                                         PotRow(29, 507),
                                         {.node = kHotDrinks,
                                          .record = 33,
                                          .mirror = 511,
                                          .min = kLeastThreshold,
                                          .max = 180,
                                          .large_change = 10,
                                          .text = TenthsText,
                                          .parse = ParseThreshold,
                                          .low = kLeastThreshold,
                                          .limit = 180,
                                          .length = 4}};
// Captions that no language changes.
inline constexpr const char* kSettingCaptions[] = {"Bricco 1", "Bricco 2÷25", "Soglia macinino"};
inline constexpr const char* kCupCaption = "SI CUP";

// The software version of each board, in tenths.
struct Version {
  int node;
  int record;
  const char* caption;
};
inline constexpr Version kVersions[] = {{kMainBoard, 310, "Ver. master"},
                                        {kHotDrinks, 534, "Ver. potenza"},
                                        {kZeth, 283, "Ver. zeth"},
                                        {kZeth2, 283, "Ver. zeth 2"}};

}  // namespace dosmara::opzioni
