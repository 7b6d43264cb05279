// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_bar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QToolButton>

namespace dosmara {

MenuBar::MenuBar(QWidget* parent) : QMenuBar(parent) {
  // The style's picture of "there are more" is black in every palette.
  if (auto* more = findChild<QToolButton*>("qt_menubar_ext_button")) {
    more->setIcon(QIcon());
    more->setText(QChar(0x00BB));
  }
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
    // While menus are open the focus may come back from one of them: that is not where it came from at first.
    if (now == this && old != nullptr && qobject_cast<QMenu*>(old) == nullptr) {
      before_ = old;
    }
  });
}

void MenuBar::Watch(QMenu& menu) {
  menu.installEventFilter(this);
  connect(&menu, &QMenu::aboutToHide, this, &MenuBar::HandBackWhenIdle, Qt::QueuedConnection);
}

void MenuBar::Enter() {
  TakeFocus();
  setActiveAction(actions().constFirst());
}

void MenuBar::TakeFocus() { setFocus(Qt::MenuBarFocusReason); }

void MenuBar::HandBackFocus() {
  if (window()->focusWidget() != this) {
    return;
  }
  if (before_ != nullptr) {
    before_->setFocus(Qt::MenuBarFocusReason);
  } else {
    clearFocus();
  }
  before_ = nullptr;
}

bool MenuBar::IsIdle() const {
  return activeAction() == nullptr && QApplication::activePopupWidget() == nullptr;
}

void MenuBar::HandBackWhenIdle() {
  if (IsIdle()) {
    HandBackFocus();
  }
}

// The bar's own Escape ends the choice; setActiveAction(nullptr) would leave the menus ready to open under
// the mouse.
void MenuBar::GiveUp() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
  }
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QMenuBar::keyPressEvent(&escape);
  HandBackFocus();
}

bool MenuBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && qobject_cast<QMenu*>(watched) != nullptr) {
    if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel)) {
      GiveUp();
      return true;
    }
    TakeFocus();
  }
  return QMenuBar::eventFilter(watched, event);
}

void MenuBar::keyPressEvent(QKeyEvent* event) {
  QMenuBar::keyPressEvent(event);
  HandBackWhenIdle();
}

void MenuBar::focusOutEvent(QFocusEvent* event) {
  QMenuBar::focusOutEvent(event);
  const bool for_good =
      event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
  if (for_good && activeAction() != nullptr && QApplication::activePopupWidget() == nullptr) {
    GiveUp();
  }
}

}  // namespace dosmara
