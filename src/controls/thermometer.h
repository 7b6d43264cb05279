// SPDX-License-Identifier: GPL-3.0-or-later
// A temperature as a thermometer shows it.
#pragma once

#include <QRectF>
#include <vector>

#include "controls/instrument.h"

namespace dosmara {

// The lines of the scale, at 0, 10, 20 ... 120 degrees.
inline constexpr int kThermometerTicks = 13;

// Where the parts of a thermometer lie.
struct ThermometerGeometry {
  QRectF bulb;
  QRectF tube;                // from the bulb to above the last line
  QRectF column;              // the filled part of the tube
  std::vector<double> ticks;  // heights of the lines, from 0 upwards
  double tick_left = 0;       // where the lines and the numbers begin
  double number_left = 0;
};

// Lays a thermometer of `size` out. A column whose value is off the scale ends a little beyond the scale.
ThermometerGeometry LayOutThermometer(QSize size, int height_of_text, double value);

// A thermometer from 0 to 120 degrees. It is empty until a value has come.
class Thermometer : public Instrument {
  Q_OBJECT
  Q_PROPERTY(double value READ Value WRITE SetValue)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit Thermometer(QWidget* parent);

  // The value as it was given, on the scale or off it; 0 while it is not known.
  double Value() const { return value_; }
  void SetValue(double value);

  bool IsKnown() const { return known_; }
  // With false, the thermometer forgets the value. With true, a value that was not known is 0.
  void SetKnown(bool known);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Show(bool known, double value);

  double value_ = 0;
  bool known_ = false;
};

}  // namespace dosmara
