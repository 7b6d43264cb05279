// SPDX-License-Identifier: GPL-3.0-or-later
// What all kinds of fields of a form have in common: rows, bits, choices, numbers, groups, and the decimals
// of money, which others wait for.
#pragma once

#include <vector>

#include "fields/records.h"

namespace dosmara {

// A part of a form that shows records of the machine. The form watches it with DataForm::Watch.
class FieldGroup {
 public:
  FieldGroup() = default;
  virtual ~FieldGroup() = default;
  FieldGroup(const FieldGroup&) = delete;
  FieldGroup& operator=(const FieldGroup&) = delete;

  // Sets the captions from the language.
  virtual void SetCaptions() {}
  // The records that the group shows, in runs.
  virtual std::vector<Records> ShownRecords() const = 0;
  // Shows an arrived value of the n-th of these records, counted through all runs.
  virtual void Show(int n, double value) = 0;
  // Opens all controls for changes or closes them, their captions with them.
  virtual void SetEnabled(bool /*enabled*/) {}
  // The form closes: a box that is left by that confirms nothing.
  virtual void EndEntry() {}
};

}  // namespace dosmara
