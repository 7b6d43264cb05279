// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/audit/frm_totali.h"

#include "link/identification.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr FormSetup kSetup = {.name = "FrmTotali", .title = 15};

// A run of totals in the frame of those that are never cleared, or in the frame of the others.
constexpr CounterRun ForLife(int record, int caption_line, int n) {
  return {.frame = "Frame1",
          .frame_line = 129,
          .goes_on = n > 0,
          .records = {kMainBoard, record},
          .caption = {"Label1", n},
          .line = caption_line,
          .value = {"Label4", n}};
}
constexpr CounterRun SinceCleared(int record, int count, int n) {
  return {.frame = "Frame2",
          .frame_line = 130,
          .goes_on = n > 0,
          .beside = true,
          .records = {kMainBoard, record, count},
          .caption = {"Label2", n},
          .line = 131 + n,
          .line_step = 1,
          .value = {"Label3", n}};
}

enum Run : std::size_t {
  kTakingsForLife,
  kVendsForLife,
  kOverpayForLife,
  kAmounts,  // takings, discounts, overpay
  kVends,    // paid and free
  kJugs,
  kTests,
  kPreselections,
};
constexpr CounterRun kRuns[] = {
    ForLife(127, 131, 0),    ForLife(123, 134, 1),    ForLife(332, 133, 2),    SinceCleared(128, 3, 0),
    SinceCleared(124, 2, 3), SinceCleared(131, 1, 5), SinceCleared(126, 1, 6), SinceCleared(336, 3, 7),
};

// Only the one model shows the overpay of its whole life; preselections are shown from the other one on.
constexpr int kOverpayModel = 21;
constexpr int kPreselectionModel = 22;

// Heights of the frames without these lines, at a scale of 100 %; a larger font takes more.
constexpr double kTwoTotalsTwips = 1155;
constexpr double kSevenTotalsTwips = 2535;
// Above and below the totals of a frame, so that two of them have room in their height.
constexpr int kMargin = 4;

}  // namespace

FrmTotali::FrmTotali() : CountersForm(kSetup, kRuns) {
  for (const Run run : {kTakingsForLife, kAmounts}) {
    QMargins margins = Grid(run).contentsMargins();
    margins.setTop(kMargin);
    margins.setBottom(kMargin);
    Grid(run).setContentsMargins(margins);
  }
  if (ModelCode != kOverpayModel) {
    Hide(kOverpayForLife);
    SetFrameHeight(kOverpayForLife, kTwoTotalsTwips);
  }
  if (ModelCode < kPreselectionModel) {
    Hide(kPreselections);
    SetFrameHeight(kPreselections, kSevenTotalsTwips);
  }
  Watch(money_, Counts::kNo);
  Hear(kMainBoard, kMoneyDecimals, Counts::kNo, [this](double) { RedrawAmounts(); });
}

// An amount waits for the decimals: their arrival draws it, or its own next one.
void FrmTotali::Show(std::size_t run, int n, double value) {
  if (run != kTakingsForLife && run != kOverpayForLife && run != kAmounts) {
    CountersForm::Show(run, n, value);
  } else if (money_.IsKnown() && ParamIsFresh(kMoneyDecimals, kMainBoard)) {
    ShowText(run, n, value, MoneyText(value, money_.decimals()));
  }
}

// All but the overpay for life, which waits for its own next arrival.
void FrmTotali::RedrawAmounts() {
  for (const Run run : {kTakingsForLife, kAmounts}) {
    const Records& records = kRuns[run].records;
    for (int n = 0; n < records.count; ++n) {
      if (ParamIsFresh(records.first + n, kMainBoard)) {
        Show(run, n, ParamGet(records.first + n, kMainBoard));
      }
    }
  }
}

void FrmTotali::Hide(std::size_t run) {
  for (int n = 0; n < kRuns[run].records.count; ++n) {
    CaptionOf(run, n).hide();
    Value(run, n).hide();
  }
}

void FrmTotali::SetFrameHeight(std::size_t run, double twips) {
  Value(run, 0).parentWidget()->setMinimumHeight(qRound(FromTwips(twips)));
}

}  // namespace dosmara
