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

// The view that ends just behind the newest sample. As long as the samples do not fill a whole view, it
// begins at 0, and they fill it from the left.
ChartView NewestView(double newest, double span);

// The view with all samples, but no narrower than `least`.
ChartView WholeView(double newest, double least);

// The width nearest to `span` that a view may have: from ten seconds to an hour, or all samples if they are
// more.
double NearestSpan(double span, double newest);

// The view nearest to `wanted` that has a width it may have and shows neither time before the first sample
// nor time behind the newest.
ChartView NearestView(const ChartView& wanted, double newest);

// The view that is `factor` times as wide, as far as it may be. The time `around` stands where it stood.
ChartView ZoomedView(const ChartView& view, double factor, double around, double newest);

// What a chart shows while its strip grows. It follows the newest sample until the operator looks at
// something else; from then on samples leave the view alone, until it is told to follow again.
class ChartScroll {
 public:
  // `span`: how wide the view is when it begins to follow.
  explicit ChartScroll(double span);

  const ChartView& View() const { return view_; }
  bool IsFollowing() const { return following_; }

  // Tells the time of the newest sample.
  void Extend(double newest);

  // Shows the newest samples and goes on with each one to come.
  void Follow();
  // Lets the view stand where it is.
  void Stop() { following_ = false; }

  // Shows the view nearest to what the operator wants to see. Following ends, unless it would show that
  // anyway.
  void LookAt(const ChartView& wanted);

  // Moves half a view towards the first sample, or towards the newest.
  void Earlier();
  void Later();
  // Shows all samples.
  void Everything();
  // Shows half as much around the middle of the view, or twice as much.
  void ZoomIn();
  void ZoomOut();
  // Shows `factor` times as much around a time. A view that follows goes on following, with another width.
  void Zoom(double factor, double around);

 private:
  void Step(double share);
  void ZoomAtMiddle(double factor);

  double first_span_;
  double span_;  // while it follows
  double newest_ = 0;
  bool following_ = true;
  ChartView view_;
};

// The least round time from one tick to the next that gives a view no more than `most` + 1 ticks.
double TickStep(double span, int most);

}  // namespace dosmara
