// SPDX-License-Identifier: GPL-3.0-or-later
// What has become of each tick of the scan: for benchmarks.
#pragma once

#include <QEvent>
#include <QTimer>

#include "link/link_engine.h"

namespace dosmara {

// Counts while it lives.
class ScanTicks : public QObject {
 public:
  // `timer` is Timer1 of FrmSer.
  explicit ScanTicks(QTimer& timer) {
    timer.installEventFilter(this);
    connect(&timer, &QTimer::timeout, this, &ScanTicks::After);
  }

  bool eventFilter(QObject* /*timer*/, QEvent* event) override {
    if (event->type() == QEvent::Timer) {
      idle_before_ = LinkIdle;
    }
    return false;
  }

  int all = 0;
  int sent = 0;
  int end_of_node = 0;  // the scan has moved to the next node, which takes a tick
  int waiting = 0;      // the exchange before was still under way

 private:
  void After() {
    ++all;
    if (!idle_before_) {
      ++waiting;
    } else if (!LinkIdle) {
      ++sent;
    } else if (ScanCursor == 0) {
      ++end_of_node;
    }
  }

  bool idle_before_ = false;
};

}  // namespace dosmara
