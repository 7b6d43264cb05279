// SPDX-License-Identifier: GPL-3.0-or-later
// A chart of measurements over elapsed time, as a recorder writes it on its strip.
#pragma once

#include <QColor>
#include <QPointF>
#include <QStringList>
#include <QWidget>
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "controls/chart_view.h"

namespace dosmara {

class ChartBar;
class ChartPlot;

// What tells one chart from another.
struct StripChartSetup {
  std::span<const QColor> colours;     // of the channels
  std::chrono::duration<double> span;  // of the view while it follows
  int time_ticks = 0;                  // major ticks in that span
  double low = 0;                      // ends of the scale of values, which both have a major tick
  double high = 0;
  int value_ticks = 0;
  int minor_ticks = 0;  // between two major ones, on both axes
};

// The words on a chart.
struct StripChartCaptions {
  QString name;          // of the chart, for a screen reader
  QString values;        // title of the axis of values
  QStringList channels;  // for the legend
  // The controls of the view: Follow, Earlier, Later, Zoom in, Zoom out, Everything.
  QStringList controls;
};

// Keeps all samples that it is given and draws once for each. It follows the newest one until the operator
// looks at something else, by the controls above the chart, by keys, by dragging the strip or by turning the
// wheel; from then on samples leave the view alone, until it is told to follow again.
class StripChart : public QWidget {
  Q_OBJECT
  Q_PROPERTY(bool following READ IsFollowing WRITE SetFollowing)

 public:
  // What `setup` points at outlives the chart.
  StripChart(QWidget* parent, const StripChartSetup& setup);

  // Adds a sample, no older than any other, with a value for each channel that has one. A line joins two
  // points of a channel if the numbers of their samples follow each other; the smallest number of 16 bits
  // follows the largest.
  void AddSample(std::int16_t number, std::chrono::duration<double> time,
                 std::span<const std::optional<double>> values);

  const StripChartSetup& Setup() const { return setup_; }
  const StripChartCaptions& Captions() const { return captions_; }
  void SetCaptions(const StripChartCaptions& captions);

  bool IsFollowing() const { return scroll_.IsFollowing(); }
  // Shows the newest samples, as wide a view as was set up, and moves on with each one to come; or lets the
  // view stand where it is.
  void SetFollowing(bool following);

  // The stretch of time in sight.
  const ChartView& View() const { return scroll_.View(); }

  // The lines of a channel, each with the points that it joins: seconds and value.
  std::vector<std::vector<QPointF>> Lines(int channel) const;

  QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Channel {
    std::optional<std::int16_t> last_number;  // of the sample of its last point
    std::optional<double> newest;             // its value in the newest sample
  };

  void ShowView();
  void TellValues();

  StripChartSetup setup_;
  StripChartCaptions captions_;
  ChartScroll scroll_;
  ChartBar* bar_;
  ChartPlot* plot_;
  std::vector<Channel> channels_;
};

}  // namespace dosmara
