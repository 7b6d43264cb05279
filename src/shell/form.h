// SPDX-License-Identifier: GPL-3.0-or-later
// A child window of the main window, and what each of them does at its stages: load, activation, unload.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>
#include <QWidget>
#include <cstdint>

#include "link/notification.h"

class QMdiSubWindow;

namespace dosmara {

// A child form. It is in LoadedForms from its construction until it is closed, so it is offered every
// arrival; a form without records ignores them. The main window constructs it, puts it into its frame,
// calls Load and shows it.
class Form : public QWidget, public LoadedForm {
 public:
  // `name` is the form's class, "FrmDosi", and becomes its objectName.
  explicit Form(const QString& name);
  ~Form() override;

  // Prepares the controls, subscribes the records, sets the captions and places the form. Called once, when
  // the form already lies in its frame in the main window.
  virtual void Load() {}
  // Sets all captions from the language. Part of Load, and called again at each activation.
  virtual void InitMessaggi() {}
  // Unsubscribes the records. Called once, when the form closes.
  virtual void Unload() {}

  // Gives the focus to a control of the form, if it has one to give it to. Called when the form is in front.
  virtual void TakeFocus() {}

  void SLabelChange(std::int32_t /*index*/, double /*value*/) override {}

  // The size that FitFrame last gave the frame; invalid before.
  QSize FittedSize() const { return fitted_size_; }
  void SetFittedSize(QSize size) { fitted_size_ = size; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  bool LeaveLoadedForms();

  QSize fitted_size_;
};

// One child form that the menus can open.
struct FormEntry {
  const char* name;  // class and objectName, "FrmDosi"
  Form* (*create)();
};

// Makes a form of class T, for FormEntry::create.
template <class T>
Form* CreateForm() {
  return new T;
}

// Pixels in a length in twips, at a scale of 100 %.
constexpr double FromTwips(double twips) { return twips / 15; }

// Where a form of size `form` lies in a main window of size `main`: a little above and left of its centre.
QPoint FormCentrePosition(QSize main, QSize form);

// Gives the form's frame the size of its contents, as far as the main window has room; where it has not, with
// the scroll bar that then shows. Returns the frame; null for a form that lies in none.
QMdiSubWindow* FitFrame(Form& form);

// Fits the frame again after the contents have changed, in the place where it is, and keeps it in the area of
// forms. Leaves a frame alone that the operator has given a size of its own, and one that has never been
// fitted.
void RefitFrame(Form& form);

// Fits the form's frame and moves it to FormCentrePosition, but never over an edge of the area of forms: on a
// small screen the menus and the status bar take more than the formula knows.
void FormCentre(Form& form);

}  // namespace dosmara
