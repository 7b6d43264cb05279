// SPDX-License-Identifier: GPL-3.0-or-later
// What tells one form from another before its controls.
#pragma once

#include <span>

#include "fields/records.h"

namespace dosmara {

// In place of the number of an arrival. The form is open from the start; or it opens as soon as all records
// that count are fresh, whichever form's arrival shows it: another form may have read them before.
inline constexpr int kNeverLocked = 0;
inline constexpr int kAllFresh = -1;

// Read by DataForm; each form has one.
struct FormSetup {
  const char* name = nullptr;     // class and objectName
  int title = 0;                  // line of the language file; 0: the form sets it itself
  int opens_with = kNeverLocked;  // the number of the counted arrival that opens the form
  // AfterArrival runs behind arrivals of other forms' records too, once after each request of any form: until
  // the next request they cannot change what is fresh. So it does with kAllFresh.
  bool hears_all = false;
  // What the close treats unlike the open: released without ever having been subscribed, which does nothing
  // unless another form has; and left subscribed. The tables of the forms say why.
  std::span<const Records> also_released = {};
  std::span<const Records> kept = {};
};

}  // namespace dosmara
