// SPDX-License-Identifier: GPL-3.0-or-later
// Machine codes: what the machine asks of whoever works at its keypad.
#pragma once

#include <QLineEdit>
#include <array>

#include "controls/field_label.h"
#include "shell/data_form.h"

namespace dosmara {

// The three codes of the main board, open from the start. The tool compares nothing with them and grants
// nothing by them.
class FrmPassword : public DataForm {
 public:
  FrmPassword();

  void Load() override;
  void InitMessaggi() override;
  void Unload() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static constexpr std::size_t kCodeCount = 3;

  void InitDati();
  void Show(std::size_t n, double value);
  void Confirm(std::size_t n);

  std::array<FieldLabel*, kCodeCount> captions_;  // Label1
  std::array<QLineEdit*, kCodeCount> boxes_;      // Text1
};

}  // namespace dosmara
