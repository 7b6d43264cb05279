// SPDX-License-Identifier: GPL-3.0-or-later
// Which stretch of time a strip chart shows. All times are seconds on its axis, where samples stand from 0 up
// to the newest.
#pragma once

namespace dosmara {

struct ChartView {
  double from;
  double to;

  constexpr double Span() const { return to - from; }
};

// The view that ends just behind the newest sample. As long as the samples fill no whole view it stays at the
// beginning, and they fill it from the left.
ChartView NewestView(double newest, double span);

// The view with all samples, but no narrower than `least`.
ChartView WholeView(double newest, double least);

// The width next to `span` that a view may have: from ten seconds to an hour, or all samples if they are
// more.
double NearestSpan(double span, double newest);

// The view next to `wanted` that has a width it may have and shows neither time before the first sample nor
// time behind the newest.
ChartView NearestView(const ChartView& wanted, double newest);

// The view `factor` times as wide, as far as it may be, in which the time `around` stands where it stood.
ChartView ZoomedView(const ChartView& view, double factor, double around, double newest);

// The round time from one tick to the next that gives a view about `most` ticks, and never two more.
double TickStep(double span, int most);

}  // namespace dosmara
