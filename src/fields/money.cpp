// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/money.h"

#include "fields/machine_records.h"
#include "fields/records.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr int kDecimalsMask = 3;
// No number of decimals that the machine can send: every first arrival is a change.
constexpr int kNoDecimalsYet = 255;

}  // namespace

Money::Money() : Decimali(kNoDecimalsYet) {
  if (ParamIsFresh(kMoneyDecimals, kMainBoard)) {
    Take(ParamGet(kMoneyDecimals, kMainBoard));
  }
}

std::vector<Records> Money::ShownRecords() const { return {{kMainBoard, kMoneyDecimals}}; }

void Money::Show(int /*n*/, double value) {
  const int before = Decimali;
  Take(value);
  if (Decimali != before) {
    for (const auto& redraw : redraws_) {
      redraw();
    }
  }
}

void Money::Take(double value) {
  Decimali = LowBits(value) & kDecimalsMask;
  known_ = true;
}

}  // namespace dosmara
