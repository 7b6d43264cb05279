// SPDX-License-Identifier: GPL-3.0-or-later
// The mark behind a value that tells what has become of a change.
#pragma once

#include <QWidget>

namespace dosmara {

// The mark is a ring while a value is on its way, a tick when the machine has sent it back, a crossed-out
// disc when the machine has sent another one instead, and else empty. The shapes can be told apart without
// colour.
class EchoMark : public QWidget {
  Q_OBJECT
  Q_PROPERTY(State state READ state)

 public:
  enum class State { kNone, kOnItsWay, kTaken, kNotTaken };
  Q_ENUM(State)

  explicit EchoMark(QWidget* parent);

  // A value has been written: it is on its way until something arrives.
  void Sent(double value);
  // A value has arrived. If it is the one that was written, the machine has taken that one. Any other value
  // says that it has not, which stands until the next change.
  void Came(double value);
  // Empties the mark.
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
