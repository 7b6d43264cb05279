// SPDX-License-Identifier: GPL-3.0-or-later
// Language files `<language>.lng` in the program's directory: one caption per line, at most 650 lines. A line
// that begins with ";--" is a section marker; it takes up a line number like any other, and a file fits
// another only if it has the same markers at the same lines.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace dosmara {

inline constexpr int kLanguageEntries = 10;

// File name of the current language without ".lng".
extern QString LanguageName;

// One entry of the menu smnuLingue. Its caption is the language's name; an entry without a file stays hidden.
struct LanguageEntry {
  QString caption;
  bool shown = false;
  bool ticked = false;
};
using LanguageMenu = std::array<LanguageEntry, kLanguageEntries>;

// Gives the entries the names of the first ten language files in `folder`, in the order of their names, and
// unticks all. Without any file tells the operator and throws ProgramEnds.
void ListLanguages(const QString& folder, LanguageMenu& menu);

// Copies lines into CaptionTable from element 1; elements behind the last line keep what they hold. Throws
// RunTimeError kErrorOutOfRange after element 650 when there are more lines.
void FillCaptions(const QStringList& lines);

// Reads a language file into CaptionTable. Throws RunTimeError when it cannot be read or holds too much.
void LoadLanguage(const QString& folder, const QString& file_name);

// Whether `new_lines` fit in the place of `current_lines`: not fewer, and a marker for each marker. Fills
// CaptionTable as far as it gets; a surplus is not read. Throws RunTimeError, with nothing filled, when there
// are more than 650 new ones: the next start could not load them.
bool ValidateLines(const QStringList& current_lines, const QStringList& new_lines);

// ValidateLines for two files. Throws RunTimeError, with nothing filled, when one cannot be read.
bool ValidateLanguage(const QString& folder, const QString& current_file, const QString& new_file);

// Lists the languages, loads the one called LanguageName and ticks it. The first one takes its place when it
// is not among the entries 0 to 8: an entry 9 is offered but never chosen at start. Returns false when the
// file cannot be loaded, after a box that names it.
bool FillLanguageMenu(const QString& folder, LanguageMenu& menu);

// The click on entry `index`: loads that language, ticks it and makes it LanguageName. A file that does not
// fit is refused with a box, and the previous language stays.
void ChooseLanguage(const QString& folder, LanguageMenu& menu, int index);

// Index of the first ticked entry; 0 when none is.
int TickedLanguage(const LanguageMenu& menu);

}  // namespace dosmara
