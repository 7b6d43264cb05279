// SPDX-License-Identifier: GPL-3.0-or-later
// The two settings files, of two lines each: "Com=" with the port as the last character of the line, and
// "Lingua=" with the language behind its first 7 characters. The tool's own file lies in the program's
// directory and is called after the program file; the launcher's, "dosmara.ini" in the directory above,
// overrides it and is never written.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

#include "link/identification.h"
#include "shell/language.h"

namespace dosmara {

// What the settings read and tick: where the program lies, and the entries of the two menus.
struct Settings {
  QString folder;   // the program's directory
  QString program;  // name of the program file without ".exe"
  LanguageMenu smnuLingue = {};
  std::array<bool, kLastPort + 1> mnuCox = {};  // ticks of the ports; element 0 is never used
  bool refusal_told = false;                    // the operator knows that the settings cannot be written
};

// What one settings file says.
struct StoredSettings {
  int port = 0;
  QString language;
};

// The settings of the program file at `program_path`, with empty menus.
Settings SettingsOf(const QString& program_path);

// The port that the first line names, 0 to 9. Throws RunTimeError when there is no line or it does not end in
// a digit.
int ParsePort(const QStringList& lines);

// Both lines of a settings file. Throws RunTimeError when one is missing or the port is above 4.
StoredSettings ParseSettings(const QStringList& lines);

// Reads both files and settles PortNumber, LanguageName and their ticks. Rewrites the own file when the
// launcher's brought a change or no port was set; a new port alone keeps the language line. Files that are
// missing or unreadable are passed over; without any language file tells the operator and throws ProgramEnds.
void ReadSettings(Settings& settings);

// Writes the own file from PortNumber and the ticked language. A refusal is told to the operator once.
void WriteSettings(Settings& settings);

// The port of the own file. Throws RunTimeError, kErrorFileNotFound without a file.
int ReadOwnPort(const Settings& settings);

// Writes "Com=1" as the whole own file, if the folder allows it.
void WriteDefaultPort(const Settings& settings);

}  // namespace dosmara
