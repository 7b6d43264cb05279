// SPDX-License-Identifier: GPL-3.0-or-later
// A word that tells the state of something large.
#pragma once

#include <QColor>

#include "controls/field_label.h"

namespace dosmara {

// A bold word behind a disc of colour. The word is written in the ink of all others, so that it can be read
// on any ground, whatever the colour.
class StateLabel : public FieldLabel {
  Q_OBJECT
  Q_PROPERTY(QColor colour READ Colour WRITE SetColour)

 public:
  explicit StateLabel(QWidget* parent);

  // The colour of the disc.
  const QColor& Colour() const { return colour_; }
  void SetColour(const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_ = Qt::black;
};

}  // namespace dosmara
