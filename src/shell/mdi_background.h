// SPDX-License-Identifier: GPL-3.0-or-later
// The area of the child forms, with a still picture behind them.
#pragma once

#include <QMdiArea>
#include <QPixmap>

namespace dosmara {

class MdiBackground : public QMdiArea {
 public:
  MdiBackground();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;  // for the size that the area has now
};

}  // namespace dosmara
