// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/frm_schema.h"

#include <QHBoxLayout>
#include <array>

#include "fields/machine_records.h"
#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {

namespace {

constexpr FormSetup kSetup = {.name = "FrmSchema", .title = 34};

constexpr int kDigits = 3;

// Inputs, then outputs. Nothing shows the third byte of inputs.
constexpr BitRecord kBytes[] = {{kHotDrinks, 544}, {kHotDrinks, 545}, {kHotDrinks, 546}, {kHotDrinks, 547},
                                {kHotDrinks, 548}, {kHotDrinks, 549}, {kHotDrinks, 550}};
enum { kInputs1, kInputs2, kInputs3, kOutputs1, kOutputs2 };

constexpr int kOutputs = std::size(kOutputPlaces);
constexpr int kInputs = std::size(kInputPlaces);
constexpr int kSecondRinse = 27;   // shows the same bit as the first
constexpr int kWaterFill = 8;      // the one input that is not of the first byte
constexpr int kModelWithout = 20;  // has neither of these two

// A row for each lamp, in the order of their places.
constexpr auto kBits = [] {
  std::array<BitRow, kOutputs + kInputs> rows;
  for (int i = 0; i < kOutputs; ++i) {
    rows[i] = {.byte = kOutputs1 + i / 8, .mask = 1 << i % 8};
  }
  rows[kSecondRinse] = {.byte = kOutputs2, .mask = 128};
  for (int i = 0; i < kInputs; ++i) {
    rows[kOutputs + i] = {.byte = kInputs1, .mask = 1 << i, .active_low = true};
  }
  rows[kOutputs + kWaterFill] = {.byte = kInputs2, .mask = 2, .active_low = true};
  return rows;
}();

// Lines of the language file.
constexpr int kFirstLegend = 373;
constexpr int kBoiler = 378;
constexpr int kTemperatureWord = 322;
constexpr int kNotKnown = 650;  // a language file may be too old to have it
constexpr const char* kNotKnownOtherwise = "Non ancora noto";

}  // namespace

FrmSchema::FrmSchema()
    : DataForm(kSetup),
      drawing_(new SchemaDrawing(Body())),
      thermometer_(new Thermometer(drawing_)),
      display_(new SevenSegment(drawing_, kDigits, 0)) {
  drawing_->setObjectName("Image1");
  auto* layout = new QHBoxLayout(Body());
  layout->setContentsMargins({});
  layout->addWidget(drawing_);
  for (int i = 0; i < kOutputs; ++i) {
    AddLamp({"Led"}, {"LedCaption"}, i, LampShape::kRound, kOutputPlaces[i]);
  }
  for (int i = 0; i < kInputs; ++i) {
    AddLamp({"iLed"}, {"iLedCaption"}, i, LampShape::kRectangular, kInputPlaces[i]);
  }
  for (int i = 0; const LegendPlace& place : kLegendPlaces) {
    auto* word = new QLabel(drawing_);
    word->setObjectName(ControlArray{"Label1"}[i++]);
    drawing_->Add(word, place);
    legend_.push_back(word);
  }
  thermometer_->setObjectName("iThermometerX1");
  drawing_->Add(thermometer_, kThermometerPlace);
  display_->setObjectName("iSevenSegmentAnalogX1");
  drawing_->Add(display_, kDisplayPlace);

  BitRows& bits = NewBits(kBytes, kBits);
  for (int n = 0; n < bits.size(); ++n) {
    bits.Bind(n, [this, n](bool on) { drawing_->SetOn(n, on); });
  }
  Watch(bits, Counts::kYes);
  Hear(kHotDrinks, kBoilerTemperature, Counts::kYes, [this](double value) {
    thermometer_->SetValue(LowBits(value));
    display_->SetValue(LowBits(value));
  });
}

void FrmSchema::AddLamp(const ControlArray& leds, const ControlArray& captions, int n, LampShape shape,
                        const LampPlace& place) {
  auto* led = new Led(drawing_, shape);
  led->setObjectName(leds[n]);
  auto* caption = new QLabel(drawing_);
  caption->setObjectName(captions[n]);
  drawing_->Add(led, caption, place);
  lamps_.push_back({led, caption, place.line});
}

void FrmSchema::Load() {
  if (ModelCode == kModelWithout) {
    for (const int lamp : {kSecondRinse, kOutputs + kWaterFill}) {
      lamps_[lamp].led->hide();
      lamps_[lamp].caption->hide();
    }
  }
  DataForm::Load();
}

void FrmSchema::InitMessaggi() {
  DataForm::InitMessaggi();
  const QStringList words = {Caption(kOffOn.off), Caption(kOffOn.on),
                             CaptionOr(kNotKnown, kNotKnownOtherwise)};
  const QString states = words.join(',');
  for (const Lamp& lamp : lamps_) {
    lamp.caption->setText(Caption(lamp.line));
    lamp.led->setAccessibleName(Caption(lamp.line));
    lamp.led->SetStateTexts(states);
  }
  for (int i = 0; QLabel* const word : legend_) {
    word->setText(Caption(kFirstLegend + i++));
  }
  const QString temperature = Caption(kBoiler) + ": " + Caption(kTemperatureWord);
  thermometer_->setAccessibleName(temperature);
  display_->setAccessibleName(temperature);
}

}  // namespace dosmara
