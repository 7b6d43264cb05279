// SPDX-License-Identifier: GPL-3.0-or-later
// The reset of the machine's counters.
#pragma once

#include <QAction>
#include <QTimer>

#include "controls/led_bar.h"
#include "fields/data_form.h"

namespace dosmara {

// Sends the command to clear, and passes the time that the machine may need for it with a bar. It reads
// nothing.
class FrmCancella : public DataForm {
 public:
  FrmCancella();

  void InitMessaggi() override;

 private:
  static constexpr int kButtons = 2;

  void Clear(int button);
  void Step();
  void SetButtonsEnabled(bool enabled);

  QAction* close_;
  QPushButton* buttons_[kButtons];
  QPushButton* pressed_ = nullptr;  // last
  FieldLabel* info_;
  LedBar* bar_;
  QTimer* timer_;
};

}  // namespace dosmara
