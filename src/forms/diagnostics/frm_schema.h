// SPDX-License-Identifier: GPL-3.0-or-later
// The hydraulic diagram: a drawing of the machine with the live state of its outputs and inputs.
#pragma once

#include <vector>

#include "controls/led.h"
#include "controls/seven_segment.h"
#include "controls/thermometer.h"
#include "fields/data_form.h"
#include "forms/diagnostics/schema_drawing.h"

namespace dosmara {

// Shows the board of the hot drinks and writes nothing.
class FrmSchema : public DataForm {
 public:
  FrmSchema();

  void Load() override;
  void InitMessaggi() override;

 private:
  struct Lamp {
    Led* led;
    QLabel* caption;
    int line;
  };

  void AddLamp(const ControlArray& leds, const ControlArray& captions, int n, LampShape shape,
               const LampPlace& place);

  SchemaDrawing* drawing_;
  Thermometer* thermometer_;
  SevenSegment* display_;
  std::vector<Lamp> lamps_;  // the outputs, then the inputs
  std::vector<QLabel*> legend_;
};

}  // namespace dosmara
