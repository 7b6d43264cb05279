// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/wait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace dosmara {

bool WaitUntil(const std::function<bool()>& condition, int deadline_ms) {
  QElapsedTimer clock;
  clock.start();
  // Wakes the loop when nothing else does.
  QTimer pulse;
  pulse.start(5);
  while (!condition()) {
    if (clock.hasExpired(deadline_ms)) {
      return false;
    }
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

}  // namespace dosmara
