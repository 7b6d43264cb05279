// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/application.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include "controls/tones.h"
#include "shell/picture.h"

namespace dosmara {

namespace {

constexpr QSize kIconSize(64, 64);

// A closed form must still tell its values; the style's own disabled text is too faint to read.
QPalette ReadablePalette() {
  QPalette palette;
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
    palette.setColor(QPalette::Disabled, role, Ink(palette, false));
  }
  return palette;
}

}  // namespace

void DressApplication() {
  QApplication::setApplicationName("Dosmara");
  QApplication::setApplicationVersion(DOSMARA_VERSION);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(ReadablePalette());
  QApplication::setWindowIcon(QIcon(Picture(":/art/icon.svg", kIconSize, 1)));
}

}  // namespace dosmara
