// SPDX-License-Identifier: GPL-3.0-or-later
// bench_open TIMES
//
// How long each form takes from the click to its first open control and to the last of its values, over a
// real pseudo-terminal, beside what the pace of the scan allows: a tick for each record and one for each end
// of a node on the way.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "forms/form_list.h"
#include "shell/menu_table.h"
#include "store/parameter_table.h"
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

bool AcceptsEntries(const QWidget& form) {
  return std::ranges::any_of(form.findChildren<QLineEdit*>(),
                             [](const QLineEdit* box) { return box->isVisible() && box->isEnabled(); });
}

void Open(MDIForm1& window, const char* name) {
  ScanTicks ticks(*window.findChild<QWidget*>("FrmSer")->findChild<QTimer*>("Timer1"));
  QElapsedTimer clock;
  clock.start();
  EntryOf(window, name).trigger();
  auto& form = *window.findChild<QWidget*>(name);
  const int records = Subscribed();
  if (records == 0) {
    std::printf("%-16s reads nothing\n", name);
  } else {
    WaitUntil([&] { return AcceptsEntries(form); }, kDeadlineMs);
    const auto unlocked = static_cast<double>(clock.elapsed());
    WaitUntil(AllFresh, kDeadlineMs);
    const auto shown = static_cast<double>(clock.elapsed());
    const double allowed = (records + ticks.end_of_node) * kTickMs;
    std::printf("%-16s %7d %10d %10d %12.0f %12.0f %12.0f %+10.1f %%\n", name, records, ticks.sent,
                ticks.end_of_node, unlocked, shown, allowed, (shown / allowed - 1) * 100);
  }
  form.parentWidget()->close();
  WaitUntil([&] { return Subscribed() == 0; }, kDeadlineMs);
}

void Run(int times) {
  ToolRig rig;
  rig.StartMachine();
  MDIForm1& window = rig.StartTool();
  std::printf("%-16s %7s %10s %10s %12s %12s %12s %12s\n", "form", "records", "exchanges", "idle ticks",
              "unlocked ms", "all shown ms", "allowed ms", "difference");
  for (int i = 0; i < times; ++i) {
    for (const FormEntry& entry : FormList()) {
      Open(window, entry.name);
    }
  }
}

}  // namespace
}  // namespace dosmara

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const int times = argc == 2 ? std::atoi(argv[1]) : 0;
  if (times <= 0) {
    std::fputs("usage: bench_open TIMES\n", stderr);
    return 2;
  }
  dosmara::Run(times);
  return 0;
}
