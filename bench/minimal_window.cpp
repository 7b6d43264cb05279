// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the least window that the toolkit can, and prints the kilobytes that its process then holds: what
// bench_open compares the memory of the program with.
#include <QApplication>
#include <QMainWindow>
#include <QWindow>
#include <cstdio>

#include "support/process_figures.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QMainWindow window;
  window.show();
  while (!window.windowHandle()->isExposed()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  std::printf("%d\n", dosmara::ResidentMemory("self"));
  return 0;
}
