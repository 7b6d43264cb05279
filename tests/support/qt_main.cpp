// SPDX-License-Identifier: GPL-3.0-or-later
// The main of every test that shows widgets: no screen, one style, and numbers with a decimal point unless a
// test sets another locale.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <QStyleFactory>

#include "support/stops.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  testing::InitGoogleTest(&argc, argv);
  dosmara::LetStopsFailOneTest();
  QLocale::setDefault(QLocale::c());
  QApplication app(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  return RUN_ALL_TESTS();
}
