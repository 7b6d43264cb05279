// SPDX-License-Identifier: GPL-3.0-or-later
// The tool with a machine on its line and one form open.
#pragma once

#include <QLabel>

#include "system/system_test.h"

namespace dosmara {

// Tests of any form but the doses.
class OneForm : public SystemTest {
 protected:
  void ConnectAndOpen(const QString& menu_entry, const QString& form);

  // A control of the form by its name.
  template <class T>
  T& On(const QString& name) {
    T* control = form_->findChild<T*>(name);
    if (control == nullptr) {
      throw std::runtime_error("no control " + name.toStdString());
    }
    return *control;
  }
  QString Text(const QString& label) { return On<QLabel>(label).text(); }
  QLineEdit& Box(int n) { return On<QLineEdit>(QString("Text1(%1)").arg(n)); }

  void AwaitText(const QString& label, const QString& text);
  void AwaitHeld(int node, int record, double value);
  // Waits until each value that the open forms want has arrived at least once.
  void AwaitAllArrived();
  // Closes the form; no record of any node has a subscriber then.
  void CloseLeavesNothingSubscribed();

  QWidget* form_ = nullptr;
};

}  // namespace dosmara
