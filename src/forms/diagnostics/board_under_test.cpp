// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/board_under_test.h"

#include <algorithm>
#include <bit>

#include "fields/numbering.h"
#include "fields/tank_temperature.h"
#include "store/parameter_table.h"

namespace dosmara {

using namespace in_out;

namespace {

constexpr int kTemperatureDigits = 3;
constexpr int kTemperatureDecimals = 1;

void OpenFirst(SwitchPad& pad, int count, bool open) {
  for (int i = 0; i < count; ++i) {
    pad.Switch(i).setEnabled(open);
  }
}

// The lowest of `count` bits that is set; `count` for none.
int LowestBit(int bits, int count) { return std::countr_zero(static_cast<unsigned>(bits) | 1U << count); }

int CompressorIn(int row) { return row & kCompressor; }

}  // namespace

void BoardUnderTest::SendMode(int mode) {
  if (Presenza.IsOpen()) {
    PutRecord(node_, first_wanted(), mode);
    Comando = kModeCommand;
  }
}

DrinksUnderTest::DrinksUnderTest(QWidget* parent)
    : BoardUnderTest(kHotDrinks), outputs(new SwitchPad(parent, std::size(kOutputs))) {}

void DrinksUnderTest::OpenSwitches(bool open) { OpenFirst(*outputs, kFollowTheTest, open); }

void DrinksUnderTest::OpenAllSwitches(bool open) { OpenFirst(*outputs, outputs->Count(), open); }

std::optional<bool> DrinksUnderTest::Wish(int i, bool on) {
  if (!std::ranges::all_of(Uscite, [](const std::optional<int>& image) { return image.has_value(); })) {
    return {};
  }
  const Output& output = kOutputs[i];
  int& image = *Uscite[output.image];
  image = on ? image | output.mask : image & ~output.mask;
  Attesa[output.image] = true;
  for (int n = 0; n < kImages; ++n) {
    written_[n] = *Uscite[n];
    PutRecord(node(), kFirstWanted + n, written_[n]);
  }
  Comando = kDriveCommand;
  return on;
}

void DrinksUnderTest::TakeEcho(int image, double value) {
  if (Comando == kDriveCommand && LowBits(value) != written_[image]) {
    Comando = 0;
  }
  const bool mode = Comando == kModeCommand && image == 0;
  const bool drive = Comando == kDriveCommand && image == kLastThatMatters;
  if (mode || drive) {
    PutRecord(node(), kDrinksCommand, Comando);
    Comando = 0;
  }
}

bool DrinksUnderTest::TakeReadBack(int image, double value) {
  const int bits = LowBits(value);
  const bool done = Attesa[image] && Uscite[image] == bits;
  Attesa[image] = Attesa[image] && !done;
  Uscite[image] = bits;
  for (int i = 0; i < outputs->Count(); ++i) {
    if (kOutputs[i].image == image) {
      outputs->Switch(i).SetOn((bits & kOutputs[i].mask) != 0);
    }
  }
  return done;
}

ZethUnderTest::ZethUnderTest(int node, QWidget* parent)
    : BoardUnderTest(node),
      sectors(new MatrixPad(parent, kPositionRows, kPositionColumns)),
      compressor(new SwitchPad(parent, 1)),
      temperature(new SevenSegment(parent, kTemperatureDigits, kTemperatureDecimals)) {}

void ZethUnderTest::OpenSwitches(bool open) {
  OpenFirst(*sectors, sectors->Count(), open);
  OpenFirst(*compressor, compressor->Count(), open);
}

void ZethUnderTest::Write(int row, int column) {
  written_ = {row, column};
  PutRecord(node(), WantedOf(node()).first, row);
  PutRecord(node(), WantedOf(node()).first + 1, column);
  Comando = kDriveCommand;
}

std::optional<bool> ZethUnderTest::WishSector(int i, std::uint16_t& last) {
  if (!Riga) {
    return {};
  }
  AttesaSettore = true;
  if (last == i) {
    Write(CompressorIn(*Riga), 0);
    last = kNoSector;
    return false;
  }
  Write(1 << i / kPositionColumns | CompressorIn(*Riga), 1 << i % kPositionColumns);
  last = static_cast<std::uint16_t>(i);
  return true;
}

std::optional<bool> ZethUnderTest::WishCompressor(bool on) {
  if (!Riga) {
    return {};
  }
  AttesaCompr = true;
  Write(on ? *Riga | kCompressor : *Riga & ~kCompressor, *Colonna);
  return on;
}

void ZethUnderTest::TakeEcho(int n, double value) {
  if (Comando == kDriveCommand && LowBits(value) != written_[n]) {
    Comando = 0;
  }
  const Records wanted = WantedOf(node());
  const bool mode = Comando == kModeCommand && ParamIsFresh(wanted.first, node());
  const bool drive = Comando == kDriveCommand && AllFresh(wanted);
  if (mode || drive) {
    PutRecord(node(), kUnitCommand, Comando);
    Comando = 0;
  }
}

void ZethUnderTest::TakeOffset(double value) { Offset = LowBits(value) - kTankOffsetOfZero; }

// Without its offset the temperature cannot be known: the display then shows none.
void ZethUnderTest::TakeTemperature(double value) {
  if (Offset && ParamIsFresh(kTankOffset, node())) {
    temperature->SetValue(TankTemperature(*Offset, value));
  } else {
    temperature->SetKnown(false);
  }
}

void ZethUnderTest::TakeRow(double value) { RigaNuova = LowBits(value); }

// A write is done when row and column have been read back twice with equal values. A column that comes before
// its row says nothing.
bool ZethUnderTest::TakeColumn(double value) {
  if (!RigaNuova) {
    return false;
  }
  const bool stable = Colonna == LowBits(value) && Riga == RigaNuova;
  Riga = RigaNuova;
  Colonna = LowBits(value);
  const int row = LowestBit(*Riga & ((1 << kPositionRows) - 1), kPositionRows);
  const int column = LowestBit(*Colonna & ((1 << kPositionColumns) - 1), kPositionColumns);
  const bool any = row < kPositionRows && column < kPositionColumns;
  for (int i = 0; i < sectors->Count(); ++i) {
    sectors->Switch(i).SetOn(any && i == row * kPositionColumns + column);
  }
  compressor->Switch(0).SetOn(CompressorIn(*Riga) != 0);
  const bool done = stable && (AttesaSettore || AttesaCompr);
  if (done) {
    StopWaiting();
  }
  return done;
}

}  // namespace dosmara
