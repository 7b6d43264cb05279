// SPDX-License-Identifier: GPL-3.0-or-later
// FrmDosi as its tests have it: open, filled, its rows and what is grey of it.
#pragma once

#include <vector>

#include "forms/form_fixture.h"

namespace dosmara {

inline constexpr int kRowRecords[] = {148, 170, 280, 368, 302, 390, 192, 324, 412, 214, 346, 236, 434, 563};
inline constexpr int kBitRecords[] = {34, 35, 36, 38, 39, 40, 42, 43, 44, 589, 590, 591};

class FrmDosiTest : public FormFixture {
 protected:
  void Open() { FormFixture::Open("FrmDosi"); }

  // Everything has arrived and the machine allows changes.
  void OpenLoaded(int value = 7) {
    Open();
    Arrive(0, 312, 4);
    for (const int record : kBitRecords) {
      Arrive(1, record, 0);
    }
    for (const int record : kRowRecords) {
      Arrive(1, record, value);
    }
  }

  // A row is open when its bar can be moved and its box typed into.
  bool RowOpen(int n) {
    EXPECT_EQ(Enabled(Element("scrDosi", n)), Shown(Element("txtVal", n))) << "row " << n;
    return Enabled(Element("scrDosi", n));
  }

  // What is enabled on a form that is closed to changes: nothing.
  void ExpectAllGrey() {
    for (const char* name :
         {"Command1(0)", "Command1(1)", "Command1(2)", "Label11(0)", "Label11(21)", "HScroll7", "SwitchX1(0)",
          "SwitchX1(3)", "Label8(0)", "Label8(3)", "cmdProva(0)", "cmdProva(4)"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    for (int n = 0; n < 14; ++n) {
      EXPECT_FALSE(RowOpen(n)) << n;
      EXPECT_FALSE(Enabled(Element("lblDes", n))) << n;
      EXPECT_FALSE(Enabled(Element("lblVal", n))) << n;
    }
  }
};

using Writes = std::vector<Write>;

}  // namespace dosmara
