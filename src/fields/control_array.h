// SPDX-License-Identifier: GPL-3.0-or-later
// Names of controls that stand in arrays.
#pragma once

#include <QString>

namespace dosmara {

// In place of the first index of controls that stand alone: they are called by the plain name.
inline constexpr int kNoArray = -1;

// The name of an array of controls and the index in it of the first one meant; without a name, none.
struct ControlArray {
  const char* name = nullptr;
  int first = 0;

  // "lblVal(3)", the objectName of the n-th control from the first one on; empty without a name.
  QString operator[](int n) const {
    if (name == nullptr) {
      return {};
    }
    return first == kNoArray ? QString(name) : QStringLiteral("%1(%2)").arg(name).arg(first + n);
  }
};

}  // namespace dosmara
