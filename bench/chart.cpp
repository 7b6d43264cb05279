// SPDX-License-Identifier: GPL-3.0-or-later
// What one sample of the chart costs with all that is drawn for it, when it holds as many as have a number:
// while it follows, and with all of them in sight.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPushButton>
#include <array>
#include <cmath>
#include <limits>

#include "controls/strip_chart.h"

namespace dosmara {
namespace {

constexpr int kSamples = std::numeric_limits<std::int16_t>::max();
constexpr std::chrono::seconds kInterval(4);

constexpr QColor kColours[] = {{255, 0, 0}, {0, 0, 255}, {0, 255, 255}};
constexpr StripChartSetup kSetup = {.colours = kColours,
                                    .span = std::chrono::seconds(60),
                                    .time_ticks = 12,
                                    .low = -10,
                                    .high = 120,
                                    .value_ticks = 14,
                                    .minor_ticks = 4};

// A chart on a window of its own, as large as the form gives it, with samples that go up and down.
class FilledChart {
 public:
  FilledChart() : chart_(nullptr, kSetup) {
    chart_.resize(chart_.sizeHint());
    chart_.show();
    for (int n = 0; n < kSamples; ++n) {
      Add();
    }
    QApplication::processEvents();
  }

  void Add() {
    const std::array<std::optional<double>, 3> values = {Wave(90, 5, 20), Wave(5, 3, 45), Wave(8, 4, 31)};
    chart_.AddSample(static_cast<std::int16_t>(number_), number_ * kInterval, values);
    ++number_;
  }

  StripChart& chart() { return chart_; }

 private:
  double Wave(double middle, double height, double period) const {
    return middle + height * std::sin(number_ / period);
  }

  StripChart chart_;
  int number_ = 0;
};

void Sample(benchmark::State& state, FilledChart& filled) {
  for (auto _ : state) {
    filled.Add();
    QApplication::processEvents();
  }
}

void SampleWhileFollowing(benchmark::State& state) {
  FilledChart filled;
  Sample(state, filled);
}
BENCHMARK(SampleWhileFollowing)->Unit(benchmark::kMillisecond);

void SampleWithEverythingInSight(benchmark::State& state) {
  FilledChart filled;
  filled.chart().findChild<QPushButton*>("Everything")->click();
  Sample(state, filled);
}
BENCHMARK(SampleWithEverythingInSight)->Unit(benchmark::kMillisecond);

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
