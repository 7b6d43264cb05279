// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/machine_process.h"

#include "tour/wait.h"

namespace dosmara {

MachineProcess::MachineProcess(const QString& program, const QStringList& arguments) {
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process_.start(program, arguments);
  const std::optional<QString> line = ReadLine();
  ready_ = line && line->startsWith("ready ");
}

MachineProcess::~MachineProcess() {
  process_.terminate();
  if (!process_.waitForFinished(kPatienceMs)) {
    process_.kill();
    process_.waitForFinished(kPatienceMs);
  }
}

std::optional<QString> MachineProcess::Command(const QString& line) {
  process_.write(line.toUtf8() + '\n');
  const std::optional<QString> reply = ReadLine();
  if (!reply || !reply->startsWith("ok")) {
    return std::nullopt;
  }
  return reply->mid(3);
}

double MachineProcess::Get(int node, int record) {
  const std::optional<QString> reply = Command(QStringLiteral("get %1 %2").arg(node).arg(record));
  return reply ? reply->section(' ', 2, 2).toDouble() : -1;
}

bool MachineProcess::Set(int node, int record, double value) {
  return Command(QStringLiteral("set %1 %2 %3").arg(node).arg(record).arg(value, 0, 'f', 0)).has_value();
}

std::optional<QString> MachineProcess::ReadLine() {
  const bool there = WaitUntil(
      [this] { return process_.canReadLine() || process_.state() == QProcess::NotRunning; }, kPatienceMs);
  if (!there || !process_.canReadLine()) {
    return std::nullopt;
  }
  return QString::fromUtf8(process_.readLine()).trimmed();
}

}  // namespace dosmara
