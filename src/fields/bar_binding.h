// SPDX-License-Identifier: GPL-3.0-or-later
// A record's value on a bar.
#pragma once

#include "controls/bar.h"

namespace dosmara {

// Translates between a bar and the value that it stands for, which may lie an offset away: bars hold signed
// numbers of 16 bits, records unsigned ones. Values here are those of the record.
class BarBinding {
 public:
  BarBinding(Bar& bar, int offset) : bar_(&bar), offset_(offset) {}

  // The value of a position of the bar.
  int ValueAt(int position) const { return position + offset_; }
  // The value that the bar stands at.
  int Value() const { return ValueAt(bar_->Value()); }
  // Whether the bar can hold a value.
  bool Holds(int value) const {
    return value - offset_ >= bar_->minimum() && value - offset_ <= bar_->maximum();
  }
  // The nearest value that the bar can hold.
  int Nearest(double value) const { return bar_->Clamped(value - offset_) + offset_; }
  // Puts the bar at the value, or as near to it as it can.
  void Show(double value) { bar_->SetValue(bar_->Clamped(value - offset_)); }

 private:
  Bar* bar_;
  int offset_;
};

}  // namespace dosmara
