// SPDX-License-Identifier: GPL-3.0-or-later
// The clock: the machine's time and date, and the times of the day that hang on it.
#pragma once

#include <optional>

#include "controls/seven_segment.h"
#include "forms/diagnostics/orologio_tables.h"

namespace dosmara {

// The clock runs and is set in a part that only a machine with a clock chip opens; bands of switching on and
// of discounts and the washes open when they have been read.
//
// What sets the clock is filled from it once. From then on it shows what the machine has taken of a change:
// the first answer after a change, whichever of the five it is.
class FrmOrologio : public DataForm {
 public:
  FrmOrologio();

  void InitMessaggi() override;

 private:
  void Loaded() override { SetPointsOpen(true); }
  void AfterArrival() override;

  void FillClock();
  // Rows that set the clock, side by side in a line of the grid.
  void AddSetting(FieldRows& rows, QGridLayout& grid, int line);
  QGroupBox* NewPoints(const orologio::PointFrame& points);
  void SetClockOpen(bool open);
  void SetPointsOpen(bool open);

  void WatchClock(const Records& records, void (FrmOrologio::*take)(int, double));
  void TakeTime(int n, double value);
  void TakeDate(int n, double value);
  void TakeAnswer(int n, double value);
  bool IsDateKnown() const { return Giorno && Mese && Anno; }
  void ShowDataCorrente();

  bool PrimoOrario = true;  // the rows that set the time have not been filled yet
  bool PrimaData = true;    // nor those that set the date
  bool Modificato = false;  // the operator has changed one of the five since the last answer
  Gate Presenza{.record = kMachineStatus, .counted = Gate::Counted::kNone, .followed = true};
  int Ore = 255;              // last hour and minute
  int Minuti = 255;           //
  std::optional<int> Giorno;  // the date, as far as it has arrived
  std::optional<int> Mese;    //
  std::optional<int> Anno;    // in full

  // In the order in which Tab goes through them.
  FieldRows& time_;
  FieldRows& date_;
  FieldRows& points_;
  QGroupBox* frame_;
  SegmentClock* clock_;
  FieldLabel* label6_;
};

}  // namespace dosmara
