// SPDX-License-Identifier: GPL-3.0-or-later
// Rows by which something sold points at a price of the price list.
#pragma once

#include "fields/field_row.h"

namespace dosmara {

// Only the first thirty prices can be pointed at. They are numbered from 1, and held from 0.
inline constexpr int kPointedPrices = 30;

inline QString PriceNumberText(double value) { return WholeText(value + 1); }

inline std::optional<int> ParsePriceNumber(QStringView text, int min, int max) {
  const std::optional<int> number = ParseRounded(text, min + 1, max + 1);
  return number ? std::optional(*number - 1) : std::nullopt;
}

// Completes a row that holds the number of a price.
constexpr FieldRow PriceNumberRow(FieldRow row) {
  row.min = 1;
  row.max = kPointedPrices;
  row.large_change = 3;
  row.offset = -1;
  row.text = PriceNumberText;
  row.parse = ParsePriceNumber;
  row.limit = kPointedPrices - 1;
  row.length = 5;
  return row;
}

}  // namespace dosmara
