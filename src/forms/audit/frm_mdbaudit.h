// SPDX-License-Identifier: GPL-3.0-or-later
// What money has gone which way through the MDB payment system, and the button that clears it.
#pragma once

#include <vector>

#include "fields/counters_form.h"

namespace dosmara {

// FrmMDBaudit. Amounts stand as the machine counts them, without a decimal point.
class FrmMDBaudit : public CountersForm {
 public:
  FrmMDBaudit();

 protected:
  void AfterArrival() override;
  void Show(std::size_t run, int n, double value) override;

 private:
  void Clear();

  QPushButton* clear_;            // Command1
  std::vector<EchoMark*> marks_;  // what became of the clearing, for each amount
};

}  // namespace dosmara
