// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_password.h"

#include <QGridLayout>

namespace dosmara {

namespace {

// The mirrors are only ever written.
constexpr Records kMirrors[] = {{kMainBoard, 203, 3}};

constexpr FormSetup kSetup = {.name = "FrmPassword", .title = 25, .also_released = kMirrors};

// The largest code has as many digits as are read.
constexpr NumberBox kCodes[] = {
    {.line = 240, .record = 1, .mirror = 203, .characters = 5, .largest = 99999},  // programming
    {.line = 241, .record = 3, .mirror = 205, .characters = 5, .largest = 99999},  // sales data
    {.line = 242, .record = 2, .mirror = 204, .characters = 4, .largest = 9999},   // clearing data
};

}  // namespace

FrmPassword::FrmPassword() : DataForm(kSetup) {
  NumberBoxes& codes = NewNumberBoxes({"Label1"}, {"Text1"}, kCodes);
  auto* grid = new QGridLayout(Body());
  codes.PlaceIn(*grid);
  Watch(codes, Counts::kNo);
}

}  // namespace dosmara
