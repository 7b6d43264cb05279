// SPDX-License-Identifier: GPL-3.0-or-later
// dosmara, the service tool: one window, no command line.
#include <QApplication>

#include "forms/form_list.h"
#include "shell/application.h"
#include "shell/main_window.h"
#include "store/failure.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  dosmara::DressApplication();
  dosmara::MDIForm1 window(dosmara::SettingsOf(QCoreApplication::applicationFilePath()), dosmara::FormList());
  try {
    window.Load();
  } catch (const dosmara::ProgramEnds&) {
    return 0;
  }
  return QApplication::exec();
}
