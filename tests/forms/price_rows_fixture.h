// SPDX-License-Identifier: GPL-3.0-or-later
// A form whose rows are amounts: Label1, Text1 and HScroll1 by their number.
#pragma once

#include "forms/form_fixture.h"

namespace dosmara {

class PriceRowsFixture : public FormFixture {
 protected:
  bool Unlocked() { return Enabled("Text1(0)"); }
  std::string Label(int n) { return LabelText(Element("Label1", n)); }
  // What row n shows, which its box shows as well.
  std::string Shows(int n) {
    EXPECT_EQ(BoxText(Element("Text1", n)), Label(n));
    return Label(n);
  }
  bool BarOpen(int n) { return Enabled(Element("HScroll1", n)); }
  int BarValue(int n) { return BarOf(Element("HScroll1", n)).Value(); }
};

}  // namespace dosmara
