// SPDX-License-Identifier: GPL-3.0-or-later
// A lamp that shows one bit of the machine.
#pragma once

#include "controls/instrument.h"
#include "controls/lamp.h"

namespace dosmara {

// A lamp that is on or off, or not known, which it is at first.
class Led : public Instrument {
  Q_OBJECT
  Q_PROPERTY(bool on READ IsOn WRITE SetOn)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit Led(QWidget* parent, LampShape shape = LampShape::kRound);

  // Whether the lamp is on. While it is not known it counts as off.
  bool IsOn() const { return state_ == LampState::kOn; }
  // Shows on or off, which is then known.
  void SetOn(bool on) { SetState(on ? LampState::kOn : LampState::kOff); }

  bool IsKnown() const { return state_ != LampState::kUnknown; }
  // With false, the lamp forgets what it shows. With true, a lamp that was not known is off.
  void SetKnown(bool known);

  // The words of its states for a screen reader, "off,on" or "off,on,not known".
  void SetStateTexts(const QString& words);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void SetState(LampState state);

  LampShape shape_;
  LampState state_ = LampState::kUnknown;
  QString state_texts_ = "off,on";
};

}  // namespace dosmara
