// SPDX-License-Identifier: GPL-3.0-or-later
// The language menu by the names of the languages: which entry has which depends on how many there are.
#pragma once

#include <QAction>
#include <QWidget>
#include <stdexcept>

namespace dosmara {

// The entry that chooses `language`.
inline QAction& LanguageAction(const QWidget& window, const QString& language) {
  for (QAction* action : window.findChildren<QAction*>()) {
    if (action->objectName().startsWith("smnuLingue(") && action->iconText() == language) {
      return *action;
    }
  }
  throw std::runtime_error("no language is called " + language.toStdString());
}

}  // namespace dosmara
