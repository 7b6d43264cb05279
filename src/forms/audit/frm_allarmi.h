// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm log: the last ten alarms of the machine.
#pragma once

#include <QProgressBar>
#include <array>
#include <cstdint>

#include "controls/report_list.h"
#include "fields/data_form.h"

namespace dosmara {

// Lists the ring of ten entries that the machine keeps, newest first. It only reads.
class FrmAllarmi : public DataForm {
 public:
  FrmAllarmi();

  void InitMessaggi() override;

 private:
  static constexpr int kEntries = 10;
  static constexpr int kFields = 6;

  void AfterArrival() override;
  void BuildList();
  int Field(int entry, int field) const { return Dati[kFields * entry + field]; }
  QString DateOf(int entry) const;
  QString TimeOf(int entry) const;

  QProgressBar* progress_;
  ReportList* list_;
  std::array<int, kEntries * kFields> Dati{};  // entry by entry
  int Puntatore = 0;                           // the newest entry
  std::int16_t Arrivi = 0;                     // arrivals so far; stays at the largest number
};

}  // namespace dosmara
