// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "shell/msg_box.h"
#include "shell/text_file.h"
#include "store/failure.h"

namespace dosmara {

namespace {

constexpr int kErrorTypeMismatch = 13;   // a port that is not a digit
constexpr int kErrorPastEndOfFile = 62;  // a line that is not there
constexpr qsizetype kLanguageKeyLength = 7;
const QString kLauncherSettings = QStringLiteral("dosmara.ini");

QString OwnName(const Settings& settings) { return settings.program + ".ini"; }

QStringList ReadOwnLines(const Settings& settings) {
  return ReadLines(FindFile(settings.folder, OwnName(settings)));
}

// Returns whether the lines are in the file.
bool WriteOwnFile(const Settings& settings, const QString& lines) {
  const QString found = FindFile(settings.folder, OwnName(settings));
  QFile file(found.isEmpty() ? QDir(settings.folder).filePath(OwnName(settings)) : found);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
    return false;
  }
  const QByteArray bytes = lines.toUtf8();
  return file.write(bytes) == bytes.size() && file.flush();
}

// The language line of the own file, whatever its port; empty when there is none.
QString OwnLanguage(const Settings& settings) {
  try {
    return ReadOwnLines(settings).value(1).mid(kLanguageKeyLength);
  } catch (const RunTimeError&) {
    return {};
  }
}

// Writes the own file. A refusal is told to the operator once.
void Save(Settings& settings, const QString& language) {
  if (WriteOwnFile(settings, QString("Com=%1\nLingua=%2\n").arg(PortNumber).arg(language)) ||
      settings.refusal_told) {
    return;
  }
  settings.refusal_told = true;
  MsgBox(OwnName(settings) + "\nThe settings cannot be saved", "Error", BoxStyle::kExclamation);
}

// Writes a new port before the languages are listed: no entry is ticked yet, so the line of the language
// stays as the file has it.
void SavePortAlone(Settings& settings) { Save(settings, OwnLanguage(settings)); }

// What the own file says. Throws RunTimeError also for a port that has no menu entry.
StoredSettings ReadOwnSettings(const Settings& settings) {
  const StoredSettings own = ParseSettings(ReadOwnLines(settings));
  if (own.port < kFirstPort) {
    throw RunTimeError(kErrorOutOfRange, "No such port");
  }
  return own;
}

// The launcher's file, or what stands for one that cannot be read.
StoredSettings ReadLauncherSettings(const Settings& settings) {
  try {
    return ParseSettings(ReadLines(FindFile(QDir(settings.folder).filePath(".."), kLauncherSettings)));
  } catch (const RunTimeError&) {
    return {0, settings.smnuLingue[0].caption};
  }
}

}  // namespace

Settings SettingsOf(const QString& program_path) {
  const QFileInfo program(program_path);
  QString name = program.fileName();
  if (name.endsWith(".exe", Qt::CaseInsensitive)) {
    name.chop(4);
  }
  return {.folder = program.absolutePath(), .program = name};
}

int ParsePort(const QStringList& lines) {
  if (lines.isEmpty()) {
    throw RunTimeError(kErrorPastEndOfFile, "No port line");
  }
  const QChar last = lines[0].isEmpty() ? QChar() : lines[0].back();
  if (last < '0' || last > '9') {
    throw RunTimeError(kErrorTypeMismatch, "No port number");
  }
  return last.digitValue();
}

StoredSettings ParseSettings(const QStringList& lines) {
  const int port = ParsePort(lines);
  if (port > kLastPort) {
    throw RunTimeError(kErrorOutOfRange, "No such port");
  }
  if (lines.size() < 2) {
    throw RunTimeError(kErrorPastEndOfFile, "No language line");
  }
  return {port, lines[1].mid(kLanguageKeyLength)};
}

void ReadSettings(Settings& settings) {
  PortNumber = 0;
  LanguageName = settings.smnuLingue[0].caption;
  try {
    const StoredSettings own = ReadOwnSettings(settings);
    PortNumber = static_cast<std::uint8_t>(own.port);
    settings.mnuCox[PortNumber] = true;
    LanguageName = own.language;
  } catch (const RunTimeError&) {
    // No settings yet, or damaged ones: the defaults above stand.
  }
  const StoredSettings launcher = ReadLauncherSettings(settings);
  if (launcher.port != 0 && launcher.port != PortNumber) {
    PortNumber = static_cast<std::uint8_t>(launcher.port);
    SavePortAlone(settings);
  } else if (launcher.port == 0 && PortNumber == 0) {
    PortNumber = kFirstPort;
    SavePortAlone(settings);
  }
  settings.mnuCox[PortNumber] = true;
  ListLanguages(settings.folder, settings.smnuLingue);
  if (launcher.language == LanguageName) {
    return;
  }
  for (LanguageEntry& entry : settings.smnuLingue) {
    if (entry.shown && entry.caption == launcher.language) {
      entry.ticked = true;
      LanguageName = launcher.language;
      WriteSettings(settings);
      return;
    }
  }
}

void WriteSettings(Settings& settings) {
  Save(settings, settings.smnuLingue[TickedLanguage(settings.smnuLingue)].caption);
}

int ReadOwnPort(const Settings& settings) { return ParsePort(ReadOwnLines(settings)); }

void WriteDefaultPort(const Settings& settings) { WriteOwnFile(settings, "Com=1\n"); }

}  // namespace dosmara
