// SPDX-License-Identifier: GPL-3.0-or-later
// The program's one top-level window: menus, status bar, and the forms as its children.
#pragma once

#include <QMainWindow>
#include <span>

#include "shell/child_windows.h"
#include "shell/frm_ser.h"
#include "shell/main_menu.h"
#include "shell/mdi_background.h"
#include "shell/settings.h"
#include "shell/status_bar.h"

namespace dosmara {

class MDIForm1 : public QMainWindow {
  Q_OBJECT

 public:
  // `settings` tells where the program lies. `forms` are the forms that the menus can open; it must outlive
  // the window. An entry whose form is not among them stays disabled.
  MDIForm1(const Settings& settings, std::span<const FormEntry> forms);

  // The whole start, up to the running link. Called once, outside of the event loop. Throws ProgramEnds
  // after the operator has been told why, or has closed the window meanwhile.
  void Load();

  // Shows or hides the menu entries that only some models have, by ModelCode.
  void ApplyHidingRules();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void Click(const MenuRow& row);
  void EnableMenu(bool running);
  void ChangeLanguage(int index);
  void ChangePort(int port);
  void StopLink();
  void Exit();

  Settings settings_;
  MdiBackground* area_;
  ChildWindows windows_;
  StatusBar* status_bar_;
  FrmSer* frm_ser_;
  MenuBar* bar_;
  MainMenu menu_;
  bool ended_ = false;  // the link has been stopped and the program is on its way out
};

}  // namespace dosmara
