// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine has taken and sold, for life and since it was cleared last.
#pragma once

#include "fields/counters_form.h"

namespace dosmara {

// FrmTotali. It only reads.
class FrmTotali : public CountersForm {
 public:
  FrmTotali();

 protected:
  void Show(std::size_t run, int n, double value) override;

 private:
  void Hide(std::size_t run);
  void SetFrameHeight(std::size_t run, double twips);
  void RedrawAmounts();

  Money money_;
};

}  // namespace dosmara
