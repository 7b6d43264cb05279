// SPDX-License-Identifier: GPL-3.0-or-later
// Money: an unsigned count of the smallest currency unit. How many decimals it is shown with is the machine's
// to say, in a record of its own, so that amounts wait until that has arrived.
#pragma once

#include <functional>
#include <vector>

#include "fields/field_group.h"

namespace dosmara {

// What a form knows of the decimals of money.
class Money : public FieldGroup {
 public:
  // Takes the decimals that the machine has sent to some form already, if it has: a form makes its own as it
  // opens.
  Money();

  // Runs `redraw` whenever the decimals have changed.
  void WhenChanged(std::function<void()> redraw) { redraws_.push_back(std::move(redraw)); }

  // Whether amounts can be shown and typed.
  bool IsKnown() const { return known_; }
  int decimals() const { return Decimali; }

  std::vector<Records> ShownRecords() const override;
  void Show(int n, double value) override;

 private:
  void Take(double value);

  int Decimali;
  bool known_ = false;
  std::vector<std::function<void()>> redraws_;
};

}  // namespace dosmara
