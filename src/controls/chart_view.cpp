// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/chart_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace dosmara {

namespace {

// Shares of a view that stay free at either edge, so that the first and the newest sample are not cut in
// half.
constexpr double kMargin = 1.0 / 120;

constexpr double kNarrowest = 10;
constexpr double kMinute = 60;
constexpr double kHour = 60 * kMinute;
constexpr double kDay = 24 * kHour;
constexpr double kSteps[] = {1,       2,           5,           10,           15,           30,
                             kMinute, 2 * kMinute, 5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute,
                             kHour,   2 * kHour,   3 * kHour,   6 * kHour,    12 * kHour,   kDay};

}  // namespace

ChartView NewestView(double newest, double span) {
  const double margin = span * kMargin;
  const double to = std::max(newest + margin, span - margin);
  return {to - span, to};
}

ChartView WholeView(double newest, double least) {
  return NewestView(newest, std::max(newest / (1 - 2 * kMargin), least));
}

double NearestSpan(double span, double newest) {
  return std::clamp(span, kNarrowest, WholeView(newest, kHour).Span());
}

ChartView NearestView(const ChartView& wanted, double newest) {
  const double span = NearestSpan(wanted.Span(), newest);
  const double first = NewestView(0, span).from;
  const double last = NewestView(newest, span).from;
  const double from = std::clamp((wanted.from + wanted.to - span) / 2, first, last);
  return {from, from + span};
}

ChartView ZoomedView(const ChartView& view, double factor, double around, double newest) {
  const double allowed = NearestSpan(view.Span() * factor, newest) / view.Span();
  const ChartView zoomed = {around - (around - view.from) * allowed, around + (view.to - around) * allowed};
  return NearestView(zoomed, newest);
}

double TickStep(double span, int most) {
  const auto fits = [&](double step) { return span < step * (most + 1); };
  const auto* const step = std::ranges::find_if(kSteps, fits);
  return step != std::end(kSteps) ? *step : std::ceil(span / kDay / most) * kDay;
}

}  // namespace dosmara
