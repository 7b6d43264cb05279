// SPDX-License-Identifier: GPL-3.0-or-later
// The clock window, with a machine that tells the time.
#pragma once

#include <stdexcept>
#include <string>

#include "controls/seven_segment.h"
#include "controls/value_row.h"
#include "forms/form_fixture.h"

namespace dosmara {

// What sets the clock.
struct Setting {
  int n;
  const char* bar;
  const char* value;
  int record;
  int min;
  int max;
  int large_change;
};
inline constexpr Setting kSettings[] = {
    {0, "HScroll2(0)", "Label4(0)", 326, 0, 23, 3}, {1, "HScroll2(1)", "Label4(1)", 327, 0, 59, 5},
    {2, "HScroll5(0)", "Label5(0)", 328, 1, 31, 5}, {3, "HScroll5(1)", "Label5(1)", 329, 1, 12, 5},
    {4, "HScroll5(2)", "Label5(2)", 330, 0, 99, 5},
};
enum { kHour, kMinute, kDay, kMonth, kYear };

class OrologioFixture : public FormFixture {
 protected:
  OrologioFixture() { Open("FrmOrologio"); }

  // The machine's clock runs at 10:32 on 15 March 2024.
  void Run() {
    Arrive(0, 317, 4);
    SendTime(10, 32);
    SendDate(15, 3, 24);
  }
  void SendTime(int hour, int minute) {
    Arrive(0, 321, hour);
    Arrive(0, 320, minute);
  }
  void SendDate(int day, int month, int year) {
    Arrive(0, 322, day);
    Arrive(0, 323, month);
    Arrive(0, 324, year);
  }

  std::string Time() { return Find<SegmentClock>("iSevenSegmentClockX1").Time().toStdString(); }
  std::string Date() { return LabelText("Label6"); }
  // The five values, as "10 32 15 3 24"; "-" for one that is empty.
  std::string Values() {
    std::string values;
    for (const Setting& each : kSettings) {
      const std::string value = LabelText(each.value);
      EXPECT_EQ(BoxText(Element("txtOrol", each.n)), value);
      values += (values.empty() ? "" : " ") + (value.empty() ? "-" : value);
    }
    return values;
  }
  // Where the five bars stand.
  std::string Bars() {
    std::string bars;
    for (const Setting& each : kSettings) {
      bars += (bars.empty() ? "" : " ") + std::to_string(BarOf(each.bar).Value());
    }
    return bars;
  }
  EchoMark::State MarkOf(int n) {
    for (ValueRow* row : form().findChildren<ValueRow*>()) {
      if (&row->bar() == &BarOf(kSettings[n].bar)) {
        return row->echo().state();
      }
    }
    throw std::runtime_error("no mark");
  }
  void Set(int n, int value) { EXPECT_TRUE(BarOf(kSettings[n].bar).SetValue(value)); }

  void ExpectOpen(bool open) {
    for (const char* each :
         {"Frame1", "iSevenSegmentClockX1", "HScroll2(0)", "HScroll2(1)", "Label4(0)", "Label4(1)",
          "Label41(0)", "Label41(1)", "HScroll5(0)", "HScroll5(1)", "HScroll5(2)", "Label5(0)", "Label5(1)",
          "Label5(2)", "Label5s(0)", "Label5s(1)", "Label5s(2)", "Label6"}) {
      EXPECT_EQ(Enabled(each), open) << each;
    }
    for (int n = 0; n < 5; ++n) {
      EXPECT_EQ(Shown(Element("txtOrol", n)), open) << n;
    }
  }
};

}  // namespace dosmara
