// SPDX-License-Identifier: GPL-3.0-or-later
// The controls above a strip chart.
#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QStringList>
#include <QWidget>
#include <vector>

#include "controls/chart_view.h"

namespace dosmara {

// A check box and buttons by which the operator chooses what stretch of time a chart shows, and the keys that
// do the same wherever on the chart the focus is.
class ChartBar : public QWidget {
  Q_OBJECT

 public:
  // Moves `scroll`, which outlives the bar.
  ChartBar(QWidget* chart, ChartScroll& scroll);

  // Sets the words of the controls: Follow, Earlier, Later, Zoom in, Zoom out, Everything.
  void SetCaptions(const QStringList& captions);

  // Shows whether the chart follows its newest sample.
  void ShowFollowing();

 signals:
  // The operator has moved what the chart shows.
  void Moved();

 private:
  void AddKey(Qt::Key key, void (ChartScroll::*act)());
  void Move(void (ChartScroll::*act)());

  ChartScroll& scroll_;
  QCheckBox* follow_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace dosmara
