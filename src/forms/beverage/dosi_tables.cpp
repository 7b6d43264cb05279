// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/dosi_tables.h"

namespace dosmara::dosi {

QString WaterText(double value) {
  return value == 0 ? QStringLiteral("OFF") : WholeText(value == 1 ? 0 : value);
}

QString SugarText(double value) {
  return value == 0 ? QStringLiteral("OFF") : TenthsText(value == 1 ? 0 : value);
}

}  // namespace dosmara::dosi
