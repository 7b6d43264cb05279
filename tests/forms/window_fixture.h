// SPDX-License-Identifier: GPL-3.0-or-later
// Forms in a main window and the operator's hand on them: what the fixtures of the forms have in common,
// whatever stands in the place of the machine.
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QTimer>
#include <compare>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/bar.h"
#include "controls/echo_mark.h"
#include "controls/two_position_switch.h"
#include "shell/form.h"
#include "support/print_qt.h"

namespace dosmara {

// A value on its way to the machine.
struct Write {
  int node;
  int record;
  int value;
  bool operator==(const Write&) const = default;
};
void PrintTo(const Write& write, std::ostream* out);

// A form of the list, where it is the parameter of a test.
inline void PrintTo(const FormEntry& form, std::ostream* out) { *out << form.name; }

// A record that somebody has subscribed.
struct Subscription {
  int node;
  int record;
  int subscribers;
  auto operator<=>(const Subscription&) const = default;
};
void PrintTo(const Subscription& subscription, std::ostream* out);

// "lblVal(3)", the objectName of an element of a control array.
std::string Element(const char* name, int n);

// A model with everything, and captions that tell their line: "#58". The fixtures that derive from it give
// the parameter table its records.
class WindowFixture : public testing::Test {
 protected:
  WindowFixture();
  ~WindowFixture() override;

  // Opens a form as the menu does, by its name. The controls below are those of the form opened last.
  Form& Open(const std::string& name);
  // Opens a form that is not in the list.
  Form& Open(Form* form);
  // Closes the open form, with all that waits to be deleted.
  void Close();
  // Turns to another open form: the controls below are its controls.
  void TurnTo(Form& form);
  Form& form() { return *form_; }

  // The records that have subscribers, by node and record.
  std::vector<Subscription> Subscribed() const;

  // A control of the open form by its objectName.
  template <class T = QWidget>
  T& Find(const std::string& name) {
    T* control = form_->findChild<T*>(QString::fromStdString(name));
    if (control == nullptr) {
      throw std::runtime_error("no control " + name);
    }
    return *control;
  }
  Bar& BarOf(const std::string& name) { return Find<Bar>(name); }
  std::string LabelText(const std::string& name) { return Find<QLabel>(name).text().toStdString(); }
  std::string BoxText(const std::string& name) { return Find<QLineEdit>(name).text().toStdString(); }
  int Position(const std::string& name) { return Find<TwoPositionSwitch>(name).Position(); }
  // The nearest mark on the right of a control.
  EchoMark::State MarkBehind(const std::string& name);
  // How many marks there are, apart from those of hidden controls.
  std::ptrdiff_t ShownMarks();
  bool Enabled(const std::string& name) { return Find(name).isEnabled(); }
  // Whether the control shows once its form does.
  bool Shown(const std::string& name) { return Find(name).isVisibleTo(form_); }

  // The operator's hand.
  void Focus(const std::string& name);
  void Type(const std::string& box, const std::string& text);
  void PressEnter();
  // Types into a box and confirms.
  void Enter(const std::string& box, const std::string& text);
  void Click(const std::string& name);
  // Types into a box, confirms and leaves for the control `leave`.
  void EnterAndLeave(const std::string& box, const std::string& text, const std::string& leave);
  // The names of what has the focus after each of `count` presses of Tab.
  std::vector<std::string> TabThrough(int count);

  // The time of a running timer is up.
  void Fire(const std::string& timer);
  bool Running(const std::string& timer) { return Find<QTimer>(timer).isActive(); }

 private:
  std::unique_ptr<QMainWindow> window_;
  QMdiArea* area_;
  Form* form_ = nullptr;
};

}  // namespace dosmara
