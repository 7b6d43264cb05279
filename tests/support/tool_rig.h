// SPDX-License-Identifier: GPL-3.0-or-later
// The whole tool in one process with simulated machines on its ports: for system tests and benchmarks.
#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "shell/main_window.h"
#include "support/program_folder.h"
#include "tour/machine_process.h"

namespace dosmara {

// A program folder of its own with all index and language files, and settings that choose English. Its four
// ports lead nowhere until a machine is started on them, whatever serial ports the system has.
class ToolRig {
 public:
  ToolRig();

  // Starts a machine on a port of the folder, with further options of dosmara-machine. Throws
  // std::runtime_error when it does not come up.
  MachineProcess& StartMachine(int port = 1, const QStringList& options = {});

  // Starts the tool up to the running link. Throws ProgramEnds when the start fails.
  MDIForm1& StartTool();

  // The link that is port n.
  QString PortLink(int port) const;

  const ProgramFolder& folder() const { return folder_; }
  MDIForm1& window() { return *window_; }

 private:
  ProgramFolder folder_;
  std::vector<std::unique_ptr<MachineProcess>> machines_;
  std::unique_ptr<MDIForm1> window_;
};

}  // namespace dosmara
