// SPDX-License-Identifier: GPL-3.0-or-later
// Money: an unsigned count of the smallest currency unit. How many decimals it is shown with is the machine's
// to say, in a record of its own, so that amounts wait until that has arrived.
#pragma once

#include <QString>

namespace dosmara {

// What a form knows of the decimals of money.
class Money {
 public:
  // `first` is what Decimali starts at: a number that the machine never sends makes every first arrival a
  // change.
  explicit Money(int first = 255) : Decimali(first) {}

  // Takes the decimals that the machine has sent to some form already, if it has. Called when a form opens.
  void TakeKnown();
  // Takes an arrival of kMoneyDecimals. Returns whether the decimals have changed.
  bool Take(double value);

  // Whether amounts can be shown and typed.
  bool known() const { return known_; }
  int decimals() const { return Decimali; }

 private:
  int Decimali;
  bool known_ = false;
};

}  // namespace dosmara
