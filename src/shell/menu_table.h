// SPDX-License-Identifier: GPL-3.0-or-later
// The menu tree of the main window.
#pragma once

#include <span>

namespace dosmara {

// What a click on an entry does.
enum class MenuAct { kNone, kShowForm, kUnloadAndShowForm, kExit, kLanguage, kPort, kWindowList };

// One entry. An entry that does nothing opens the submenu of the deeper entries behind it.
struct MenuRow {
  const char* name;     // objectName of the entry
  int level;            // 1 in the menu bar
  const char* caption;  // until the language gives another
  int line = 0;         // line of the language file; 0: the caption stays
  MenuAct act = MenuAct::kNone;
  const char* form = nullptr;           // the form that kShowForm opens
  int index = 0;                        // language entry or port
  bool (*hidden)(int model) = nullptr;  // for which ModelCode the entry is hidden; null: never
};

// All entries, each submenu behind its entry. Read by the building of the menus, by InitMessaggi, by the
// hiding rules and by the clicks.
std::span<const MenuRow> MenuTable();

}  // namespace dosmara
