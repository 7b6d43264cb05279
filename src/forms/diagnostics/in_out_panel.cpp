// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/in_out_panel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "fields/numbering.h"
#include "fields/tab_order.h"
#include "shell/caption_table.h"

namespace dosmara {

using namespace in_out;

namespace {

constexpr int kBoilerDigits = 3;
constexpr int kOutputRows = 7;
constexpr int kMargin = 4;
constexpr int kBelowCaption = 4;  // the gap shows which switch a caption belongs to
constexpr QMargins kMargins(kMargin, kMargin, kMargin, kMargin);

// Lines of the language file and the colour of a state of the test.
struct State {
  int button_line;
  int line;
  QColor colour;
};
constexpr State kTesting = {318, 320, QColor(0, 255, 0)};
constexpr State kNormal = {319, 321, QColor(255, 0, 0)};

}  // namespace

InOutPanel::InOutPanel()
    : DataForm(kSetup),
      drinks_(Body()),
      zeth_(kZeth, Body()),
      zeth2_(kZeth2, Body()),
      button_(new QPushButton(Body())),
      mark_(new WishMark(Body())),
      inputs_(NewBits(kInputBytes, kInputs)),
      boiler_(new SevenSegment(Body(), kBoilerDigits, 0)),
      state_(new StateLabel(Body())) {
  auto* above = new QHBoxLayout;
  above->addLayout(LayOutTest());
  above->addWidget(LayOutDrinks(), 1);
  auto* below = new QHBoxLayout;
  below->addWidget(LayOutZeth(zeth_, kZethControls));
  below->addWidget(LayOutZeth(zeth2_, kZeth2Controls));
  auto* all = new QVBoxLayout(Body());
  all->setContentsMargins(kMargins);
  all->addLayout(above);
  all->addLayout(below);
  all->addStretch();
  TabAsLaidOut(*Body());
  Watch(inputs_, Counts::kYes);
  Hear(kHotDrinks, kBoilerTemperature, Counts::kYes, [this](double value) { boiler_->SetValue(value); });
}

void InOutPanel::InitMessaggi() {
  DataForm::InitMessaggi();
  setWindowTitle(kTitle);
  const QString words = Caption(kOffOn.off) + ',' + Caption(kOffOn.on);
  for (const auto& [control, caption] : instruments_) {
    control->setAccessibleName(caption->text());
    if (auto* led = qobject_cast<Led*>(control)) {
      led->SetStateTexts(words);
    } else if (auto* led_switch = qobject_cast<LedSwitch*>(control)) {
      led_switch->SetStateTexts(words);
    }
  }
  mark_->SetCaptions();
  ShowState();
}

void InOutPanel::ShowState() {
  const State& state = TestAttivo ? kTesting : kNormal;
  button_->setText(Caption(state.button_line));
  state_->setText(Caption(state.line));
  state_->SetColour(state.colour);
}

// Makes the label that says what a control is, and names both.
FieldLabel* InOutPanel::NewCaption(QWidget* control, const QString& name, const QString& caption, int line,
                                   int number) {
  control->setObjectName(name);
  FieldLabel* label = NewLabel(caption, line, number, control->parentWidget());
  instruments_.push_back({control, label});
  return label;
}

// Inputs from `first` to before `end`: a lamp, and its caption behind it.
void InOutPanel::PlaceInputs(QGridLayout& grid, int first, int end) {
  grid.setVerticalSpacing(0);
  for (int n = first; n < end; ++n) {
    const BitRow& input = kInputs[n];
    auto* led = new Led(grid.parentWidget(), n < kMasterInputs ? LampShape::kRound : LampShape::kRectangular);
    inputs_.Bind(n, [led](bool on) { led->SetOn(on); });
    grid.addWidget(led, n - first, 0, Qt::AlignCenter);
    grid.addWidget(NewCaption(led, input.control[input.index], input.caption[input.index], input.line),
                   n - first, 1);
  }
  grid.setColumnStretch(1, 1);
}

QLayout* InOutPanel::LayOutTest() {
  button_->setObjectName("Command1");
  button_->setAutoDefault(true);  // Enter presses it, as it presses the switches
  state_->setObjectName("Label7");
  QGroupBox* master = NewFrame("Frame1", kMainBoardLine);
  auto* grid = new QGridLayout(master);
  grid->setContentsMargins(kMargins);
  PlaceInputs(*grid, 0, kMasterInputs);
  auto* layout = new QVBoxLayout;
  layout->addWidget(button_);
  layout->addWidget(state_);
  layout->addWidget(mark_);
  layout->addWidget(master);
  layout->addStretch();
  return layout;
}

// The temperature takes the place that the outputs leave.
QGroupBox* InOutPanel::LayOutDrinks() {
  drinks_.frame = NewFrame("Frame2", 284);
  auto* layout = new QHBoxLayout(drinks_.frame);
  layout->setContentsMargins(kMargins);
  auto* outputs = new QGridLayout(drinks_.outputs);
  outputs->setContentsMargins({});
  outputs->setVerticalSpacing(1);
  for (int i = 0; i < drinks_.outputs->Count(); ++i) {
    LedSwitch* led_switch = &drinks_.outputs->Switch(i);
    const int row = i % kOutputRows;
    const int column = i / kOutputRows * 2;
    outputs->addWidget(led_switch, row, column);
    outputs->addWidget(
        NewCaption(led_switch, ControlArray{"SwitchLed1"}[i], ControlArray{"Label4"}[i], kOutputs[i].line),
        row, column + 1);
    outputs->setColumnStretch(column + 1, 1);
  }
  auto* boiler = new QHBoxLayout;
  boiler->addWidget(NewCaption(boiler_, "iAnalogX1", "Label6", 283));
  boiler->addWidget(boiler_);
  boiler->addStretch();
  outputs->addLayout(boiler, kOutputRows - 2, outputs->columnCount() - 2, 2, 2);
  layout->addWidget(drinks_.outputs, 1, Qt::AlignTop);
  auto* inputs = new QGridLayout;
  layout->addLayout(inputs);
  PlaceInputs(*inputs, kMasterInputs, std::size(kInputs));
  return drinks_.frame;
}

QGroupBox* InOutPanel::LayOutZeth(ZethUnderTest& unit, const ZethControls& controls) {
  unit.frame = NewFrame(controls.frame, controls.line);
  auto* layout = new QVBoxLayout(unit.frame);
  layout->setContentsMargins(kMargins);
  for (int i = 0; i < unit.sectors->Count(); ++i) {
    FieldLabel* caption = NewCaption(&unit.sectors->Switch(i), controls.sector[i], controls.sector_caption[i],
                                     317, NumberOf(Numbering::kPosition, i));
    caption->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    caption->setFixedHeight(caption->fontMetrics().height() + kBelowCaption);
    unit.sectors->PlaceBelow(i, caption);
  }
  layout->addWidget(unit.sectors);
  auto* line = new QHBoxLayout;
  auto* compressor = new QHBoxLayout(unit.compressor);
  compressor->setContentsMargins({});
  LedSwitch* led_switch = &unit.compressor->Switch(0);
  compressor->addWidget(led_switch);
  compressor->addWidget(NewCaption(led_switch, controls.compressor, controls.compressor_caption, 323));
  line->addWidget(unit.compressor);
  line->addStretch();
  line->addWidget(NewCaption(unit.temperature, controls.temperature, controls.temperature_caption, 322));
  line->addWidget(unit.temperature);
  layout->addLayout(line);
  return unit.frame;
}

}  // namespace dosmara
