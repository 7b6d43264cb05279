// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/frm_orologio.h"

#include <QBoxLayout>
#include <QGridLayout>

#include "controls/scaled_font.h"
#include "fields/numbering.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

using namespace orologio;

namespace {

// The clock is read from afar: its display is so many times as large as one in a row, its date as other text.
constexpr int kClockScale = 3;
constexpr int kDateScale = 2;
constexpr int kGap = 24;        // between the values that set it
constexpr int kBarLength = 18;  // in widths of the letter x

// The caption is the unit of the value and stands behind it; the bar lies below both.
QLayout* LayOutWithUnit(ValueRow& row) {
  auto* layout = new QGridLayout;
  layout->setSpacing(1);
  row.PlaceValueIn(*layout, 0, 0);
  layout->addWidget(&row.caption(), 0, 1);
  layout->addWidget(&row.echo(), 0, 2);
  row.bar().setFixedWidth(kBarLength * row.bar().fontMetrics().horizontalAdvance('x'));
  layout->addWidget(&row.bar(), 1, 0, 1, 3, Qt::AlignLeft);
  layout->setColumnStretch(1, 1);
  return layout;
}

// The caption of such a row is a unit. A screen reader also has to say what it is the hour or the day of.
void Speak(ValueRow& row, const QString& what) { row.SetSpokenName(what + ' ' + row.caption().text()); }

}  // namespace

FrmOrologio::FrmOrologio()
    : DataForm(kSetup),
      time_(NewRows({.caption = {"Label41"}, .value = {"Label4"}, .box = {"txtOrol"}, .bar = {"HScroll2"}},
                    kTimeRows)),
      date_(NewRows({.caption = {"Label5s"}, .value = {"Label5"}, .box = {"txtOrol", 2}, .bar = {"HScroll5"}},
                    kDateRows)),
      points_(NewRows({.caption = {"Label3"}, .value = {"Label1"}, .box = {"Text1"}, .bar = {"HScroll1"}},
                      kPointRows)),
      frame_(NewFrame("Frame1", kClockLine)),
      clock_(new SegmentClock(frame_)),
      label6_(NewReading("Label6", frame_)) {
  auto* layout = new QVBoxLayout(Body());
  layout->addWidget(frame_);
  FillClock();
  auto* frames = new QHBoxLayout;
  layout->addLayout(frames);
  for (const PointFrame& each : kPointFrames) {
    frames->addWidget(NewPoints(each));
  }
  layout->addStretch();
  Watch(points_, Counts::kYes);
  Hear(kPointMirrors, Counts::kNo, [](int, double) {});
  WatchClock(kToSet, &FrmOrologio::TakeAnswer);
  WatchClock(kTime, &FrmOrologio::TakeTime);
  Follow(Presenza, [this] { SetClockOpen(Presenza.IsOpen()); });
  WatchClock(kDate, &FrmOrologio::TakeDate);
  SetClockOpen(false);
  SetPointsOpen(false);
}

// A machine without a clock chip sends values for these records that mean nothing.
void FrmOrologio::WatchClock(const Records& records, void (FrmOrologio::*take)(int, double)) {
  const auto take_of_clock = [this, take](int n, double value) {
    if (Presenza.IsOpen()) {
      (this->*take)(n, value);
    }
  };
  Hear(records, Counts::kNo, take_of_clock);
}

// The running clock with its date, and beside it what sets the two.
void FrmOrologio::FillClock() {
  clock_->setObjectName("iSevenSegmentClockX1");
  clock_->setFixedSize(clock_->sizeHint() * kClockScale);
  label6_->setAlignment(Qt::AlignCenter);
  label6_->setFont(ScaledFont(label6_->font(), kDateScale));
  label6_->setFixedSize(clock_->width(), label6_->sizeHint().height());
  auto* layout = new QHBoxLayout(frame_);
  auto* running = new QVBoxLayout;
  layout->addLayout(running);
  running->addWidget(clock_);
  running->addWidget(label6_);
  layout->addSpacing(2 * kGap);
  auto* setting = new QGridLayout;
  layout->addLayout(setting);
  layout->addStretch();
  setting->setHorizontalSpacing(kGap);
  AddSetting(time_, *setting, 0);
  AddSetting(date_, *setting, 1);
}

void FrmOrologio::AddSetting(FieldRows& rows, QGridLayout& grid, int line) {
  for (int n = 0; n < rows.size(); ++n) {
    grid.addLayout(LayOutWithUnit(rows[n]), line, n);
  }
  rows.WhenChanged([this] { Modificato = true; });
}

// A time point is read as one line: its name, the hour, the minute.
QGroupBox* FrmOrologio::NewPoints(const PointFrame& points) {
  QGroupBox* frame = NewFrame(points.name, points.line);
  auto* grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(kGap / 2);  // a mark stands nearer to its own value than to the next one
  for (int k = points.first; k < points.first + points.count; ++k) {
    const TimePoint& point = kTimePoints[k];
    grid->addWidget(NewLabel(ControlArray{"Label2"}[k], point.line, point.number), k, 0, Qt::AlignTop);
    grid->addLayout(LayOutWithUnit(points_[2 * k]), k, 1);
    grid->addLayout(LayOutWithUnit(points_[2 * k + 1]), k, 2);
  }
  grid->setRowStretch(points.first + points.count, 1);
  return frame;
}

void FrmOrologio::InitMessaggi() {
  DataForm::InitMessaggi();
  const QString clock = Caption(kClockLine);
  clock_->setAccessibleName(clock);
  for (int n = 0; n < time_.size(); ++n) {
    Speak(time_[n], clock);
  }
  for (int n = 0; n < date_.size(); ++n) {
    date_[n].SetCaption(CaptionOr(kDateUnitLines[n], kDateUnits[n]));
    Speak(date_[n], clock);
  }
  for (const PointFrame& frame : kPointFrames) {
    for (int i = 2 * frame.first; i < 2 * (frame.first + frame.count); ++i) {
      const TimePoint& point = kTimePoints[i / 2];
      Speak(points_[i], Caption(frame.line) + ' ' + Numbered(Caption(point.line), point.number));
    }
  }
}

void FrmOrologio::SetClockOpen(bool open) {
  frame_->setEnabled(open);
  time_.SetEnabled(open);
  date_.SetEnabled(open);
}

// Names and units are never grey: they are headings of the values.
void FrmOrologio::SetPointsOpen(bool open) {
  points_.SetOpen(open);
  for (int i = 0; i < points_.size(); ++i) {
    points_[i].value().setEnabled(open);
  }
}

// An hour of 255 says that there is no time yet: the display stays as it is.
void FrmOrologio::TakeTime(int n, double value) {
  (n == kMinute ? Minuti : Ore) = LowBits(value);
  if (Ore > kLastHour || Minuti > kLastMinute) {
    return;
  }
  clock_->SetTime(TwoDigits(Ore) + ':' + TwoDigits(Minuti));
  if (PrimoOrario) {
    time_.Fill(0, Ore);
    time_.Fill(1, Minuti);
    PrimoOrario = false;
  }
}

void FrmOrologio::TakeDate(int n, double value) {
  std::optional<int>* const fields[] = {&Giorno, &Mese, &Anno};
  *fields[n] = LowBits(value) + (n == kYear ? kFirstYear : 0);
}

// The answers to a change come one record at a time. The first of the five ends the change; the others are
// not shown.
void FrmOrologio::TakeAnswer(int n, double value) {
  if (!Modificato) {
    return;
  }
  Modificato = false;
  if (n < time_.size()) {
    time_.Show(n, value);
  } else {
    TakeDate(n - time_.size(), value);
    ShowDataCorrente();
    date_.Show(n - time_.size(), value);
  }
}

void FrmOrologio::ShowDataCorrente() {
  if (IsDateKnown()) {
    label6_->setText(DateText(*Giorno, *Mese, *Anno));
  }
}

// The date that is shown goes on with the machine's, over midnight too.
void FrmOrologio::AfterArrival() {
  if (!ParamIsFresh(kMachineStatus, kMainBoard) || !Presenza.IsOpen() || !AllFresh(kDate)) {
    return;
  }
  ShowDataCorrente();
  if (PrimaData && IsDateKnown()) {
    date_.Fill(kDay, *Giorno);
    date_.Fill(kMonth, *Mese);
    date_.Fill(kYear, *Anno - kFirstYear);
    PrimaData = false;
  }
}

}  // namespace dosmara
