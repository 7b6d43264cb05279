// SPDX-License-Identifier: GPL-3.0-or-later
// Where lamps and words stand on the drawing of the machine, in the units of data/art/machine.svg.
#pragma once

#include <QPointF>
#include <QSizeF>

namespace dosmara {

inline constexpr QSizeF kSchemaSize(1350, 622);

// On which side of its point a text stands.
enum Beside { kRightOf, kLeftOf, kAbove, kBelow };

// An indicator and the caption beside it, which breaks into lines no wider than `width` where it can.
struct LampPlace {
  int line;  // caption, line of the language file
  QPointF centre;
  Beside caption;
  double width;
};

// A word of the legend: it stands beside the point `from`, and a line leads from there to the part `to`.
struct LegendPlace {
  QPointF from;
  Beside word;
  double width;
  QPointF to;
};

// Led(0) to Led(27). The last two lamps of rinsing are the two valves of one output.
inline constexpr LampPlace kOutputPlaces[] = {
    {338, {481, 216}, kRightOf, 82},    // coffee valve
    {339, {946, 216}, kRightOf, 80},    // milk and chocolate valve
    {340, {827, 216}, kRightOf, 56},    // tea valve
    {341, {646, 216}, kRightOf, 94},    // decaf valve
    {342, {1271, 216}, kRightOf, 67},   // hot water valve
    {343, {290, 505}, kRightOf, 50},    // pump
    {344, {242, 322}, kRightOf, 80},    // boiler heater
    {345, {45, 567}, kAbove, 84},       // water inlet valve
    {346, {456, 104}, kRightOf, 100},   // grinder
    {347, {453, 133}, kRightOf, 110},   // coffee doser
    {348, {500, 266}, kRightOf, 66},    // brewer motor
    {349, {1300, 328}, kBelow, 60},     // fan
    {350, {962, 307}, kRightOf, 73},    // milk mixer
    {351, {1108, 307}, kRightOf, 80},   // chocolate mixer
    {352, {260, 567}, kRightOf, 95},    // water fill
    {353, {1105, 216}, kRightOf, 85},   // rinse valve of the mixers
    {354, {961, 103}, kRightOf, 56},    // milk motor
    {355, {1107, 103}, kRightOf, 80},   // chocolate motor
    {356, {823, 103}, kRightOf, 56},    // tea motor
    {357, {643, 103}, kRightOf, 96},    // decaf motor
    {358, {1267, 103}, kRightOf, 72},   // sugar motor
    {359, {1206, 491}, kRightOf, 130},  // cup release
    {360, {1206, 415}, kRightOf, 130},  // cup column
    {361, {1056, 470}, kRightOf, 64},   // stirrer release
    {362, {672, 412}, kRightOf, 80},    // bay light
    {363, {1246, 560}, kRightOf, 85},   // panel light
    {364, {630, 430}, kLeftOf, 118},    // flap lock
    {353, {309, 216}, kLeftOf, 64},     // rinse valve of the brewer
};

// iLed(0) to iLed(8).
inline constexpr LampPlace kInputPlaces[] = {
    {365, {502, 299}, kRightOf, 64},    // brewer at rest
    {366, {458, 165}, kRightOf, 94},    // doser switch
    {367, {1211, 453}, kRightOf, 128},  // cups in the column
    {368, {630, 474}, kLeftOf, 92},     // cup in position
    {369, {290, 440}, kLeftOf, 92},     // water level
    {370, {541, 540}, kRightOf, 66},    // grounds bin full
    {371, {619, 575}, kLeftOf, 120},    // drip tray full
    {372, {132, 440}, kLeftOf, 92},     // flow meter
    {352, {290, 472}, kLeftOf, 92},     // water fill
};

// Label1(0) to Label1(20).
inline constexpr LegendPlace kLegendPlaces[] = {
    {{32, 612}, kRightOf, 130, {16, 592}},     // mains water
    {{104, 482}, kAbove, 110, {112, 494}},     // softener
    {{297, 396}, kLeftOf, 72, {310, 424}},     // tank
    {{262, 508}, kLeftOf, 52, {280, 526}},     // pump
    {{124, 396}, kLeftOf, 90, {159, 430}},     // flow meter
    {{246, 268}, kRightOf, 56, {216, 268}},    // boiler
    {{376, 107}, kLeftOf, 68, {394, 107}},     // grinder
    {{376, 148}, kLeftOf, 68, {398, 148}},     // doser
    {{376, 291}, kLeftOf, 98, {396, 291}},     // brewer
    {{924, 18}, kAbove, 60, {924, 42}},        // milk
    {{1070, 18}, kAbove, 90, {1070, 42}},      // chocolate
    {{786, 18}, kAbove, 60, {786, 42}},        // tea
    {{606, 18}, kAbove, 110, {606, 42}},       // decaf
    {{1230, 18}, kAbove, 90, {1230, 42}},      // sugar
    {{976, 337}, kRightOf, 68, {938, 316}},    // mixers
    {{1300, 264}, kAbove, 60, {1300, 282}},    // fan
    {{1124, 402}, kLeftOf, 64, {1144, 402}},   // cups
    {{1052, 425}, kRightOf, 58, {1034, 430}},  // stirrers
    {{872, 408}, kRightOf, 124, {846, 420}},   // delivery bay
    {{538, 512}, kRightOf, 66, {521, 506}},    // grounds
    {{890, 584}, kRightOf, 76, {854, 580}},    // drip tray
};

inline constexpr QPointF kThermometerPlace(8, 75);  // its upper left corner
inline constexpr QPointF kDisplayPlace(95, 118);

}  // namespace dosmara
