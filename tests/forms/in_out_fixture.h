// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the input and output test, with boards that do as the test says.
#pragma once

#include "controls/led.h"
#include "controls/led_switch.h"
#include "controls/seven_segment.h"
#include "forms/form_fixture.h"

namespace dosmara {

class InOutFixture : public FormFixture {
 protected:
  using Writes = std::vector<Write>;

  InOutFixture() { Open("FrmInOut"); }

  // Which of the boards of nodes 1 to 3 are there.
  void Present(int drinks, int zeth, int zeth2) {
    Arrive(0, 312, drinks);
    Arrive(0, 313, zeth);
    Arrive(0, 357, zeth2);
  }
  // All outputs are read back as off.
  void AllOff() {
    for (const int record : {547, 548, 549, 550}) {
      Arrive(1, record, 0);
    }
    ReadBack(2, 0, 0);
    ReadBack(3, 0, 0);
  }
  void ReadBack(int node, int row, int column) {
    Arrive(node, 288, row);
    Arrive(node, 289, column);
  }
  void InTest(int drinks, int zeth, int zeth2) {
    Arrive(1, 541, drinks);
    Arrive(2, 290, zeth);
    Arrive(3, 290, zeth2);
  }
  // All boards are there, all outputs known as off, the test is on.
  void Start() {
    Present(4, 4, 4);
    AllOff();
    InTest(1, 1, 1);
  }
  // As Start; the hot drinks unit has said during the test that it is there, which opens all its switches.
  void StartWithAllSwitches() {
    Start();
    Arrive(0, 312, 5);
  }

  LedSwitch& Switch(const std::string& name) { return Find<LedSwitch>(name); }
  bool On(const std::string& name) { return Switch(name).IsOn(); }
  // The switches of an array that are on, or can be pressed.
  std::vector<int> AllOn(const char* array, int count) {
    std::vector<int> on;
    for (int n = 0; n < count; ++n) {
      if (On(Element(array, n))) {
        on.push_back(n);
      }
    }
    return on;
  }
  std::vector<int> AllOpen(const char* array, int count) {
    std::vector<int> open;
    for (int n = 0; n < count; ++n) {
      if (Enabled(Element(array, n))) {
        open.push_back(n);
      }
    }
    return open;
  }
  static std::vector<int> UpTo(int end, int begin = 0) {
    std::vector<int> numbers;
    for (int n = begin; n < end; ++n) {
      numbers.push_back(n);
    }
    return numbers;
  }
  // Whether the switches that follow the test can be pressed, all of them or none.
  void ExpectOpen(bool open) {
    EXPECT_EQ(AllOpen("SwitchLed1", 23), UpTo(open ? 23 : 0));
    EXPECT_EQ(AllOpen("SwitchLed3", 48), UpTo(open ? 48 : 0));
    EXPECT_EQ(AllOpen("SwitchLed5", 48), UpTo(open ? 48 : 0));
    EXPECT_EQ(Enabled("SwitchLed4"), open);
    EXPECT_EQ(Enabled("SwitchLed6"), open);
  }
  EchoMark::State Mark() { return form().findChild<EchoMark*>()->state(); }
};

}  // namespace dosmara
