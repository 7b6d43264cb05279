// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of the tour and what they share: the main window, the machine, the hands of a technician.
#pragma once

#include <QString>
#include <functional>
#include <map>
#include <utility>

#include "shell/main_window.h"
#include "tour/machine_process.h"
#include "tour/wait.h"

namespace dosmara {

// How many subscribers the records have that have any, by node and record.
using Subscribers = std::map<std::pair<int, int>, int>;
Subscribers CountSubscribers();

// Drives the tool's own windows as a technician would and prints what came of each step.
class Tour {
 public:
  // `pictures` is the folder for the PNG files.
  Tour(MDIForm1& window, MachineProcess& machine, const QString& pictures);

  // Runs one step and prints its name with "ok", or with the reason why it failed. A step that throws or
  // that leaves a message box behind has failed.
  void Step(const QString& name, const std::function<void()>& act);

  // Number of steps that have failed so far.
  int failures() const { return failures_; }

  // Ends the running step as failed, with `reason`, unless `held` is true.
  void Expect(bool held, const QString& reason);
  // Expects `condition` within the patience of a technician, `deadline_ms`.
  void Await(const std::function<bool()>& condition, const QString& reason, int deadline_ms = kPatienceMs);

  MDIForm1& window() { return window_; }
  MachineProcess& machine() { return machine_; }

  // A control of a form by its established name; ends the step when there is none.
  template <class T>
  T& Control(QWidget& form, const QString& name) {
    T* control = form.findChild<T*>(name);
    Expect(control != nullptr, "no control " + name);
    return *control;
  }

  // Clicks the menu entry of a form and returns the form when it is there.
  QWidget& Open(const QString& form);
  void Close(QWidget& form);
  // The subscribers of all records as they were before `form` opened.
  const Subscribers& Before(const QWidget& form) { return before_[form.objectName()]; }
  // Types over what a box holds, and confirms with Enter.
  void Type(QWidget& form, const QString& box, const QString& text);
  // Saves the main window as <name>.png in the folder for the pictures.
  void Picture(const QString& name);

 private:
  MDIForm1& window_;
  MachineProcess& machine_;
  QString pictures_;
  std::map<QString, Subscribers> before_;  // by form
  int failures_ = 0;
};

}  // namespace dosmara
