// SPDX-License-Identifier: GPL-3.0-or-later
// What has become of the operator's last wish on a switch.
#pragma once

#include <QGroupBox>
#include <QTimer>

#include "controls/echo_mark.h"
#include "controls/field_label.h"
#include "controls/led_switch.h"

namespace dosmara {

// Names the switch that was pressed last and says what was wished of it, on or off: a second press on a
// sector of a unit wishes it off even while its lamp is dark. The mark behind it is on its way until the
// switch shows what was wished, and not taken when it has not in time. Empty before the first wish.
class WishMark : public QWidget {
 public:
  explicit WishMark(QWidget* parent);

  // A wish has been sent; `group` is what the switch lies in.
  void Sent(const LedSwitch& target, const QGroupBox& group, bool on);
  // Looks whether the switch shows what was wished. Called when something may have changed it.
  void Look();
  // Names the switch and the wish in the language as it is now.
  void SetCaptions();

 private:
  const LedSwitch* target_ = nullptr;
  const QGroupBox* group_ = nullptr;
  bool on_ = false;
  FieldLabel* name_;
  EchoMark* mark_;
  QTimer patience_;
};

}  // namespace dosmara
