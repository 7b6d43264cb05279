// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/menu_table.h"

namespace dosmara {

namespace {

// An entry that opens `form`.
constexpr MenuRow Opens(const char* name, int level, const char* caption, int line, const char* form,
                        bool (*hidden)(int model) = nullptr) {
  return {.name = name,
          .level = level,
          .caption = caption,
          .line = line,
          .act = MenuAct::kShowForm,
          .form = form,
          .hidden = hidden};
}

// A language: its file names it.
constexpr MenuRow Language(const char* name, int index) {
  return {.name = name, .level = 2, .caption = "", .act = MenuAct::kLanguage, .index = index};
}

constexpr MenuRow Port(const char* name, const char* caption, int line, int port) {
  return {.name = name, .level = 2, .caption = caption, .line = line, .act = MenuAct::kPort, .index = port};
}

constexpr MenuRow kRows[] = {
    {.name = "mnuFile", .level = 1, .caption = "File", .line = 1},
    {.name = "smnuExit", .level = 2, .caption = "Exit", .line = 2, .act = MenuAct::kExit},
    Opens("mnuConf", 1, "Configurazione", 0, "FrmConf"),
    {.name = "mnuTempiDosi", .level = 1, .caption = "Tempi/Dosi", .line = 3},
    Opens("smnuTempi", 2, "Tempi", 4, "FrmTempi"),
    Opens("smnuDosi", 2, "Dosi", 5, "FrmDosi"),
    {.name = "mnuVending", .level = 1, .caption = "Vending", .line = 6},
    Opens("smnuPagamento", 2, "Sist. di pagamento", 7, "FrmPagamento"),
    {.name = "smnuPrezzi", .level = 2, .caption = "Prezzi", .line = 8},
    Opens("ssmnuImposta", 3, "Impostazione prezzi", 9, "FrmPrezzi"),
    Opens("ssmnuSconti", 3, "Impostazione sconti", 10, "FrmSconti"),
    Opens("ssmnuPrsel", 3, "Associazione prezzi selezioni", 11, "FrmAssSel"),
    Opens("ssmnuPrsett", 3, "Associazione prezzi settori zeth", 12, "FrmAssSet"),
    Opens("ssmnuPrsett2", 3, "Associazione prezzi settori zeth 2", 13, "FrmAssSet2"),
    {.name = "smnuDati", .level = 2, .caption = "Dati di vendita", .line = 14},
    Opens("ssmnuTotali", 3, "Totali", 15, "FrmTotali"),
    Opens("ssmnuBattute", 3, "Battute", 16, "FrmBattute"),
    Opens("ssmnuGratis", 3, "Gratis", 17, "FrmGratis"),
    Opens("ssmnuBricco", 3, "Bricco", 18, "FrmBricco"),
    Opens("ssmnuProva", 3, "Prova", 19, "FrmProva"),
    Opens("ssmnuMonete", 3, "Monete", 20, "FrmMonete"),
    Opens("ssmnuMDBaudit", 3, "MDB Audit", 44, "FrmMDBaudit", [](int model) { return model < 22; }),
    {.name = "ssmnuCancella",
     .level = 3,
     .caption = "Cancella i dati",
     .line = 21,
     .act = MenuAct::kUnloadAndShowForm,
     .form = "FrmCancella"},
    {.name = "mnuOpzioni", .level = 1, .caption = "Opzioni", .line = 22},
    Opens("smnuOpzioni", 2, "Opzioni", 23, "FrmOpzioni"),
    Opens("smnuAzione", 2, "Azione preventiva", 43, "FrmAzione", [](int model) { return model == 20; }),
    Opens("smnuPassword", 2, "Password", 25, "FrmPassword"),
    {.name = "mnuTemperatura", .level = 1, .caption = "Temperatura", .line = 26},
    Opens("smnuSet", 2, "Set", 27, "FrmTemperatura"),
    Opens("smnuGrafico", 2, "Grafico", 28, "FrmGrafico"),
    Opens("mnuOrologio", 1, "Orologio", 29, "FrmOrologio"),
    {.name = "mnuTest", .level = 1, .caption = "Test", .line = 30},
    {.name = "smnuInOut", .level = 2, .caption = "In/Out", .line = 31},
    Opens("ssmnuTest", 3, "Test", 32, "FrmInOut"),
    Opens("ssmnuZeth", 3, "Zeth", 33, "FrmTestZeth"),
    Opens("ssmnuZeth2", 3, "Zeth 2", 45, "FrmTestZeth2"),
    Opens("ssmnuSchema", 3, "Schema idraulico", 34, "FrmSchema"),
    Opens("smnuAllarmi", 2, "Allarmi", 35, "FrmAllarmi"),
    {.name = "mnuLingue", .level = 1, .caption = "Lingue", .line = 36},
    Language("smnuLingue(0)", 0),
    Language("smnuLingue(1)", 1),
    Language("smnuLingue(2)", 2),
    Language("smnuLingue(3)", 3),
    Language("smnuLingue(4)", 4),
    Language("smnuLingue(5)", 5),
    Language("smnuLingue(6)", 6),
    Language("smnuLingue(7)", 7),
    Language("smnuLingue(8)", 8),
    Language("smnuLingue(9)", 9),
    {.name = "mnuWL", .level = 1, .caption = "Windows", .line = 37, .act = MenuAct::kWindowList},
    {.name = "mnuCom", .level = 1, .caption = "Com", .line = 38},
    Port("mnuCox(1)", "Com1", 39, 1),
    Port("mnuCox(2)", "Com2", 40, 2),
    Port("mnuCox(3)", "Com3", 41, 3),
    Port("mnuCox(4)", "Com4", 42, 4),
    Opens("mnuVer", 1, "?", 0, "FrmInfo"),
};

}  // namespace

std::span<const MenuRow> MenuTable() { return kRows; }

}  // namespace dosmara
