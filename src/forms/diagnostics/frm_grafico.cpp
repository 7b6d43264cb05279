// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/frm_grafico.h"

#include <QVBoxLayout>
#include <chrono>
#include <ratio>

#include "fields/machine_records.h"
#include "fields/tank_temperature.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

using Days = std::chrono::duration<double, std::ratio<86400>>;

constexpr FormSetup kSetup = {.name = "FrmGrafico", .title = 28};

// Lines of the language file.
constexpr int kTemperatureLine = 256;
constexpr int kChannelLines[] = {257, 258, 259};

// The words of the controls above the chart; a language file may be too old to have them.
constexpr struct {
  int line;
  const char* otherwise;
} kControls[] = {{644, "Scorri"},      {645, "Indietro"}, {646, "Avanti"},
                 {647, "Ingrandisci"}, {648, "Riduci"},   {649, "Tutto"}};

constexpr QColor kColours[] = {{255, 0, 0}, {0, 0, 255}, {0, 255, 255}};

constexpr StripChartSetup kChart = {.colours = kColours,
                                    .span = Days(0.000695),
                                    .time_ticks = 12,
                                    .low = -10,
                                    .high = 120,
                                    .value_ticks = 14,
                                    .minor_ticks = 4};

constexpr std::chrono::milliseconds kSampleInterval(4000);
constexpr double kSampleDays = 0.000046296296296296294;

}  // namespace

FrmGrafico::FrmGrafico()
    : DataForm(kSetup), chart_(new StripChart(Body(), kChart)), timer_(new QTimer(this)) {
  chart_->setObjectName("iStripChartX1");
  (new QVBoxLayout(Body()))->addWidget(chart_);
  timer_->setObjectName("Timer1");
  timer_->setTimerType(
      Qt::PreciseTimer);  // the chart draws samples as if they were exactly four seconds apart
  connect(timer_, &QTimer::timeout, this, &FrmGrafico::Sample);
  const auto store = [](int& presence) { return [&presence](double value) { presence = LowBits(value); }; };
  WatchTank(kZeth, Offset2, Zeth1);
  WatchTank(kZeth2, Offset3, Zeth2);
  Hear(kMainBoard, GateRecord(kZeth), Counts::kYes, store(Presenza2));
  Hear(kMainBoard, GateRecord(kHotDrinks), Counts::kYes, store(Presenza1));
  Hear(kMainBoard, GateRecord(kZeth2), Counts::kYes, store(Presenza3));
  Hear(kHotDrinks, kBoilerTemperature, Counts::kYes, [this](double value) { Caldaia = value; });
}

// A temperature that comes before its offset is not known yet.
void FrmGrafico::WatchTank(int node, int& offset, double& temperature) {
  Hear(node, kTankOffset, Counts::kYes,
       [&offset](double value) { offset = LowBits(value) - kTankOffsetOfZero; });
  Hear(node, kTankTemperature, Counts::kYes, [node, &offset, &temperature](double value) {
    if (ParamIsFresh(kTankOffset, node)) {
      temperature = TankTemperature(offset, value);
    }
  });
}

void FrmGrafico::Load() {
  DataForm::Load();
  timer_->start(kSampleInterval);
}

void FrmGrafico::InitMessaggi() {
  DataForm::InitMessaggi();
  StripChartCaptions captions = {
      .name = windowTitle(), .values = Caption(kTemperatureLine), .channels = {}, .controls = {}};
  for (const int line : kChannelLines) {
    captions.channels.append(Caption(line));
  }
  for (const auto& control : kControls) {
    captions.controls.append(CaptionOr(control.line, control.otherwise));
  }
  chart_->SetCaptions(captions);
}

// A closed form lives until the event loop is back; its timer must not fire meanwhile.
void FrmGrafico::Unload() {
  DataForm::Unload();
  timer_->stop();
}

// What has arrived last is drawn, whether or not it is fresh.
void FrmGrafico::Sample() {
  const auto of_board = [](int presence, double temperature) {
    return (presence & kInUse) != 0 ? std::optional(temperature) : std::nullopt;
  };
  const std::optional<double> values[] = {of_board(Presenza1, Caldaia), of_board(Presenza2, Zeth1),
                                          of_board(Presenza3, Zeth2)};
  chart_->AddSample(Campione, Days(XCorrente), values);
  Campione = static_cast<std::int16_t>(Campione + 1);
  XCorrente += kSampleDays;
}

}  // namespace dosmara
