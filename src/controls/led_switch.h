// SPDX-License-Identifier: GPL-3.0-or-later
// A push switch with a lamp, for an output of the machine.
#pragma once

#include <QAbstractButton>
#include <QRect>

#include "controls/lamp.h"

namespace dosmara {

// Where the parts of a switch lie: the lamp, and behind it the word.
struct LedSwitchGeometry {
  QRect lamp;
  QRect text;
  QSize size;
};

// Lays out a switch with a word of `width_of_text`, 0 for none, by the height of the text.
LedSwitchGeometry LayOutLedSwitch(int width_of_text, int height_of_text);

// A switch that never switches by itself: a press tells what the operator wishes, and the lamp shows what the
// program sets, which is not known at first. The word on the switch is the `text` of the button.
class LedSwitch : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(bool on READ IsOn WRITE SetOn)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit LedSwitch(QWidget* parent);

  // Whether the lamp is on. While it is not known it counts as off.
  bool IsOn() const { return isChecked(); }
  // Shows on or off, which is then known. `Wished` is not emitted.
  void SetOn(bool on);

  bool IsKnown() const { return known_; }
  // With false, the lamp forgets what it shows. With true, a lamp that was not known is off.
  void SetKnown(bool known);

  // The words of both states for a screen reader, "off,on".
  void SetStateTexts(const QString& off_and_on);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The operator wishes it on or off: the contrary of what the lamp shows.
  void Wished(bool on);

 protected:
  void nextCheckState() override {}
  void paintEvent(QPaintEvent* event) override;

 private:
  LedSwitchGeometry Geometry() const;
  LampState State() const;
  void Show(bool known, bool on);

  bool known_ = false;
  QString state_texts_ = "off,on";
};

}  // namespace dosmara
