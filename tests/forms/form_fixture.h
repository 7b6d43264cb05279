// SPDX-License-Identifier: GPL-3.0-or-later
// A form in a main window, with the parameter table in the place of the machine.
#pragma once

#include <string>
#include <vector>

#include "forms/window_fixture.h"

namespace dosmara {

// Four boards of `kRecords` two-byte records each, all present.
class FormFixture : public WindowFixture {
 protected:
  static constexpr int kRecords = 700;

  FormFixture();

  // The board sends a value: it is in the table before the forms hear of it.
  void Arrive(int node, int record, double value);

  // Takes all waiting writes off the table, by node and record.
  std::vector<Write> Written();
};

}  // namespace dosmara
