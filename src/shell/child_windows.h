// SPDX-License-Identifier: GPL-3.0-or-later
// The child windows of the main window, each with a form in it: opened by name, brought forward, listed.
#pragma once

#include <QMdiArea>
#include <QMenu>
#include <functional>
#include <span>

#include "shell/form.h"

namespace dosmara {

class ChildWindows : public QObject {
  Q_OBJECT

 public:
  // The windows lie in `area`, and `forms` are the forms that can be opened; both must outlive this. From now
  // on a form sets its captions anew whenever its window becomes the active one.
  ChildWindows(QMdiArea& area, std::span<const FormEntry> forms);

  // Whether there is a form called `name`.
  bool Has(const char* name) const;
  // Opens the form called `name`; brings it forward if it is open already.
  void Show(const char* name);
  // Brings every open form forward, in the order of their opening: each sets its captions anew.
  void ShowAll();
  // Fills `menu` with the windows that are open, the active one ticked. A click runs `before` and brings its
  // window forward.
  void FillMenu(QMenu& menu, const std::function<void()>& before);

 private:
  void Open(const FormEntry& entry);

  QMdiArea& area_;
  std::span<const FormEntry> forms_;
};

}  // namespace dosmara
