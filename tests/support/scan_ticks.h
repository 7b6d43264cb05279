// SPDX-License-Identifier: GPL-3.0-or-later
// What has become of each tick of the scan: for benchmarks.
#pragma once

#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <algorithm>
#include <limits>

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
  double smallest_gap_ms = std::numeric_limits<double>::infinity();  // between two requests

 private:
  void After() {
    ++all;
    if (!idle_before_) {
      ++waiting;
    } else if (!LinkIdle) {
      ++sent;
      if (since_request_.isValid()) {
        smallest_gap_ms = std::min(smallest_gap_ms, static_cast<double>(since_request_.nsecsElapsed()) / 1e6);
      }
      since_request_.start();
    } else if (ScanCursor == 0) {
      ++end_of_node;
    }
  }

  bool idle_before_ = false;
  QElapsedTimer since_request_;
};

}  // namespace dosmara
