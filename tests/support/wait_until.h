// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting in a test: for a condition, with a deadline, while events are delivered.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace dosmara {

// Delivers events until `condition` holds. Returns whether it held before the deadline.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds deadline = std::chrono::seconds(10)) {
  constexpr std::chrono::milliseconds kBetweenLooks(2);  // in which the processor rests
  QElapsedTimer clock;
  for (clock.start(); !condition();) {
    if (clock.hasExpired(deadline.count())) {
      return false;
    }
    QEventLoop loop;
    QTimer::singleShot(kBetweenLooks, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
  }
  return true;
}

}  // namespace dosmara
