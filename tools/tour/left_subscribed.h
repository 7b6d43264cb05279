// SPDX-License-Identifier: GPL-3.0-or-later
// What a form leaves subscribed when it closes. The tour and the tests demand that nothing else is.
#pragma once

namespace dosmara {

struct LeftSubscribed {
  const char* form;
  int node;
  int record;
};

inline constexpr LeftSubscribed kLeftSubscribed[] = {
    {"FrmInOut", 0, 357},  // whether the second Zeth unit is there
    {"FrmSconti", 0, 74},  // the discount without a cup: the machine is polled for it ever after
};

}  // namespace dosmara
