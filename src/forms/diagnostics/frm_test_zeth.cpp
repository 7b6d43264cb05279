// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/frm_test_zeth.h"

#include <QVBoxLayout>
#include <array>
#include <optional>
#include <utility>

#include "controls/scaled_font.h"
#include "controls/unit_keypad.h"
#include "fields/data_form.h"
#include "fields/numbering.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr Records kPosition = {kMainBoard, kTestSelection, 2};  // column and row, behind the command
constexpr Records kUnitLetter = {kMainBoard, 358};
constexpr int kBeforeFirstColumn = 38;  // the record numbers columns from 39 on, behind the selections
constexpr int kRowUnit = 16;
constexpr int kRun = 2;
constexpr int kPatience = 2000;  // ms
constexpr int kMotorsToZero = 3;
constexpr int kMotorsRun = 2;

constexpr double kChoiceScale = 2.5;
constexpr int kGap = 8;  // keeps a finger that slips off the keypad from the motors

// These records are only written; the close releases them as if they had been read.
template <int kNode>
constexpr Records kOnlyWritten[] = {{kMainBoard, kTestCommand, 3}, kUnitLetter, {kNode, kUnitCommand}};

// What tells the two windows apart.
struct Window {
  FormSetup setup;
  int node;
  char letter;
  int zero_line;
  int title_line;
};

constexpr Window kWindows[] = {
    {{.name = "FrmTestZeth", .title = 33, .also_released = kOnlyWritten<kZeth>}, kZeth, 'V', 330, 331},
    {{.name = "FrmTestZeth2", .title = 45, .also_released = kOnlyWritten<kZeth2>}, kZeth2, 'W', 334, 335}};

// What the table holds of letter, row and column.
std::array<double, 3> PositionHeld() {
  return {ParamGet(kUnitLetter.first, 0), ParamGet(kTestPart, 0), ParamGet(kTestSelection, 0)};
}

class FrmTestZeth : public DataForm {
 public:
  explicit FrmTestZeth(const Window& window);

  void InitMessaggi() override;

 private:
  void LayOut();
  void Press(int zone);
  void SendCommand();
  // Takes a status. When its bit `mask` has been set and is clear again, what the window waits for has ended.
  void TakeBusy(double status, int mask, bool& has_been_busy);
  void StartAnew();
  void Choose(int row, int column);
  void SetOpen(bool open);

  const Window& window_;
  FieldLabel* choice_;
  UnitKeypad* keypad_;
  QPushButton* zero_;
  QTimer* timer_;
  int Riga = 0;     // 1 to 6, 0: none
  int Colonna = 0;  // 1 to 8, 0: none
  Gate PresenzaZeth;
  bool Occupato = false;                      // the main board has been dispensing
  bool MotoreInMoto = false;                  // the motors of the unit have been running
  std::optional<std::array<double, 3>> due_;  // what has been sent, the command for it not yet
};

FrmTestZeth::FrmTestZeth(const Window& window)
    : DataForm(window.setup),
      window_(window),
      choice_(NewReading("Label2(1)")),
      keypad_(new UnitKeypad(Body())),
      zero_(NewButton("Command1", window.zero_line)),
      timer_(new QTimer(this)),
      PresenzaZeth{.record = GateRecord(window.node)} {
  LayOut();
  timer_->setObjectName("Timer1");
  timer_->setSingleShot(true);
  timer_->setInterval(kPatience);
  connect(timer_, &QTimer::timeout, this, [this] {
    Occupato = false;
    StartAnew();
  });
  connect(keypad_, &UnitKeypad::Pressed, this, &FrmTestZeth::Press);
  connect(zero_, &QPushButton::clicked, this, [this] {
    SetOpen(false);
    Choose(0, 0);
    PutRecord(window_.node, kUnitCommand, kMotorsToZero);
  });
  Hear(kMainBoard, kMachineStatus, Counts::kYes, [this](double value) {
    TakeBusy(value, kStatusDispensing, Occupato);
    if (Occupato) {
      timer_->stop();
    }
  });
  Hear(window.node, kUnitStatus, Counts::kYes,
       [this](double value) { TakeBusy(value, kMotorsRun, MotoreInMoto); });
  Follow(PresenzaZeth, [this] { SetOpen(PresenzaZeth.IsOpen()); });
  for (const int record : {kPosition.first, kPosition.first + 1, kUnitLetter.first}) {
    HearEcho(kMainBoard, record, [this](double) { SendCommand(); });
  }
  Choose(0, 0);
  SetOpen(false);
}

void FrmTestZeth::LayOut() {
  choice_->setFont(ScaledFont(choice_->font(), kChoiceScale));
  choice_->setAlignment(Qt::AlignCenter);
  keypad_->setObjectName("Image1");
  for (int zone = 0; zone < keypad_->Count(); ++zone) {
    keypad_->Key(zone).setObjectName(ControlArray{"Label1"}[zone]);
  }
  auto* layout = new QVBoxLayout(Body());
  layout->addWidget(NewLabel("Label2(0)", window_.title_line), 0, Qt::AlignHCenter);
  layout->addWidget(choice_);
  layout->addWidget(keypad_, 0, Qt::AlignHCenter);
  layout->addSpacing(kGap);
  layout->addWidget(zero_);
  layout->addStretch();
}

void FrmTestZeth::InitMessaggi() {
  DataForm::InitMessaggi();
  zero_->setText(CaptionOr(window_.zero_line, "Set zero motori"));
  keypad_->setAccessibleName(Caption(window_.title_line));
}

void FrmTestZeth::Press(int zone) {
  if (Riga == 0 && zone < kPositionRows) {
    Choose(zone + 1, 0);
  } else if (Riga != 0 && zone < kPositionColumns) {
    Choose(Riga, zone + 1);
    SetOpen(false);
    PutRecord(kMainBoard, kUnitLetter.first, window_.letter);
    PutRecord(kMainBoard, kTestPart, Riga * kRowUnit);
    PutRecord(kMainBoard, kTestSelection, Colonna + kBeforeFirstColumn);
    due_ = PositionHeld();
    timer_->start();
  }
}

// The command is sent only if the table still holds what was sent: another window may have sent another
// position since, or a failing line have brought an old one back.
void FrmTestZeth::SendCommand() {
  if (AllFresh(kPosition) && AllFresh(kUnitLetter) && std::exchange(due_, {}) == PositionHeld()) {
    PutRecord(kMainBoard, kTestCommand, kRun);
  }
}

void FrmTestZeth::TakeBusy(double status, int mask, bool& has_been_busy) {
  if ((LowBits(status) & mask) != 0) {
    has_been_busy = true;
  } else if (std::exchange(has_been_busy, false)) {
    StartAnew();
  }
}

// A test of any window may have ended. The keypad opens unless the unit is not there.
void FrmTestZeth::StartAnew() {
  Choose(0, 0);
  const int record = PresenzaZeth.record;
  SetOpen(ParamIsFresh(record, kMainBoard) && (LowBits(ParamGet(record, kMainBoard)) & kInUse) != 0);
}

void FrmTestZeth::Choose(int row, int column) {
  const auto digit = [](int n) { return n != 0 ? QString::number(n) : QString("_"); };
  Riga = row;
  Colonna = column;
  choice_->setText(digit(row) + ' ' + digit(column));
}

// The button goes first: its focus then goes to the keypad, which keeps it while it is closed.
void FrmTestZeth::SetOpen(bool open) {
  zero_->setEnabled(open);
  keypad_->SetOpen(open);
}

}  // namespace

Form* NewPeripheralTest(int node) { return new FrmTestZeth(kWindows[node - kZeth]); }

}  // namespace dosmara
