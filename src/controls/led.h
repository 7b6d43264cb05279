// SPDX-License-Identifier: GPL-3.0-or-later
// A lamp that shows one bit of the machine.
#pragma once

#include "controls/instrument.h"
#include "controls/lamp.h"

namespace dosmara {

// A lamp, on or off, which is unknown until it has been told.
class Led : public Instrument {
  Q_OBJECT
  Q_PROPERTY(bool on READ IsOn WRITE SetOn)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit Led(QWidget* parent, LampShape shape = LampShape::kRound);

  // Whether it is on; one that is not known is not.
  bool IsOn() const { return state_ == LampState::kOn; }
  // Shows on or off, which is then known.
  void SetOn(bool on) { SetState(on ? LampState::kOn : LampState::kOff); }

  bool IsKnown() const { return state_ != LampState::kUnknown; }
  // Forgets what it shows; a lamp that is to be known and is not yet is off.
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
