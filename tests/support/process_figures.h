// SPDX-License-Identifier: GPL-3.0-or-later
// What a process costs.
#pragma once

#include <sys/resource.h>

#include <QEventLoop>
#include <QFile>
#include <QString>
#include <QTimer>
#include <chrono>
#include <stdexcept>

namespace dosmara {

// Processor time that this process has used, user and system.
inline std::chrono::microseconds ProcessorTime() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  const auto time = [](const timeval& t) {
    return std::chrono::seconds(t.tv_sec) + std::chrono::microseconds(t.tv_usec);
  };
  return time(usage.ru_utime) + time(usage.ru_stime);
}

// Processor time that this process uses in a second in which it has nothing to do but to deliver events.
inline std::chrono::microseconds ProcessorTimeOfASecond() {
  const std::chrono::microseconds before = ProcessorTime();
  QEventLoop loop;
  QTimer::singleShot(std::chrono::seconds(1), Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
  return ProcessorTime() - before;
}

// Kilobytes that a process holds in memory; `pid` is its number or "self".
inline int ResidentMemory(const QString& pid) {
  QFile status("/proc/" + pid + "/status");
  if (!status.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("no process " + pid.toStdString());
  }
  const QByteArray text = status.readAll();
  return text.mid(text.indexOf("VmRSS:") + 6).simplified().split(' ').at(0).toInt();
}

}  // namespace dosmara
