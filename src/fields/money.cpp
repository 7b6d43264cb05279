// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/money.h"

#include "fields/machine_records.h"
#include "fields/records.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr int kDecimalsMask = 3;

}  // namespace

void Money::TakeKnown() {
  if (ParamIsFresh(kMoneyDecimals, kMainBoard)) {
    Take(ParamGet(kMoneyDecimals, kMainBoard));
  }
}

bool Money::Take(double value) {
  const int arrived = LowBits(value) & kDecimalsMask;
  const bool changed = arrived != Decimali;
  Decimali = arrived;
  known_ = true;
  return changed;
}

}  // namespace dosmara
