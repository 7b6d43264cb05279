// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/application.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include "shell/picture.h"

namespace dosmara {

namespace {
constexpr QSize kIconSize(64, 64);
}  // namespace

void DressApplication() {
  QApplication::setApplicationName("Dosmara");
  QApplication::setApplicationVersion(DOSMARA_VERSION);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setWindowIcon(QIcon(Picture(":/art/icon.svg", kIconSize, 1)));
}

}  // namespace dosmara
