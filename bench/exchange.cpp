// SPDX-License-Identifier: GPL-3.0-or-later
// bench_exchange EXCHANGES
//
// How much of the line's pace the tool reaches over a real pseudo-terminal while the form with the doses is
// open, and what an exchange costs: first with the records of that form always due, beside a bare program
// that sends the same frames to the same machine, then with every record of every board.
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QSerialPort>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "link/frame.h"
#include "store/index_files.h"
#include "store/parameter_table.h"
#include "support/process_figures.h"
#include "support/scan_ticks.h"
#include "support/tool_rig.h"

namespace dosmara {
namespace {

constexpr double kMostPerSecond = 25;  // one exchange for each tick of 40 ms

// A request and the number of bytes that answer it.
struct Exchange {
  Bytes request;
  qint64 reply_bytes;
};

// The least that a Qt program does for the same exchanges: a tick, a frame, its reply and the check.
class BareProgram {
 public:
  BareProgram(const QString& device, const std::vector<Exchange>& exchanges)
      : port_(device), exchanges_(exchanges) {
    port_.setBaudRate(QSerialPort::Baud19200);
    port_.open(QIODevice::ReadWrite);
    tick_.setTimerType(Qt::PreciseTimer);
    tick_.setInterval(40);
    QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] { Send(); });
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { Receive(); });
  }

  // Lets so many exchanges run.
  void Run(int exchanges) {
    left_ = exchanges;
    tick_.start();
    loop_.exec();
    tick_.stop();
  }

 private:
  void Send() {
    if (waiting_) {
      return;
    }
    waiting_ = true;
    const Bytes& request = exchanges_[next_].request;
    port_.write(reinterpret_cast<const char*>(request.data()), static_cast<qint64>(request.size()));
    port_.flush();
  }

  void Receive() {
    if (port_.bytesAvailable() < exchanges_[next_].reply_bytes) {
      return;
    }
    const QByteArray reply = port_.readAll();
    const Bytes bytes(reply.begin(), reply.end());
    if (!IsGoodReadReply(bytes, bytes.size() - 1)) {
      std::fputs("a bad reply\n", stderr);
    }
    waiting_ = false;
    next_ = (next_ + 1) % exchanges_.size();
    if (--left_ == 0) {
      loop_.quit();
    }
  }

  QSerialPort port_;
  const std::vector<Exchange>& exchanges_;
  QTimer tick_;
  QEventLoop loop_;
  std::size_t next_ = 0;
  bool waiting_ = false;
  int left_ = 0;
};

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

// The reads of all records that somebody shows.
std::vector<Exchange> SubscribedExchanges() {
  std::vector<Exchange> exchanges;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int index = 1; index < NodeRecordCount[node]; ++index) {
      const ParamRec& record = ParamTable[node][index];
      if (record.Subscribers == 0) {
        continue;
      }
      Bytes frame = EncodeRequest({.control = record.Control,
                                   .bank = record.Bank,
                                   .addr_hi = record.AddrHi,
                                   .addr_lo = record.AddrLo,
                                   .letter = NodeLetter[node]});
      exchanges.push_back({std::move(frame), (record.Control & kLengthMask) + 2});
    }
  }
  return exchanges;
}

// What a run has taken.
struct Cost {
  double seconds;
  double processor_ms;
};

template <typename Work>
Cost Measure(const Work& work) {
  QElapsedTimer clock;
  clock.start();
  const auto processor_before = ProcessorTime();
  work();
  return {static_cast<double>(clock.nsecsElapsed()) / 1e9,
          static_cast<double>((ProcessorTime() - processor_before).count()) / 1e3};
}

// Runs exchanges of the tool and prints their pace. Returns the processor time of one in milliseconds.
double RunTool(const char* what, MDIForm1& window, Insatiable& form, int wanted) {
  ScanTicks ticks(*window.findChild<QWidget*>("FrmSer")->findChild<QTimer*>("Timer1"));
  const Cost cost = Measure([&] { form.Run(wanted); });
  std::printf("%s: %d exchanges in %.2f s: %.2f a second, of %.0f at most; requests %.2f ms apart at least\n",
              what, wanted, cost.seconds, wanted / cost.seconds, kMostPerSecond, ticks.smallest_gap_ms);
  std::printf(
      "  %d ticks, %.3f ms apart: %d sent a request, %d ended a node, %d met a running exchange, %d lost\n",
      ticks.all, cost.seconds * 1000 / ticks.all, ticks.sent, ticks.end_of_node, ticks.waiting,
      ticks.all - ticks.sent - ticks.end_of_node - ticks.waiting);
  std::printf("  %.3f ms of processor time for an exchange, %.2f %% of one processor\n",
              cost.processor_ms / wanted, cost.processor_ms / cost.seconds / 10);
  return cost.processor_ms / wanted;
}

void Run(int wanted) {
  ToolRig rig;
  rig.StartMachine();
  MDIForm1& window = rig.StartTool();
  window.findChild<QAction*>("smnuDosi")->trigger();
  const std::vector<Exchange> shown = SubscribedExchanges();
  Insatiable form;
  form.Run(std::min(wanted, static_cast<int>(shown.size())));  // the form fills
  const double of_tool = RunTool("records of the doses", window, form, wanted);

  SubscribeEverything();
  RunTool("all records", window, form, wanted);

  window.findChild<FrmSer*>("FrmSer")->Unload();
  BareProgram bare(QFileInfo(rig.PortLink(1)).symLinkTarget(), shown);
  const double of_bare = Measure([&] { bare.Run(wanted); }).processor_ms / wanted;
  std::printf("records of the doses in a bare program: %.3f ms of processor time for an exchange\n", of_bare);
  std::printf("the tool takes %.2f times as much\n", of_tool / of_bare);
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
