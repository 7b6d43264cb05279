// SPDX-License-Identifier: GPL-3.0-or-later
// FrmConf with a machine of two Zeth units.
#pragma once

#include <QApplication>
#include <QRadioButton>
#include <QTimerEvent>

#include "forms/form_fixture.h"
#include "support/box_recorder.h"

namespace dosmara {

inline constexpr int kPositions = 48;

class ConfFixture : public FormFixture {
 protected:
  ConfFixture() { Open("FrmConf"); }

  void SendUnit(int node, int count = kPositions) {
    for (int n = 0; n < count; ++n) {
      Arrive(node, 328 + n, n % 90 + 1);
    }
  }
  void Fill(int options = 4) {
    Arrive(0, 361, options);
    SendUnit(2);
    SendUnit(3);
    Focus("Option1(0)");
    QApplication::processEvents();
  }

  QColor Ground(const std::string& box) { return Find(box).palette().color(QPalette::Base); }
  QColor Ink(const std::string& box) { return Find(box).palette().color(QPalette::Text); }
  QColor Standard() { return QApplication::palette("QLineEdit").color(QPalette::Base); }
  // The moment in which an entry is seen is over.
  void LetSee(const std::string& box) {
    auto* timer = Find(box).findChild<QTimer*>();
    ASSERT_TRUE(timer->isActive());
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
  }
  void EnterGroup(const std::string& box, const std::string& text) {
    Focus(box);
    Find<QLineEdit>(box).clear();
    Enter(box, text);
    LetSee(box);
  }
  bool On() { return Find<QRadioButton>("Option1(0)").isChecked(); }
  bool Off() { return Find<QRadioButton>("Option1(1)").isChecked(); }

  BoxRecorder screen_;
};

}  // namespace dosmara
