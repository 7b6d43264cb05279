// SPDX-License-Identifier: GPL-3.0-or-later
// What is drawn on a strip chart, and the library that draws it.
#pragma once

#include <QObject>
#include <QPointF>
#include <QStringList>
#include <QWidget>
#include <vector>

#include "controls/chart_view.h"

class QCPGraph;
class QCustomPlot;

namespace dosmara {

struct StripChartSetup;

// Draws the points of all channels against axes and a legend, and tells how the mouse moves them. It shows
// what it is told to and decides nothing.
class ChartPlot : public QObject {
  Q_OBJECT

 public:
  // Becomes a child of `chart` and takes its palette and font; `setup` outlives it.
  ChartPlot(QWidget* chart, const StripChartSetup& setup);

  // The widget that it draws on, which the mouse and the focus go to.
  QWidget& Canvas();

  // Sets the title of the axis of values, and the names of the channels in the legend.
  void SetTitles(const QString& values, const QStringList& channels);

  // Adds a point, in seconds. It is joined by a line to the one before, unless it begins a line of its own.
  void AddPoint(int channel, const QPointF& point, bool begins_line);
  // The lines of a channel, each with the points that it joins.
  std::vector<std::vector<QPointF>> Lines(int channel) const;

  // Shows a stretch of time. However often it is told in a moment, it draws once.
  void Show(const ChartView& view);

  // Takes over the colours and the font of the chart as they are now.
  void Dress();

 signals:
  // The mouse has dragged the strip until it shows this.
  void Dragged(const ChartView& view);
  // The wheel asks for a view `factor` times as wide around a time.
  void Zoomed(double factor, double around);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SetUpAxes();
  void AddChannels();
  void SetUpMouse();
  double Width() const;
  void ChooseMarks();
  void Redraw();

  QWidget& chart_;
  const StripChartSetup& setup_;
  QCustomPlot* plot_;
  std::vector<QCPGraph*> graphs_;  // of the channels
  ChartView view_{};
  bool moving_ = false;  // the plot itself changes its range, not the mouse
};

}  // namespace dosmara
