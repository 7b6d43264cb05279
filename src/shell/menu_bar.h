// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar. While the keyboard moves in it or in its menus the bar itself has the focus: the keys of an
// entry without a menu would else reach the form, where Left and Right change values.
#pragma once

#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace dosmara {

class MenuBar : public QMenuBar {
  Q_OBJECT

 public:
  explicit MenuBar(QWidget* parent = nullptr);

  // Makes `menu` one of the bar's: its keys give the bar the focus, and Escape in it gives up all menus.
  void Watch(QMenu& menu);

  // Takes the focus and opens the first menu.
  void Enter();
  // Hands the focus, if the bar has it, back to where it came from. Called before an entry does its work, so
  // that a form that opens or comes forward keeps the focus that it takes.
  void HandBackFocus();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool IsIdle() const;
  void HandBackWhenIdle();
  void TakeFocus();
  void GiveUp();

  QPointer<QWidget> before_;  // had the focus before the bar took it
};

}  // namespace dosmara
