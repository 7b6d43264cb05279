// SPDX-License-Identifier: GPL-3.0-or-later
// FrmOpzioni with a machine of four boards.
#pragma once

#include "controls/selector.h"
#include "forms/form_fixture.h"
#include "forms/row_cases.h"

namespace dosmara {

// What the machine sends until the form opens, but for the three settings of the hot drinks unit: each of
// these arrivals counts.
inline const std::vector<Sent> kOpensOptions = {
    {1, 46, 0},  {1, 47, 0},  {2, 59, 0},  {3, 59, 0},  {0, 317, 8}, {0, 84, 0},
    {0, 77, 0},  {0, 78, 0},  {0, 359, 0}, {0, 132, 7}, {0, 133, 7}, {0, 333, 7},
    {0, 334, 7}, {0, 311, 0}, {0, 312, 4}, {0, 313, 4}, {0, 357, 4}};

class OpzioniFixture : public FormFixture {
 protected:
  OpzioniFixture() { FormFixture::Open("FrmOpzioni"); }

  void SendAll(const std::vector<Sent>& all) {
    for (const Sent& sent : all) {
      Arrive(sent.node, sent.record, sent.value);
    }
  }
  // The last three of the twenty.
  void SendSettings() { SendAll({{1, 28, 20}, {1, 29, 20}, {1, 33, 100}}); }
  // Opens the form.
  void Unlock() {
    SendAll(kOpensOptions);
    SendSettings();
  }

  static std::string SwitchName(int n) { return Element("SwitchX1", n); }
  int SwitchAt(int n) { return Position(SwitchName(n)); }
  int Chosen(const std::string& selector) { return Find<Selector>(selector).Position(); }
  bool Open(const std::string& name) { return Enabled(name); }
};

}  // namespace dosmara
