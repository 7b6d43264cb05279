// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/language.h"

#include <QDir>
#include <algorithm>

#include "shell/caption_table.h"
#include "shell/msg_box.h"
#include "shell/text_file.h"
#include "store/failure.h"

namespace dosmara {

QString LanguageName;

namespace {

const QString kExtension = QStringLiteral(".lng");
const QString kMarker = QStringLiteral(";--");
constexpr int kLastChosenAtStart = kLanguageEntries - 2;

void Tick(LanguageMenu& menu, int index) {
  for (int i = 0; i < kLanguageEntries; ++i) {
    menu[i].ticked = i == index;
  }
}

QString FileOf(const LanguageEntry& entry) { return entry.caption + kExtension; }

// Entry of the language to start with.
int EntryAtStart(const LanguageMenu& menu) {
  for (int i = 0; i <= kLastChosenAtStart; ++i) {
    if (menu[i].shown && menu[i].caption == LanguageName) {
      return i;
    }
  }
  return 0;
}

}  // namespace

void ListLanguages(const QString& folder, LanguageMenu& menu) {
  const QStringList files =
      QDir(folder).entryList({"*" + kExtension}, QDir::Files, QDir::Name | QDir::IgnoreCase);
  if (files.isEmpty()) {
    MsgBox("Reinstall program\nFile missing!", "Error", BoxStyle::kCritical);
    throw ProgramEnds();
  }
  menu = {};
  for (int i = 0; i < kLanguageEntries && i < files.size(); ++i) {
    menu[i].caption = files[i].chopped(kExtension.size());
    menu[i].shown = true;
  }
}

void FillCaptions(const QStringList& lines) {
  const qsizetype fitting = std::min<qsizetype>(lines.size(), kLastCaption);
  std::copy_n(lines.begin(), fitting, CaptionTable + 1);
  if (lines.size() > fitting) {
    throw RunTimeError(kErrorOutOfRange, "More than 650 lines");
  }
}

void LoadLanguage(const QString& folder, const QString& file_name) {
  FillCaptions(ReadLines(FindFile(folder, file_name)));
}

bool ValidateLines(const QStringList& current_lines, const QStringList& new_lines) {
  if (new_lines.size() > kLastCaption) {
    throw RunTimeError(kErrorOutOfRange, "More than 650 lines");
  }
  for (qsizetype i = 0; i < current_lines.size(); ++i) {
    if (i == new_lines.size()) {
      return false;
    }
    if (current_lines[i].startsWith(kMarker) && !new_lines[i].startsWith(kMarker)) {
      return false;
    }
    CaptionTable[i + 1] = new_lines[i];
  }
  return true;
}

bool ValidateLanguage(const QString& folder, const QString& current_file, const QString& new_file) {
  return ValidateLines(ReadLines(FindFile(folder, current_file)), ReadLines(FindFile(folder, new_file)));
}

bool FillLanguageMenu(const QString& folder, LanguageMenu& menu) {
  ListLanguages(folder, menu);
  const int entry = EntryAtStart(menu);
  try {
    LoadLanguage(folder, FileOf(menu[entry]));
  } catch (const RunTimeError& error) {
    MsgBox(FileOf(menu[entry]) + "\n" + error.what(), "Error", BoxStyle::kCritical);
    return false;
  }
  Tick(menu, entry);
  LanguageName = menu[entry].caption;
  return true;
}

void ChooseLanguage(const QString& folder, LanguageMenu& menu, int index) {
  const int previous = TickedLanguage(menu);
  bool fits = false;
  try {
    fits = ValidateLanguage(folder, FileOf(menu[previous]), FileOf(menu[index]));
    if (!fits) {
      LoadLanguage(folder, FileOf(menu[previous]));
    }
  } catch (const RunTimeError&) {
    // A file that cannot be read has changed nothing. A previous file with too many lines has filled the
    // table before it was refused.
    fits = false;
  }
  Tick(menu, fits ? index : previous);
  LanguageName = menu[fits ? index : previous].caption;
  if (!fits) {
    MsgBox("Check file message !!!", "Wrong file", BoxStyle::kExclamation);
  }
}

int TickedLanguage(const LanguageMenu& menu) {
  const auto ticked = std::find_if(menu.begin(), menu.end(), [](const LanguageEntry& e) { return e.ticked; });
  return ticked == menu.end() ? 0 : static_cast<int>(ticked - menu.begin());
}

}  // namespace dosmara
