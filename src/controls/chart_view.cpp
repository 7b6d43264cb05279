// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/chart_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace dosmara {

namespace {

// The share of a view that stays free at either edge, so that the marks of the first and the newest sample
// are not cut in half.
constexpr double kMargin = 1.0 / 120;

constexpr double kNarrowest = 10;
constexpr double kMinute = 60;
constexpr double kHour = 60 * kMinute;
constexpr double kDay = 24 * kHour;
constexpr double kSteps[] = {1,       2,           5,           10,           15,           30,
                             kMinute, 2 * kMinute, 5 * kMinute, 10 * kMinute, 15 * kMinute, 30 * kMinute,
                             kHour,   2 * kHour,   3 * kHour,   6 * kHour,    12 * kHour,   kDay};

constexpr double kStep = 0.5;  // of a view, from one press of Earlier to the next
constexpr double kZoom = 2;    // of one press of Zoom in

bool AreAlike(const ChartView& a, const ChartView& b) {
  const double tolerance = 1e-6 * b.Span();
  return std::abs(a.from - b.from) < tolerance && std::abs(a.to - b.to) < tolerance;
}

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

ChartScroll::ChartScroll(double span) : first_span_(span), span_(span), view_(NewestView(0, span)) {}

void ChartScroll::Extend(double newest) {
  newest_ = newest;
  if (following_) {
    view_ = NewestView(newest_, span_);
  }
}

void ChartScroll::Follow() {
  following_ = true;
  span_ = first_span_;
  view_ = NewestView(newest_, span_);
}

void ChartScroll::LookAt(const ChartView& wanted) {
  view_ = NearestView(wanted, newest_);
  following_ = following_ && AreAlike(view_, NewestView(newest_, span_));
}

void ChartScroll::Earlier() { Step(-kStep); }

void ChartScroll::Later() { Step(kStep); }

void ChartScroll::Everything() { LookAt(WholeView(newest_, first_span_)); }

void ChartScroll::ZoomIn() { ZoomAtMiddle(1 / kZoom); }

void ChartScroll::ZoomOut() { ZoomAtMiddle(kZoom); }

void ChartScroll::Zoom(double factor, double around) {
  if (following_) {
    span_ = NearestSpan(span_ * factor, newest_);
    view_ = NewestView(newest_, span_);
  } else {
    view_ = ZoomedView(view_, factor, around, newest_);
  }
}

void ChartScroll::Step(double share) {
  const double way = share * view_.Span();
  LookAt({view_.from + way, view_.to + way});
}

void ChartScroll::ZoomAtMiddle(double factor) { Zoom(factor, (view_.from + view_.to) / 2); }

double TickStep(double span, int most) {
  const auto fits = [&](double step) { return span < step * (most + 1); };
  const auto* const step = std::ranges::find_if(kSteps, fits);
  return step != std::end(kSteps) ? *step : std::ceil(span / kDay / most) * kDay;
}

}  // namespace dosmara
