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

}  // namespace

QPalette ReadablePalette(QPalette palette) {
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, Ink(palette, false));
  }
  // Desktops that set a dark palette may leave this at a faint black.
  palette.setColor(QPalette::PlaceholderText, Ink(palette, false));
  palette.setBrush(QPalette::Disabled, QPalette::Window, palette.brush(QPalette::Active, QPalette::Window));
  return palette;
}

void DressApplication() {
  QApplication::setApplicationName("Dosmara");
  QApplication::setApplicationVersion(DOSMARA_VERSION);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(ReadablePalette(QPalette()));
  QApplication::setWindowIcon(QIcon(Picture(":/art/icon.svg", kIconSize, 1)));
}

}  // namespace dosmara
