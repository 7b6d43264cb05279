// SPDX-License-Identifier: GPL-3.0-or-later
// The machine in real time: its wire on a pseudo-terminal, its commands on standard input.
#pragma once

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <optional>
#include <string>

#include "machine/console.h"
#include "machine/machine.h"
#include "machine/options.h"
#include "machine/output.h"
#include "machine/pty.h"

namespace machine {

class Program : public Plug {
 public:
  // Loads the boards and the script, and plugs the machine in. Throws when a file or the line fails.
  explicit Program(const Options& options);

  // Runs until "quit" or a signal to end. The end of standard input only ends the commands.
  void Run();

  std::string Unplug() override;
  std::string Replug() override;
  bool plugged() const override { return pty_.has_value(); }
  void Quit() override { ended_ = true; }

 private:
  FrameLog MakeLog();
  void LogToFile(const std::string& line);
  // No command runs while the reply to an earlier one waits for its reader.
  void RunCommands();
  void SendBytes();
  void WaitForEvent(const sigset_t& signals);
  void ReadCommands();
  Time RealTime() const { return std::chrono::steady_clock::now() - start_; }

  Options options_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::ofstream log_file_;
  Output replies_{STDOUT_FILENO};
  Output errors_{STDERR_FILENO};
  Machine machine_;
  Console console_{machine_, *this};
  std::optional<Pty> pty_;
  std::string unfinished_line_;
  bool commands_open_ = true;
  bool ended_ = false;
};

}  // namespace machine
