// SPDX-License-Identifier: GPL-3.0-or-later
// The mark behind a value that tells whether the machine has taken it.
#pragma once

#include <QWidget>

namespace dosmara {

// Empty, or a ring for a value on its way, or a tick for a value that the machine has sent back.
class EchoMark : public QWidget {
  Q_OBJECT

 public:
  enum class State { kNone, kWaiting, kTaken };

  explicit EchoMark(QWidget* parent);

  void SetState(State state);
  State state() const { return state_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  State state_ = State::kNone;
};

}  // namespace dosmara
