// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/first_focus.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabBar>
#include <QTabWidget>

namespace dosmara {

namespace {

bool IsInFront(const QWidget& form) {
  const auto* frame = qobject_cast<const QMdiSubWindow*>(form.parentWidget());
  return frame != nullptr && frame->mdiArea() != nullptr && frame->mdiArea()->currentSubWindow() == frame &&
         form.isVisible();
}

// Tabs show another page and change nothing. While all rows are grey the window system finds nothing else to
// give the focus to.
bool IsTabs(const QWidget* widget) {
  return qobject_cast<const QTabBar*>(widget) != nullptr ||
         qobject_cast<const QTabWidget*>(widget) != nullptr;
}

bool CanBeChanged(const QWidget& control) {
  return (control.focusPolicy() & Qt::TabFocus) != 0 && !IsTabs(&control) && control.isVisible() &&
         control.isEnabled();
}

}  // namespace

void FirstFocus::Look(const QWidget& body) {
  const QWidget* const focus = QApplication::focusWidget();
  if (focus != nullptr && body.isAncestorOf(focus) && !IsTabs(focus)) {
    due_ = false;
  }
}

void FirstFocus::Give(const QWidget& form, QWidget& body) {
  const QWidget* const focus = QApplication::focusWidget();
  const bool on_tabs = focus != nullptr && body.isAncestorOf(focus) && IsTabs(focus);
  const bool free = focus == nullptr || focus == &form || on_tabs || focus->isAncestorOf(&form);
  if (!due_ || !free || !IsInFront(form)) {
    return;
  }
  for (QWidget* next = body.nextInFocusChain(); next != &body; next = next->nextInFocusChain()) {
    if (body.isAncestorOf(next) && CanBeChanged(*next)) {
      due_ = false;
      // Buttons paint the focus only where the window says that it is moved by keys.
      body.window()->setAttribute(Qt::WA_KeyboardFocusChange);
      next->setFocus(Qt::OtherFocusReason);
      return;
    }
  }
}

}  // namespace dosmara
