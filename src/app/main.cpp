// SPDX-License-Identifier: GPL-3.0-or-later
// dosmara, the service tool: one window, no command line.
#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include "forms/form_list.h"
#include "shell/main_window.h"
#include "shell/picture.h"
#include "store/failure.h"

namespace {
constexpr QSize kIconSize(64, 64);
}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Dosmara");
  QApplication::setApplicationVersion(DOSMARA_VERSION);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setWindowIcon(QIcon(dosmara::Picture(":/art/icon.svg", kIconSize, 1)));

  dosmara::MDIForm1 window(dosmara::SettingsOf(QCoreApplication::applicationFilePath()), dosmara::FormList());
  try {
    window.Load();
  } catch (const dosmara::ProgramEnds&) {
    return 0;
  }
  return QApplication::exec();
}
