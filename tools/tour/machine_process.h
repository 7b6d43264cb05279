// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated machine as a child process, driven over its standard input.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <optional>

namespace dosmara {

// Runs dosmara-machine while it lives. Waits inside its calls deliver events, so that a tool in the same
// process goes on talking to the machine.
class MachineProcess {
 public:
  // Starts `program` and returns when it is ready or has failed; Ready tells which.
  MachineProcess(const QString& program, const QStringList& arguments);
  ~MachineProcess();
  MachineProcess(const MachineProcess&) = delete;
  MachineProcess& operator=(const MachineProcess&) = delete;

  bool Ready() const { return ready_; }

  // Gives one command and returns the reply behind "ok", or nothing when the machine refused it or is gone.
  std::optional<QString> Command(const QString& line);

  // What the machine holds in a record; -1 when it does not answer.
  double Get(int node, int record);
  // Changes what the machine holds.
  bool Set(int node, int record, double value);

 private:
  std::optional<QString> ReadLine();

  QProcess process_;
  bool ready_ = false;
};

}  // namespace dosmara
