// SPDX-License-Identifier: GPL-3.0-or-later
// bench_exchange EXCHANGES
//
// How much of the line's pace the tool reaches over a real pseudo-terminal, when every record of every board
// is always due and the form with the doses is open, and what an exchange costs.
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "store/parameter_table.h"
#include "support/process_figures.h"
#include "support/scan_ticks.h"
#include "support/tool_rig.h"

namespace dosmara {
namespace {

constexpr double kMostPerSecond = 25;  // one exchange for each tick of 40 ms

// Keeps every record due that has arrived.
class Insatiable : public LoadedForm {
 public:
  Insatiable() { LoadedForms.push_back(this); }
  ~Insatiable() override { std::erase(LoadedForms, this); }

  void SLabelChange(std::int32_t index, double /*value*/) override {
    ParamTable[NodeIndex][index].Flags |= kDue;
    if (++exchanges_ == wanted_) {
      loop_.quit();
    }
  }

  // Lets so many exchanges run.
  void Run(int exchanges) {
    exchanges_ = 0;
    wanted_ = exchanges;
    loop_.exec();
  }

 private:
  QEventLoop loop_;
  int exchanges_ = 0;
  int wanted_ = 0;
};

void SubscribeEverything() {
  for (int node = 0; node < kNodeCount; ++node) {
    for (int index = 1; index < NodeRecordCount[node]; ++index) {
      NodeIndex = static_cast<std::uint8_t>(node);
      ParamSubscribe(index);
    }
  }
}

void Run(int wanted) {
  ToolRig rig;
  rig.StartMachine();
  MDIForm1& window = rig.StartTool();
  window.findChild<QAction*>("smnuDosi")->trigger();
  SubscribeEverything();
  Insatiable form;
  ScanTicks ticks(*window.findChild<QWidget*>("FrmSer")->findChild<QTimer*>("Timer1"));

  QElapsedTimer clock;
  clock.start();
  const auto processor_before = ProcessorTime();
  form.Run(wanted);
  const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  const double processor_ms = static_cast<double>((ProcessorTime() - processor_before).count()) / 1e3;

  std::printf("%d exchanges in %.2f s: %.2f a second, of %.0f at most\n", wanted, seconds, wanted / seconds,
              kMostPerSecond);
  std::printf(
      "%d ticks, %.3f ms apart: %d sent a request, %d ended a node, %d met a running exchange, %d lost\n",
      ticks.all, seconds * 1000 / ticks.all, ticks.sent, ticks.end_of_node, ticks.waiting,
      ticks.all - ticks.sent - ticks.end_of_node - ticks.waiting);
  std::printf("%.3f ms of processor time for an exchange, %.2f %% of one processor\n", processor_ms / wanted,
              processor_ms / seconds / 10);
}

}  // namespace
}  // namespace dosmara

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const int wanted = argc == 2 ? std::atoi(argv[1]) : 0;
  if (wanted <= 0) {
    std::fputs("usage: bench_exchange EXCHANGES\n", stderr);
    return 2;
  }
  dosmara::Run(wanted);
  return 0;
}
