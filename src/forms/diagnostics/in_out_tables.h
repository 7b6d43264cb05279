// SPDX-License-Identifier: GPL-3.0-or-later
// What FrmInOut drives and watches: the outputs and inputs of the hot drinks unit and the inputs of the main
// board, bit by bit, and the commands of the test.
#pragma once

#include "fields/data_form.h"

namespace dosmara::in_out {

// A board is sent data first and then a command. The mode command enters or leaves the test, as the first
// byte of the data says; the drive command switches the outputs as all the data say.
inline constexpr int kModeCommand = 1;
inline constexpr int kDriveCommand = 2;
inline constexpr int kEnterTest = 60;
inline constexpr int kLeaveTest = 0;

// In the status of a board: it is in test mode.
inline constexpr int kInTest = 1;

// The hot drinks unit.
inline constexpr int kDrinksCommand = 535;
inline constexpr int kImages = 4;
inline constexpr int kFirstWanted = 536;
inline constexpr int kDrinksStatus = 541;
inline constexpr int kFirstReadBack = 547;
// The command follows the echo of this image; the one behind it is not waited for.
inline constexpr int kLastThatMatters = 2;

// A Zeth unit.
inline constexpr Records WantedOf(int node) { return {node, 285, 2}; }  // row, column
inline constexpr int kRow = 288;
inline constexpr int kColumn = 289;
inline constexpr int kCompressor = 128;  // in the row

// The controls of a Zeth unit.
struct ZethControls {
  const char* frame;
  int line;  // title of the frame, line of the language file
  ControlArray sector;
  ControlArray sector_caption;
  const char* compressor;
  const char* compressor_caption;
  const char* temperature;
  const char* temperature_caption;
};
inline constexpr ZethControls kZethControls = {.frame = "Frame3",
                                               .line = 316,
                                               .sector = {"SwitchLed3"},
                                               .sector_caption = {"Label5"},
                                               .compressor = "SwitchLed4",
                                               .compressor_caption = "Label2",
                                               .temperature = "iAnalogX2",
                                               .temperature_caption = "Label8"};
inline constexpr ZethControls kZeth2Controls = {.frame = "Frame4",
                                                .line = 280,
                                                .sector = {"SwitchLed5"},
                                                .sector_caption = {"Label11"},
                                                .compressor = "SwitchLed6",
                                                .compressor_caption = "Label9",
                                                .temperature = "iAnalogX3",
                                                .temperature_caption = "Label10"};

// An output of the hot drinks unit, in the order of its switches.
struct Output {
  int line;   // caption, line of the language file
  int image;  // index of the image it belongs to
  int mask;
};
inline constexpr Output kOutputs[] = {
    {285, 0, 1},    // coffee valve
    {286, 0, 2},    // milk and chocolate valve
    {287, 0, 4},    // tea valve
    {288, 0, 8},    // decaf valve
    {289, 0, 16},   // hot water valve
    {290, 0, 32},   // pump
    {291, 0, 64},   // boiler heater
    {292, 0, 128},  // water inlet valve
    {293, 1, 1},    // grinder
    {294, 1, 2},    // coffee doser
    {295, 1, 4},    // brewer motor
    {296, 1, 8},    // fan
    {297, 2, 1},    // milk motor
    {298, 2, 2},    // chocolate motor
    {299, 2, 4},    // tea motor
    {300, 2, 8},    // decaf motor
    {301, 2, 16},   // sugar motor
    {302, 2, 32},   // cup release
    {303, 2, 64},   // cup column
    {304, 2, 128},  // stirrer release
    {305, 3, 1},    // bay light
    {306, 3, 4},    // flap lock
    {325, 1, 128},  // rinse valve
    {326, 1, 16},   // milk mixer
    {327, 1, 32},   // chocolate mixer
    {328, 1, 64},   // water fill
};
// So many of them open and close with the test. The others keep their state then: only the presence of the
// board opens and closes them.
inline constexpr int kFollowTheTest = 23;

// The bytes of the inputs.
inline constexpr BitRecord kInputBytes[] = {
    {kMainBoard, 318}, {kHotDrinks, 544}, {kHotDrinks, 545}, {kHotDrinks, 546}};

constexpr BitRow MasterInput(int index, int mask) {
  return {.line = 275 + index,
          .byte = 0,
          .mask = mask,
          .index = index,
          .active_low = true,
          .caption = {"Label1"},
          .control = {"LedX1"}};
}
constexpr BitRow DrinksInput(int index, int line, int byte, int mask, bool active_low = true) {
  return {.line = line,
          .byte = byte,
          .mask = mask,
          .index = index,
          .active_low = active_low,
          .caption = {"Label3"},
          .control = {"iLedRectangleX1"}};
}
inline constexpr BitRow kInputs[] = {
    MasterInput(0, 2),                 // door closed
    MasterInput(1, 8),                 // program key
    MasterInput(2, 16),                // coin mechanism
    MasterInput(3, 32),                // return lever
    MasterInput(4, 64),                // token inserted
    DrinksInput(0, 307, 1, 1),         // brewer at rest
    DrinksInput(1, 308, 1, 2),         // doser switch
    DrinksInput(2, 309, 1, 4),         // cups in column
    DrinksInput(3, 310, 1, 8),         // cup in position
    DrinksInput(4, 311, 1, 16),        // water level
    DrinksInput(5, 312, 1, 32),        // grounds bin full
    DrinksInput(6, 313, 1, 64),        // drip tray full
    DrinksInput(7, 314, 2, 0, false),  // spare: no bit is wired to it, it stays off
    DrinksInput(8, 315, 3, 1, false),  // boiler hot
    DrinksInput(9, 324, 2, 2),         // water fill
};
inline constexpr int kMasterInputs = 5;

// The main board keeps being asked whether the second Zeth unit is there.
inline constexpr Records kKept[] = {{kMainBoard, GateRecord(kZeth2)}};
// What has been written is released as if it had been read; of the second unit it is not.
inline constexpr Records kAlsoReleased[] = {{kHotDrinks, kDrinksCommand, 1 + kImages}, WantedOf(kZeth)};

inline constexpr FormSetup kSetup = {.name = "FrmInOut", .also_released = kAlsoReleased, .kept = kKept};
// The language has no line for it.
inline constexpr const char* kTitle = "Test IN/OUT";

}  // namespace dosmara::in_out
