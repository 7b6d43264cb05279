// SPDX-License-Identifier: GPL-3.0-or-later
// The mark behind a value that tells what has become of a change.
#pragma once

#include <QWidget>

namespace dosmara {

// Empty, or a ring for a value on its way, a tick for one that the machine has sent back, a crossed-out disc
// for one in whose place the machine has sent another. The shapes can be told apart without colour.
class EchoMark : public QWidget {
  Q_OBJECT
  Q_PROPERTY(State state READ state)

 public:
  enum class State { kNone, kOnItsWay, kTaken, kNotTaken };
  Q_ENUM(State)

  explicit EchoMark(QWidget* parent);

  // A value has been written: it is on its way until something arrives.
  void Sent(double value);
  // A value has arrived. The one that was written is taken; any other says that the written one is not, which
  // stands until the next change.
  void Came(double value);
  // There is nothing to tell.
  void Clear() { SetState(State::kNone); }

  State state() const { return state_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void SetState(State state);

  State state_ = State::kNone;
  double sent_ = 0;
};

}  // namespace dosmara
