// SPDX-License-Identifier: GPL-3.0-or-later
// Shows a window with one word, and prints the kilobytes that its process then holds: what bench_open
// compares the memory of the program with. The word brings in the fonts, which no program does without.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QWindow>
#include <cstdio>

#include "support/process_figures.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QMainWindow window;
  window.setCentralWidget(new QLabel("Dosmara"));
  window.show();
  while (!window.windowHandle()->isExposed()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  window.grab();
  std::printf("%d\n", dosmara::ResidentMemory("self"));
  return 0;
}
