// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever is typed, a parser refuses it or gives a number that its row can hold.
#include "fields/entry_parsers.h"

#include <QString>
#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void RequireWithin(std::optional<int> entry, int min, int max) {
  Require(!entry || (*entry >= min && *entry <= max));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace dosmara;
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  for (const int max : {3, 100, 255, 999, 65535}) {
    RequireWithin(ParseWhole(text, 1, max), 1, max);
    RequireWithin(ParseRounded(text, 1, max), 1, max);
    RequireWithin(ParseInt(text, 0, max), 0, max);
    RequireWithin(ParseTenthsUpTo(text, 29, max), 0, max);
    for (const int decimals : {0, 1, 2, 3}) {
      RequireWithin(ParseMoney(text, max, decimals), 0, max);
    }
  }
  RequireWithin(ParseTenths(text, 20, 250), 20, 250);
  RequireWithin(ParseDelta(text, 10, 50), 10, 50);
  RequireWithin(ParseOffset(text, 0, 0), 0, 10);
  Require(!ParseInt(text, 0, 999) || !text.isEmpty());
  // What money looks at: six characters, or a separator among them and three behind it.
  Require(ParseMoney(text, 65535, 2) == ParseMoney(text.left(9), 65535, 2));
  Require(ParseNumeric(text).has_value() || !ParseWhole(text, -999, 999).has_value());
  return 0;
}
