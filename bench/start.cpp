// SPDX-License-Identifier: GPL-3.0-or-later
// bench_start STARTS
//
// How long the installed program takes from the start of its process to its window and to the running link,
// and how much memory it holds. Without a screen, so without what a display server adds.
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <vector>

#include "store/parameter_table.h"
#include "support/process_figures.h"
#include "support/pty_line.h"
#include "support/tool_rig.h"
#include "tour/wait.h"

namespace dosmara {
namespace {

constexpr int kDeadlineMs = 30'000;

// The port test, seven reads of the main board and six of each other board.
constexpr int kIdentificationRequests = 26;

// The program file with its data, as on a technician's computer.
class Installed {
 public:
  Installed() { QFile::copy(DOSMARA_PROGRAM, rig.folder().program()); }
  ~Installed() { Stop(); }

  void Start() {
    since_start.start();
    process_.start(rig.folder().program(), QStringList());
  }
  void Stop() {
    process_.kill();
    process_.waitForFinished(kDeadlineMs);
  }
  int Memory() const { return ResidentMemory(QString::number(process_.processId())); }

  ToolRig rig;
  QElapsedTimer since_start;

 private:
  QProcess process_;
};

// Milliseconds to the first byte on the line, the test of the port: it leaves as soon as the main window has
// been painted.
double ToWindow() {
  Installed installed;
  const PtyLine line(installed.rig.PortLink(1).toStdString());
  installed.Start();
  line.WaitForInput(std::chrono::milliseconds(kDeadlineMs));
  return static_cast<double>(installed.since_start.nsecsElapsed()) / 1e6;
}

struct Connected {
  double ms;
  int memory;
};

// To the last board identified, half a second of it the test of the port.
Connected ToLink() {
  Installed installed;
  MachineProcess& machine = installed.rig.StartMachine();
  installed.Start();
  const QString last = QString(" requests %1 ").arg(kIdentificationRequests);
  WaitUntil([&] { return machine.Command("status").value_or(QString()).contains(last); }, kDeadlineMs);
  return {static_cast<double>(installed.since_start.nsecsElapsed()) / 1e6, installed.Memory()};
}

// Memory of this process with the tool's windows in it and all doses on the form.
int MemoryWithDoses() {
  ToolRig rig;
  rig.StartMachine();
  rig.StartTool().findChild<QAction*>("smnuDosi")->trigger();
  const auto due = [](const ParamRec& record) { return (record.Flags & kDue) != 0; };
  WaitUntil([&] { return std::ranges::none_of(ParamTable[1], due); }, kDeadlineMs);
  return ResidentMemory("self");
}

void PrintTimes(const char* what, std::vector<double> times) {
  std::ranges::sort(times);
  std::printf("%-32s %7.1f ms (%.1f to %.1f)\n", what, times[times.size() / 2], times.front(), times.back());
}

void Run(int starts) {
  std::vector<double> windows;
  std::vector<double> links;
  int memory = 0;
  for (int i = 0; i < starts; ++i) {
    windows.push_back(ToWindow());
    const Connected connected = ToLink();
    links.push_back(connected.ms);
    memory = connected.memory;
  }
  PrintTimes("process start to window painted", windows);
  PrintTimes("process start to running link", links);
  std::printf("%-32s %7.1f MB\n", "resident memory, connected", memory / 1024.0);
  std::printf("%-32s %7.1f MB\n", "resident memory, doses open", MemoryWithDoses() / 1024.0);
}

}  // namespace
}  // namespace dosmara

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const int starts = argc == 2 ? std::atoi(argv[1]) : 0;
  if (starts <= 0) {
    std::fputs("usage: bench_start STARTS\n", stderr);
    return 2;
  }
  try {
    dosmara::Run(starts);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_start: %s\n", failure.what());
    return 1;
  }
  return 0;
}
