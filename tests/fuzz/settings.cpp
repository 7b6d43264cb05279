// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as the own and as the launcher's settings file: the start always ends with a port of 1 to 4
// and a language that is either stored or has a file. The byte '|' parts the input into the two files.
#include "shell/settings.h"

#include <cstdlib>

#include "support/box_recorder.h"
#include "support/program_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace dosmara;
  static const ProgramFolder folder;
  static BoxRecorder screen;
  const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const qsizetype bar = input.indexOf('|');
  folder.Write("English.lng", "File");
  folder.Write("dosmara.ini", bar < 0 ? input : input.left(bar));
  folder.Write("../dosmara.ini", bar < 0 ? input : input.mid(bar + 1));

  Settings settings = SettingsOf(folder.program());
  ReadSettings(settings);
  if (PortNumber < 1 || PortNumber > 4 || !settings.mnuCox[PortNumber]) {
    std::abort();
  }
  if (LanguageName.size() > 500) {
    std::abort();
  }
  if (!FillLanguageMenu(settings.folder, settings.smnuLingue) || LanguageName != "English") {
    std::abort();
  }
  WriteSettings(settings);
  if (folder.Read("dosmara.ini") != "Com=" + QByteArray::number(PortNumber) + "\nLingua=English\n") {
    std::abort();
  }
  if (!screen.boxes.empty()) {
    std::abort();
  }
  return 0;
}
