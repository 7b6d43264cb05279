// SPDX-License-Identifier: GPL-3.0-or-later
// What a technician has in front of him: the tool, a machine on its line, the form with the doses.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <stdexcept>

#include "support/box_recorder.h"
#include "support/print_qt.h"
#include "support/tool_rig.h"

namespace dosmara {

// A test that waits in vain ends by an exception, which GoogleTest reports.
class SystemTest : public testing::Test {
 protected:
  // Empties what lives as long as the program, so that no test inherits from another one.
  SystemTest();

  // Long enough for a sanitized build on a busy computer.
  static constexpr int kDeadlineMs = 30000;

  // Starts a machine on port 1 and connects the tool to it.
  void Connect(const QStringList& machine_options = {});
  // Starts the tool and tells whether it got as far as the running link.
  bool ToolStarts();
  // Connect, and the doses open and unlocked.
  void ConnectWithDoses();
  // Waits until each subscribed value of a node has arrived. A form unlocks before its last values are there,
  // and each one missing would hold a silent line for a second in every pass.
  void AwaitRead(int node) const;

  // Delivers events until `condition` holds. `what` is what the test then waits for in vain.
  void Await(const std::function<bool()>& condition, const char* what, int deadline_ms = kDeadlineMs) const;

  MDIForm1& window() { return rig_.window(); }
  // The machine on port 1.
  MachineProcess& machine() { return *machine_; }
  // One word of the machine's status, the one behind `name`.
  QString Status(const QString& name);
  // Lets the link work for another `count` requests.
  void AwaitRequests(int count);

  void Click(const QString& menu_entry);
  bool Ticked(const QString& menu_entry);
  // Types over what a box holds, and confirms.
  static void Enter(QLineEdit& box, const QString& text);
  // Number of the lamp image on status bar panel 2, 3 or 4.
  int Lamp(int panel);

  // FrmDosi: a control by its name, what a row shows, the choice of a selection, an entry with Enter.
  template <class T>
  T& Control(const QString& name) {
    T* control = doses_->findChild<T*>(name);
    if (control == nullptr) {
      throw std::runtime_error("no control " + name.toStdString());
    }
    return *control;
  }
  QString Shown(int row);
  void Select(int selection);
  void Type(int row, const QString& text);
  // Whether the form takes changes.
  bool Unlocked();

  ToolRig rig_;
  BoxRecorder screen_;
  MachineProcess* machine_ = nullptr;
  QWidget* doses_ = nullptr;
};

}  // namespace dosmara
