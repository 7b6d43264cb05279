// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_menu.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QMenu>
#include <algorithm>
#include <set>
#include <stdexcept>

#include "shell/caption_table.h"
#include "shell/language.h"

namespace dosmara {
namespace {

// The established entries; the tree may hold others between them.
struct Entry {
  const char* name;
  int level;
  const char* caption;
  int line;          // of the language file; 0: none
  const char* form;  // that a click opens
};

constexpr Entry kTree[] = {
    {"mnuFile", 1, "File", 1, ""},
    {"smnuExit", 2, "Exit", 2, ""},
    {"mnuConf", 1, "Configurazione", 0, "FrmConf"},
    {"mnuTempiDosi", 1, "Tempi/Dosi", 3, ""},
    {"smnuTempi", 2, "Tempi", 4, "FrmTempi"},
    {"smnuDosi", 2, "Dosi", 5, "FrmDosi"},
    {"mnuVending", 1, "Vending", 6, ""},
    {"smnuPagamento", 2, "Sist. di pagamento", 7, "FrmPagamento"},
    {"smnuPrezzi", 2, "Prezzi", 8, ""},
    {"ssmnuImposta", 3, "Impostazione prezzi", 9, "FrmPrezzi"},
    {"ssmnuSconti", 3, "Impostazione sconti", 10, "FrmSconti"},
    {"ssmnuPrsel", 3, "Associazione prezzi selezioni", 11, "FrmAssSel"},
    {"ssmnuPrsett", 3, "Associazione prezzi settori zeth", 12, "FrmAssSet"},
    {"ssmnuPrsett2", 3, "Associazione prezzi settori zeth 2", 13, "FrmAssSet2"},
    {"smnuDati", 2, "Dati di vendita", 14, ""},
    {"ssmnuTotali", 3, "Totali", 15, "FrmTotali"},
    {"ssmnuBattute", 3, "Battute", 16, "FrmBattute"},
    {"ssmnuGratis", 3, "Gratis", 17, "FrmGratis"},
    {"ssmnuBricco", 3, "Bricco", 18, "FrmBricco"},
    {"ssmnuProva", 3, "Prova", 19, "FrmProva"},
    {"ssmnuMonete", 3, "Monete", 20, "FrmMonete"},
    {"ssmnuMDBaudit", 3, "MDB Audit", 44, "FrmMDBaudit"},
    {"ssmnuCancella", 3, "Cancella i dati", 21, "FrmCancella"},
    {"mnuOpzioni", 1, "Opzioni", 22, ""},
    {"smnuOpzioni", 2, "Opzioni", 23, "FrmOpzioni"},
    {"smnuAzione", 2, "Azione preventiva", 43, "FrmAzione"},
    {"smnuPassword", 2, "Password", 25, "FrmPassword"},
    {"mnuTemperatura", 1, "Temperatura", 26, ""},
    {"smnuSet", 2, "Set", 27, "FrmTemperatura"},
    {"smnuGrafico", 2, "Grafico", 28, "FrmGrafico"},
    {"mnuOrologio", 1, "Orologio", 29, "FrmOrologio"},
    {"mnuTest", 1, "Test", 30, ""},
    {"smnuInOut", 2, "In/Out", 31, ""},
    {"ssmnuTest", 3, "Test", 32, "FrmInOut"},
    {"ssmnuZeth", 3, "Zeth", 33, "FrmTestZeth"},
    {"ssmnuZeth2", 3, "Zeth 2", 45, "FrmTestZeth2"},
    {"ssmnuSchema", 3, "Schema idraulico", 34, "FrmSchema"},
    {"smnuAllarmi", 2, "Allarmi", 35, "FrmAllarmi"},
    {"mnuLingue", 1, "Lingue", 36, ""},
    {"smnuLingue(0)", 2, "", 0, ""},
    {"smnuLingue(1)", 2, "", 0, ""},
    {"smnuLingue(2)", 2, "", 0, ""},
    {"smnuLingue(3)", 2, "", 0, ""},
    {"smnuLingue(4)", 2, "", 0, ""},
    {"smnuLingue(5)", 2, "", 0, ""},
    {"smnuLingue(6)", 2, "", 0, ""},
    {"smnuLingue(7)", 2, "", 0, ""},
    {"smnuLingue(8)", 2, "", 0, ""},
    {"smnuLingue(9)", 2, "", 0, ""},
    {"mnuWL", 1, "Windows", 37, ""},
    {"mnuCom", 1, "Com", 38, ""},
    {"mnuCox(1)", 2, "Com1", 39, ""},
    {"mnuCox(2)", 2, "Com2", 40, ""},
    {"mnuCox(3)", 2, "Com3", 41, ""},
    {"mnuCox(4)", 2, "Com4", 42, ""},
    {"mnuVer", 1, "?", 0, "FrmInfo"},
};

class MainMenuTest : public testing::Test {
 protected:
  void SetUp() override { std::fill(std::begin(CaptionTable), std::end(CaptionTable), QString()); }

  QAction* Action(const char* name) {
    auto* action = bar_.findChild<QAction*>(name);
    if (action == nullptr) {
      throw std::runtime_error("no entry " + std::string(name));
    }
    return action;
  }

  // The entries below `widget` in the order of the screen.
  void Collect(const QWidget& widget, int level, std::vector<std::pair<QAction*, int>>& entries) {
    for (QAction* action : widget.actions()) {
      entries.emplace_back(action, level);
      if (action->menu() != nullptr) {
        Collect(*action->menu(), level + 1, entries);
      }
    }
  }

  // What an entry shows, without its mnemonic.
  static QString Shown(const QAction& entry) { return entry.iconText(); }

  MenuBar bar_;
  std::vector<MenuRow> clicks_;
  MainMenu menu_{bar_, [this](const MenuRow& row) { clicks_.push_back(row); },
                 [](QMenu& windows) { windows.addAction("filled"); }};
};

TEST(MenuTable, HoldsTheEstablishedEntriesInTheirOrder) {
  std::vector<MenuRow> rows(MenuTable().begin(), MenuTable().end());
  std::erase_if(rows, [](const MenuRow& row) {
    return std::ranges::none_of(kTree, [&](const Entry& e) { return std::string(e.name) == row.name; });
  });
  ASSERT_EQ(rows.size(), std::size(kTree));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_STREQ(rows[i].name, kTree[i].name);
    EXPECT_EQ(rows[i].level, kTree[i].level) << kTree[i].name;
    EXPECT_STREQ(rows[i].caption, kTree[i].caption) << kTree[i].name;
    EXPECT_EQ(rows[i].line, kTree[i].line) << kTree[i].name;
    EXPECT_STREQ(rows[i].form == nullptr ? "" : rows[i].form, kTree[i].form) << kTree[i].name;
  }
}

TEST_F(MainMenuTest, HasTheWholeTableAsATree) {
  std::vector<std::pair<QAction*, int>> entries;
  Collect(bar_, 1, entries);
  const std::span<const MenuRow> rows = MenuTable();
  ASSERT_EQ(entries.size(), rows.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    EXPECT_EQ(entries[i].first->objectName(), rows[i].name);
    EXPECT_EQ(entries[i].second, rows[i].level) << rows[i].name;
    EXPECT_EQ(Shown(*entries[i].first), rows[i].caption) << rows[i].name;
  }
}

TEST_F(MainMenuTest, TakesEachCaptionFromItsLine) {
  for (int line = 1; line <= 650; ++line) {
    CaptionTable[line] = QString("line %1").arg(line);
  }
  menu_.InitMessaggi();
  for (const MenuRow& row : MenuTable()) {
    const QString expected = row.line == 0 ? QString(row.caption) : QString("line %1").arg(row.line);
    EXPECT_EQ(Shown(*Action(row.name)), expected) << row.name;
  }
}

TEST_F(MainMenuTest, KeepsItsOwnCaptionWhereTheLanguageHasAnEmptyLine) {
  CaptionTable[1] = "Archivio";
  menu_.InitMessaggi();
  EXPECT_EQ(Shown(*Action("mnuFile")), "Archivio");
  EXPECT_EQ(Shown(*Action("mnuLingue")), "Lingue");
}

TEST_F(MainMenuTest, GivesEachEntryAMnemonicOfItsOwnInEveryLanguage) {
  const QStringList languages = QDir(DOSMARA_PROGRAM_DATA).entryList({"*.lng"});
  ASSERT_TRUE(languages.contains("Italiano.lng") && languages.contains("English.lng"));
  for (const QString& language : languages) {
    SCOPED_TRACE(language.toStdString());
    LoadLanguage(DOSMARA_PROGRAM_DATA, language);
    menu_.InitMessaggi();
    std::set<std::pair<QObject*, QKeySequence>> taken;
    for (const MenuRow& row : MenuTable()) {
      const QAction& action = *Action(row.name);
      const QKeySequence mnemonic = QKeySequence::mnemonic(action.text());
      EXPECT_EQ(mnemonic.isEmpty(), Shown(action).isEmpty()) << row.name;
      if (!mnemonic.isEmpty()) {
        EXPECT_TRUE(taken.emplace(action.associatedObjects().constFirst(), mnemonic).second) << row.name;
      }
    }
  }
}

TEST_F(MainMenuTest, ShowsAnAmpersandOfTheLanguageFile) {
  CaptionTable[3] = "Tempi & Dosi";
  menu_.InitMessaggi();
  EXPECT_EQ(Action("mnuTempiDosi")->text(), "&Tempi && Dosi");
}

TEST_F(MainMenuTest, NamesTheFormOfEachClick) {
  for (const MenuRow& row : MenuTable()) {
    clicks_.clear();
    if (row.form != nullptr) {
      Action(row.name)->trigger();
      ASSERT_EQ(clicks_.size(), 1u) << row.name;
      EXPECT_STREQ(clicks_[0].form, row.form) << row.name;
      const bool clears = QString(row.name) == "ssmnuCancella";
      EXPECT_EQ(clicks_[0].act, clears ? MenuAct::kUnloadAndShowForm : MenuAct::kShowForm) << row.name;
    }
  }
}

TEST_F(MainMenuTest, TellsLanguagesPortsAndExitApart) {
  Action("smnuLingue(7)")->trigger();
  Action("mnuCox(3)")->trigger();
  Action("smnuExit")->trigger();
  ASSERT_EQ(clicks_.size(), 3u);
  EXPECT_EQ(clicks_[0].act, MenuAct::kLanguage);
  EXPECT_EQ(clicks_[0].index, 7);
  EXPECT_EQ(clicks_[1].act, MenuAct::kPort);
  EXPECT_EQ(clicks_[1].index, 3);
  EXPECT_EQ(clicks_[2].act, MenuAct::kExit);
}

TEST_F(MainMenuTest, HidesPreventiveActionsOnModel20Alone) {
  for (const int model : {19, 20, 21, 23}) {
    menu_.ApplyHidingRules(model);
    EXPECT_EQ(Action("smnuAzione")->isVisible(), model != 20) << model;
  }
}

TEST_F(MainMenuTest, HidesMdbAuditBelowModel22) {
  for (const int model : {20, 21, 22, 23}) {
    menu_.ApplyHidingRules(model);
    EXPECT_EQ(Action("ssmnuMDBaudit")->isVisible(), model >= 22) << model;
  }
}

TEST_F(MainMenuTest, HidesNothingElseByModel) {
  menu_.ApplyHidingRules(20);
  for (const Entry& entry : kTree) {
    const QString name = entry.name;
    EXPECT_EQ(Action(entry.name)->isVisible(), name != "smnuAzione" && name != "ssmnuMDBaudit") << entry.name;
  }
}

TEST_F(MainMenuTest, ShowsTheLanguagesAndTheTicks) {
  Settings settings;
  settings.smnuLingue[0] = {.caption = "Italiano", .shown = true, .ticked = false};
  settings.smnuLingue[1] = {.caption = "R&D", .shown = true, .ticked = true};
  settings.mnuCox[4] = true;
  menu_.ShowTicks(settings);
  EXPECT_EQ(Action("smnuLingue(0)")->text(), "&Italiano");
  EXPECT_EQ(Action("smnuLingue(1)")->text(), "&R&&D");
  EXPECT_FALSE(Action("smnuLingue(0)")->isChecked());
  EXPECT_TRUE(Action("smnuLingue(1)")->isChecked());
  EXPECT_TRUE(Action("smnuLingue(1)")->isVisible());
  EXPECT_FALSE(Action("smnuLingue(2)")->isVisible());
  EXPECT_FALSE(Action("mnuCox(3)")->isChecked());
  EXPECT_TRUE(Action("mnuCox(4)")->isChecked());
}

TEST_F(MainMenuTest, FillsTheListOfWindowsBeforeItShows) {
  auto* windows = bar_.findChild<QMenu*>("mnuWL");
  ASSERT_NE(windows, nullptr);
  emit windows->aboutToShow();
  ASSERT_EQ(windows->actions().size(), 1);
  EXPECT_EQ(windows->actions().constFirst()->text(), "filled");
}

TEST_F(MainMenuTest, DisablesWhatIsNotEnabled) {
  menu_.Enable([](const MenuRow& row) { return row.act == MenuAct::kExit; });
  EXPECT_TRUE(Action("smnuExit")->isEnabled());
  EXPECT_FALSE(Action("smnuDosi")->isEnabled());
}

}  // namespace
}  // namespace dosmara
