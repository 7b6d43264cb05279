// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_menu.h"

#include <QMenu>
#include <array>
#include <map>
#include <utility>

#include "shell/caption_table.h"
#include "shell/mnemonics.h"

namespace dosmara {

namespace {

constexpr int kDeepestLevel = 3;

void ShowTick(QAction& entry, bool ticked) {
  entry.setCheckable(true);
  entry.setChecked(ticked);
}

}  // namespace

MainMenu::MainMenu(MenuBar& bar, std::function<void(const MenuRow&)> click,
                   const std::function<void(QMenu&)>& fill_windows)
    : bar_(bar), click_(std::move(click)) {
  const std::span<const MenuRow> rows = MenuTable();
  std::array<QWidget*, kDeepestLevel + 1> parents = {&bar};  // of the entries one level deeper
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const MenuRow& row = rows[i];
    const bool has_entries = i + 1 < rows.size() && rows[i + 1].level > row.level;
    const bool opens_menu = has_entries || row.act == MenuAct::kWindowList;
    QAction* entry = MakeEntry(row, *parents[row.level - 1], opens_menu);
    entries_.push_back(entry);
    captions_.push_back(row.caption);
    parents[row.level] = entry->menu();
    if (row.act == MenuAct::kWindowList) {
      QMenu* windows = entry->menu();
      QObject::connect(windows, &QMenu::aboutToShow, windows, [=] { fill_windows(*windows); });
    }
  }
  ShowCaptions();
}

QAction* MainMenu::MakeEntry(const MenuRow& row, QWidget& parent, bool opens_menu) {
  QAction* entry;
  if (opens_menu) {
    auto* menu = new QMenu(&parent);
    menu->setObjectName(row.name);
    bar_.Watch(*menu);
    entry = menu->menuAction();
  } else {
    entry = new QAction(&parent);
    QObject::connect(entry, &QAction::triggered, &parent, [this, &row] {
      bar_.HandBackFocus();
      click_(row);
    });
  }
  entry->setObjectName(row.name);
  entry->setMenuRole(QAction::NoRole);
  parent.addAction(entry);
  return entry;
}

void MainMenu::InitMessaggi() {
  const std::span<const MenuRow> rows = MenuTable();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].line != 0) {
      captions_[i] = CaptionOr(rows[i].line, rows[i].caption);
    }
  }
  ShowCaptions();
}

// Each menu's entries get their mnemonics together.
void MainMenu::ShowCaptions() {
  std::map<QObject*, std::vector<std::size_t>> menus;  // the rows of each
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    menus[entries_[i]->associatedObjects().constFirst()].push_back(i);
  }
  for (const auto& [menu, rows] : menus) {
    QStringList captions;
    for (const std::size_t i : rows) {
      captions.append(captions_[i]);
    }
    const QStringList texts = WithMnemonics(captions);
    for (std::size_t n = 0; n < rows.size(); ++n) {
      entries_[rows[n]]->setText(texts[static_cast<qsizetype>(n)]);
    }
  }
}

void MainMenu::ApplyHidingRules(int model) {
  const std::span<const MenuRow> rows = MenuTable();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].hidden != nullptr) {
      entries_[i]->setVisible(!rows[i].hidden(model));
    }
  }
}

void MainMenu::ShowTicks(const Settings& settings) {
  const std::span<const MenuRow> rows = MenuTable();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].act == MenuAct::kLanguage) {
      const LanguageEntry& language = settings.smnuLingue[rows[i].index];
      captions_[i] = language.caption;
      entries_[i]->setVisible(language.shown);
      ShowTick(*entries_[i], language.ticked);
    } else if (rows[i].act == MenuAct::kPort) {
      ShowTick(*entries_[i], settings.mnuCox[rows[i].index]);
    }
  }
  ShowCaptions();
}

void MainMenu::Enable(const std::function<bool(const MenuRow&)>& enabled) {
  const std::span<const MenuRow> rows = MenuTable();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    entries_[i]->setEnabled(enabled(rows[i]));
  }
}

}  // namespace dosmara
