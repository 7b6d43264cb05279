// SPDX-License-Identifier: GPL-3.0-or-later
// The temperatures of the machine over time.
#pragma once

#include <QTimer>
#include <cstdint>

#include "controls/strip_chart.h"
#include "fields/data_form.h"

namespace dosmara {

// Draws the temperatures of the boiler and of both Zeth units on a strip chart: every four seconds those that
// have arrived last, each as long as its board is present. Time counts from the opening. It only reads.
class FrmGrafico : public DataForm {
 public:
  FrmGrafico();

  void Load() override;
  void InitMessaggi() override;
  void Unload() override;

 private:
  void WatchTank(int node, int& offset, double& temperature);
  void Sample();

  StripChart* chart_;
  QTimer* timer_;
  double XCorrente = 0;       // time of the next sample, in days
  std::int16_t Campione = 0;  // number of the next sample
  double Caldaia = 0;         // degrees
  double Zeth1 = 0;
  double Zeth2 = 0;
  int Offset2 = 0;  // degrees
  int Offset3 = 0;
  int Presenza1 = 0;  // the bytes of the boards' gates
  int Presenza2 = 0;
  int Presenza3 = 0;
};

}  // namespace dosmara
