// SPDX-License-Identifier: GPL-3.0-or-later
// A word that tells the state of something large.
#pragma once

#include "controls/field_label.h"

namespace dosmara {

// A bold word behind a disc of colour. The word is written in the ink of all others, so that it can be read
// on any ground, whatever the colour.
class StateLabel : public FieldLabel {
  Q_OBJECT
  Q_PROPERTY(int colour READ Colour WRITE SetColour)

 public:
  explicit StateLabel(QWidget* parent);

  // The colour of the disc as a number: red in the low byte, then green, then blue. 255 is red.
  int Colour() const { return colour_; }
  void SetColour(int colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int colour_ = 0;
};

}  // namespace dosmara
