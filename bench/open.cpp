// SPDX-License-Identifier: GPL-3.0-or-later
// bench_open TIMES [FORM...]
//
// How long each form takes from the click to its opening for changes (0: it is never closed) and to the last
// of its values, over a real pseudo-terminal, beside what the pace of the scan allows: a tick for each record
// and one for each end of a node on the way. Then the memory of this process with all of them open, beside
// that of a process with a window of one word. After 0 times it is that of a process which has done nothing
// else; each form that was opened before leaves holes.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "controls/selector.h"
#include "forms/form_list.h"
#include "shell/menu_table.h"
#include "store/parameter_table.h"
#include "support/process_figures.h"
#include "support/scan_ticks.h"
#include "support/tool_rig.h"
#include "tour/wait.h"

namespace dosmara {
namespace {

constexpr double kTickMs = 40;
constexpr int kDeadlineMs = 60'000;

QAction& EntryOf(MDIForm1& window, const QString& form) {
  const auto rows = MenuTable();
  const auto row = std::ranges::find_if(rows, [&](const MenuRow& r) { return r.form == form; });
  return *window.findChild<QAction*>(row->name);
}

template <class Condition>
int CountSubscribed(Condition condition) {
  int count = 0;
  for (const auto& node : ParamTable) {
    count += static_cast<int>(std::ranges::count_if(
        node, [&](const ParamRec& record) { return record.Subscribers > 0 && condition(record); }));
  }
  return count;
}

int Subscribed() {
  return CountSubscribed([](const ParamRec&) { return true; });
}

bool AllFresh() {
  return CountSubscribed([](const ParamRec& record) { return (record.Flags & kArrived) == 0; }) == 0;
}

template <class T>
int CountOpen(const QWidget& form) {
  const auto controls = form.findChildren<T*>();
  return static_cast<int>(std::ranges::count_if(
      controls, [](const QWidget* control) { return control->isVisible() && control->isEnabled(); }));
}

// The controls that take changes, but for the bars: a row's bar may open before its form does.
int OpenControls(const QWidget& form) {
  return CountOpen<QLineEdit>(form) + CountOpen<QAbstractButton>(form) + CountOpen<Selector>(form);
}

QTimer& ScanTimer(const MDIForm1& window) {
  return *window.findChild<QWidget*>("FrmSer")->findChild<QTimer*>("Timer1");
}

QWidget& Show(MDIForm1& window, const char* name) {
  EntryOf(window, name).trigger();
  return *window.findChild<QWidget*>(name);
}

void Open(MDIForm1& window, const char* name) {
  const int subscribed_before = Subscribed();
  ScanTicks ticks(ScanTimer(window));
  QElapsedTimer clock;
  clock.start();
  const QWidget& form = Show(window, name);
  const int records = Subscribed() - subscribed_before;
  if (records == 0) {
    std::printf("%-16s reads nothing\n", name);
  } else {
    const int open_at_first = OpenControls(form);
    double unlocked = 0;
    WaitUntil(
        [&] {
          if (unlocked == 0 && OpenControls(form) > open_at_first) {
            unlocked = static_cast<double>(clock.elapsed());
          }
          return AllFresh();
        },
        kDeadlineMs);
    const auto shown = static_cast<double>(clock.elapsed());
    const double allowed = (records + ticks.end_of_node) * kTickMs;
    std::printf("%-16s %7d %10d %10d %12.0f %12.0f %12.0f %+10.1f %%\n", name, records, ticks.sent,
                ticks.end_of_node, unlocked, shown, allowed, (shown / allowed - 1) * 100);
  }
  std::fflush(stdout);
  form.parentWidget()->close();
  WaitUntil([&] { return window.findChild<QWidget*>(name) == nullptr; }, kDeadlineMs);
}

void PrintMemory(const char* what, int kilobytes) {
  std::printf("%-32s %7.1f MB\n", what, kilobytes / 1024.0);
}

// Kilobytes of a process with a window that is empty.
int MemoryOfMinimalWindow() {
  QProcess process;
  process.start(DOSMARA_MINIMAL_WINDOW);
  process.waitForFinished();
  return process.readAllStandardOutput().trimmed().toInt();
}

// Forms that read their values again and again never have all of them: one exchange for each record will do.
void OpenAll(MDIForm1& window, const std::vector<const char*>& forms) {
  ScanTicks ticks(ScanTimer(window));
  for (const char* form : forms) {
    Show(window, form);
  }
  WaitUntil([&, records = Subscribed()] { return ticks.sent >= records; }, kDeadlineMs);
}

std::vector<const char*> FormsToOpen(const QStringList& names) {
  std::vector<const char*> forms;
  for (const FormEntry& entry : FormList()) {
    if (names.isEmpty() || names.contains(entry.name)) {
      forms.push_back(entry.name);
    }
  }
  return forms;
}

void Run(int times, const std::vector<const char*>& forms) {
  ToolRig rig;
  rig.StartMachine();
  MDIForm1& window = rig.StartTool();
  PrintMemory("resident memory, minimal window", MemoryOfMinimalWindow());
  PrintMemory("resident memory, no form", ResidentMemory("self"));
  std::printf("%-16s %7s %10s %10s %12s %12s %12s %12s\n", "form", "records", "exchanges", "idle ticks",
              "unlocked ms", "all shown ms", "allowed ms", "difference");
  for (int i = 0; i < times; ++i) {
    for (const char* form : forms) {
      Open(window, form);
    }
  }
  OpenAll(window, forms);
  PrintMemory("resident memory, all forms open", ResidentMemory("self"));
}

}  // namespace
}  // namespace dosmara

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const QStringList arguments = QApplication::arguments();
  bool counted = false;
  const int times = arguments.value(1).toInt(&counted);
  const auto forms = dosmara::FormsToOpen(arguments.mid(2));
  if (!counted || times < 0 || forms.empty()) {
    std::fputs("usage: bench_open TIMES [FORM...]\n", stderr);
    return 2;
  }
  dosmara::Run(times, forms);
  return 0;
}
