// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of the main window, built from MenuTable.
#pragma once

#include <QAction>
#include <functional>
#include <vector>

#include "shell/menu_bar.h"
#include "shell/menu_table.h"
#include "shell/settings.h"

namespace dosmara {

class MainMenu {
 public:
  // Fills `bar`, which has to outlive it. `click` hears of every click on an entry that does something;
  // `fill_windows` fills the list of open windows each time before it shows.
  MainMenu(MenuBar& bar, std::function<void(const MenuRow&)> click,
           const std::function<void(QMenu&)>& fill_windows);

  // Sets the captions from the language. An empty line leaves an entry its own caption, so that a poor
  // language file cannot hide the way to another.
  void InitMessaggi();
  // Shows or hides the entries that only some models have.
  void ApplyHidingRules(int model);
  // Shows the languages' names and all ticks as the settings have them.
  void ShowTicks(const Settings& settings);
  // Enables each entry for which `enabled` is true.
  void Enable(const std::function<bool(const MenuRow&)>& enabled);

 private:
  QAction* MakeEntry(const MenuRow& row, QWidget& parent, bool opens_menu);
  void ShowCaptions();

  MenuBar& bar_;
  std::function<void(const MenuRow&)> click_;
  std::vector<QAction*> entries_;  // one for each row of MenuTable
  std::vector<QString> captions_;  // of the entries, without their mnemonics
};

}  // namespace dosmara
