// SPDX-License-Identifier: GPL-3.0-or-later
// What the core costs beside the wire, as ratios that hold on any machine: the walk over idle records against
// summing the same bytes, and an arrival that nobody wants against as many empty calls.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMdiArea>
#include <algorithm>
#include <chrono>
#include <limits>
#include <numeric>
#include <vector>

#include "forms/form_list.h"
#include "link/link_engine.h"
#include "link/notification.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

template <typename Work>
double Seconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Measures two pieces of work turn by turn, so that both see the same machine. The time shown is that of the
// first; the counter "ratio" is first to second.
template <typename First, typename Second>
void Compare(benchmark::State& state, First first, Second second) {
  double first_total = 0;
  double second_total = 0;
  for (auto _ : state) {
    const double seconds = Seconds(first);
    state.SetIterationTime(seconds);
    first_total += seconds;
    second_total += Seconds(second);
  }
  state.counters["ratio"] = first_total / second_total;
}

// As many records as a node can count.
void IdlePass(benchmark::State& state) {
  constexpr std::int16_t kRecords = std::numeric_limits<std::int16_t>::max();
  NodeRecordCount[0] = kRecords;
  NodePresent[0] = true;
  const auto pass = [] {
    ScanCursor = 0;
    NodeIndex = 0;
    LinkScan();
    benchmark::ClobberMemory();
  };
  const auto sum = [] {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&ParamTable[0][0]);
    benchmark::DoNotOptimize(std::accumulate(bytes, bytes + kRecords * sizeof(ParamRec), 0U));
    benchmark::ClobberMemory();
  };
  Compare(state, pass, sum);
}
BENCHMARK(IdlePass)->UseManualTime();

class EmptyForm : public LoadedForm {
 public:
  void SLabelChange(std::int32_t /*index*/, double /*value*/) override {}
};

// Every form of the program, open and filled: each record that it wants has arrived.
void OpenAllForms(QMdiArea& area) {
  std::ranges::fill(NodePresent, true);
  for (const FormEntry& entry : FormList()) {
    Form* form = entry.create();
    area.addSubWindow(form);
    form->Load();
  }
  const Bytes reply = {4, 1};  // a value that opens every gate
  for (int node = 0; node < kNodeCount; ++node) {
    for (std::size_t record = 1; record < std::size(ParamTable[node]); ++record) {
      if (ParamTable[node][record].Subscribers > 0) {
        ParamTable[node][record].Flags |= kArrived;
        NodeIndex = static_cast<std::uint8_t>(node);
        NotifyForms(static_cast<std::int32_t>(record), reply);
      }
    }
  }
}

// An arrival with every form open, of a record that none of them shows, against an empty call for each.
void UnwantedArrival(benchmark::State& state) {
  constexpr int kRounds = 1000;  // one arrival is too short for the clock
  constexpr int kUnwanted = 700;
  QMdiArea area;
  OpenAllForms(area);
  std::vector<EmptyForm> empty_forms(FormList().size());
  std::vector<LoadedForm*> calls;
  for (EmptyForm& form : empty_forms) {
    calls.push_back(&form);
  }
  NodeIndex = 1;
  const Bytes reply = {57, 1};
  const auto arrivals = [&] {
    for (int i = 0; i < kRounds; ++i) {
      NotifyForms(kUnwanted, reply);
      benchmark::ClobberMemory();
    }
  };
  const auto empty_calls = [&] {
    for (int i = 0; i < kRounds; ++i) {
      for (LoadedForm* form : calls) {
        form->SLabelChange(kUnwanted, 57);
      }
      benchmark::ClobberMemory();
    }
  };
  Compare(state, arrivals, empty_calls);
  state.counters["forms"] = static_cast<double>(empty_forms.size());
  LoadedForms.clear();
}
BENCHMARK(UnwantedArrival)->UseManualTime();

}  // namespace
}  // namespace dosmara

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
}
