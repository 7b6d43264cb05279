// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting in a test: for a condition, with a deadline, while events are delivered.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace dosmara {

// Delivers events for `time` without using the processor in between.
inline void RunFor(std::chrono::milliseconds time) {
  QEventLoop loop;
  QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

// Delivers events until `condition` holds. Returns whether it held before the deadline.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds deadline = std::chrono::seconds(10)) {
  QElapsedTimer clock;
  for (clock.start(); !condition(); RunFor(std::chrono::milliseconds(2))) {
    if (clock.hasExpired(deadline.count())) {
      return false;
    }
  }
  return true;
}

}  // namespace dosmara
