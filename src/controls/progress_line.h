// SPDX-License-Identifier: GPL-3.0-or-later
// A thin line that tells how far something is.
#pragma once

#include <QWidget>

namespace dosmara {

// Device pixels of a line of `width` device pixels that are filled when `arrived` of `total` have come. When
// all have come, or none is awaited, nothing is left to show: 0.
int FilledLength(int width, int arrived, int total);

// A line that fills from the left, and vanishes when all has come. It keeps its height then, so that nothing
// below it moves. It is painted anew only when its filled length changes by a device pixel.
class ProgressLine : public QWidget {
  Q_OBJECT
  Q_PROPERTY(double share READ Share)

 public:
  explicit ProgressLine(QWidget* parent);

  // Shows how many have come of how many; more than all is all.
  void SetShare(int arrived, int total);

  // What has come, 0 to 1.
  double Share() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int Filled() const;

  int arrived_ = 0;
  int total_ = 0;
};

}  // namespace dosmara
