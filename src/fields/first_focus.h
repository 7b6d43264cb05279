// SPDX-License-Identifier: GPL-3.0-or-later
// Where the focus of a form begins.
#pragma once

#include <QWidget>

namespace dosmara {

// Gives the focus to the first control of a form that can be changed, once in the form's life.
class FirstFocus {
 public:
  // Whether the operator has not been in the form yet, and nothing has been given the focus.
  bool IsDue() const { return due_; }

  // Gives the focus to the first control of `body` that changes something, if `form` is in front and nobody
  // has the focus but the form itself or what lies around it. An operator who has put it anywhere else keeps
  // it there.
  void Give(const QWidget& form, QWidget& body);
  // Sees whether the operator has put the focus into `body` meanwhile: then it is due no more.
  void Look(const QWidget& body);

 private:
  bool due_ = true;
};

}  // namespace dosmara
