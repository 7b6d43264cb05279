// SPDX-License-Identifier: GPL-3.0-or-later
// The boards of FrmInOut: what each of them has been told, what it has answered, and its switches.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "controls/matrix_pad.h"
#include "controls/seven_segment.h"
#include "forms/diagnostics/in_out_tables.h"

namespace dosmara {

// What the boards of nodes 1 to 3 have in common.
class BoardUnderTest {
 public:
  explicit BoardUnderTest(int node) : Presenza{.record = GateRecord(node)}, node_(node) {}
  virtual ~BoardUnderTest() = default;

  int node() const { return node_; }
  virtual int status_record() const = 0;

  // Sends a board that is there into its idle test state, by in_out::kEnterTest, or back to its work, by
  // kLeaveTest.
  void SendMode(int mode);

  // Opens or closes the switches that follow the test and each write; or all, also those that follow nothing
  // but the presence of the board.
  virtual void OpenSwitches(bool open) = 0;
  virtual void OpenAllSwitches(bool open) = 0;
  // No write is waited for any more.
  virtual void StopWaiting() = 0;

  QGroupBox* frame = nullptr;

  Gate Presenza;
  bool Test = false;  // it reports test mode, or is not there
  int Comando = 0;    // command that follows the data once they have been delivered; 0: none

 private:
  virtual int first_wanted() const = 0;

  int node_;
};

// Node 1: 26 outputs, which are the bits of four images.
class DrinksUnderTest : public BoardUnderTest {
 public:
  explicit DrinksUnderTest(QWidget* parent);

  int status_record() const override { return in_out::kDrinksStatus; }
  void OpenSwitches(bool open) override;
  void OpenAllSwitches(bool open) override;
  void StopWaiting() override { Attesa.fill(false); }

  // Writes all images with output i on or off, and returns `on`. While an image is unknown it writes nothing
  // and returns nothing.
  std::optional<bool> Wish(int i, bool on);
  // The echo of one of the images: the command follows the data. An image that comes back as it was not
  // written has been lost on its way; the board holds an older one, and is not told to switch by that.
  void TakeEcho(int image, double value);
  // Shows an image that has been read back. Returns whether a write is done by it.
  bool TakeReadBack(int image, double value);

  SwitchPad* outputs;  // SwitchLed1

 private:
  int first_wanted() const override { return in_out::kFirstWanted; }

  // Records 536 to 539: as they are to be, and whether their read-back is waited for.
  std::array<std::optional<int>, in_out::kImages> Uscite;
  std::array<bool, in_out::kImages> Attesa{};
  std::array<int, in_out::kImages> written_{};
};

// Nodes 2 and 3: a matrix of sectors, one of which can be on, and a compressor, which is a bit of the row.
class ZethUnderTest : public BoardUnderTest {
 public:
  // UltimoSettore for no sector.
  static constexpr std::uint16_t kNoSector = 65535;

  ZethUnderTest(int node, QWidget* parent);

  int status_record() const override { return kUnitStatus; }
  void OpenSwitches(bool open) override;
  void OpenAllSwitches(bool open) override { OpenSwitches(open); }
  void StopWaiting() override { AttesaSettore = AttesaCompr = false; }

  // Switches sector i on, or all off if it is `last`, the one that was switched on last. Returns whether it
  // is to be on. While the row, which holds the compressor, is unknown it writes nothing and returns nothing.
  std::optional<bool> WishSector(int i, std::uint16_t& last);
  // Switches the compressor and leaves the sector as it is. Otherwise as WishSector.
  std::optional<bool> WishCompressor(bool on);
  // The echo of the row, n 0, or of the column, n 1. The command follows when both have come back as sent.
  void TakeEcho(int n, double value);
  void TakeOffset(double value);
  void TakeTemperature(double value);
  void TakeRow(double value);
  // Shows row and column. Returns whether a write is done by it.
  bool TakeColumn(double value);

  MatrixPad* sectors;         // SwitchLed3, SwitchLed5
  SwitchPad* compressor;      // SwitchLed4, SwitchLed6
  SevenSegment* temperature;  // iAnalogX2, iAnalogX3

 private:
  int first_wanted() const override { return in_out::WantedOf(node()).first; }
  void Write(int row, int column);

  // Row and column as they have been read back together, and a row whose column is still to come.
  std::optional<int> Riga;
  std::optional<int> Colonna;
  std::optional<int> RigaNuova;
  std::array<int, 2> written_{};
  bool AttesaSettore = false;
  bool AttesaCompr = false;
  std::optional<int> Offset;  // of the temperature, in degrees
};

}  // namespace dosmara
