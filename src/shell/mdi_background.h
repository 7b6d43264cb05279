// SPDX-License-Identifier: GPL-3.0-or-later
// The area of the child forms, with a still picture behind them.
#pragma once

#include <QMdiArea>
#include <QSvgRenderer>
#include <memory>

namespace dosmara {

class MdiBackground : public QMdiArea {
 public:
  MdiBackground();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::unique_ptr<QSvgRenderer> picture_;
};

}  // namespace dosmara
