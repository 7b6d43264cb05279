// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_opzioni.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "forms/selling/opzioni_tables.h"
#include "link/identification.h"

namespace dosmara {

using namespace opzioni;

namespace {

constexpr int kGap = 12;  // between the parts of a frame

// Lays the switches under each other, from `line` of the grid on.
void PlaceSwitches(BitRows& switches, QGridLayout& grid, int line) {
  for (int n = 0; n < switches.size(); ++n) {
    switches.PlaceIn(grid, n, line + n, 0);
  }
  grid.setColumnStretch(kSwitchColumns, 1);
}

}  // namespace

FrmOpzioni::FrmOpzioni()
    : BoardsForm(kSetup, kBoards, kGate),
      status_(kStatus),
      choices_(NewChoices(kChoices)),
      main_(NewBits(kMainBytes, kMainSwitches)) {
  auto* layout = new QHBoxLayout(Body());
  layout->addWidget(NewSystem());
  FillHotDrinks(Frame(0));
  layout->addWidget(Frame(0), 1);
  auto* units = new QVBoxLayout;
  for (std::size_t unit = 0; unit < std::size(kZethUnits); ++unit) {
    FillZeth(Frame(1 + unit), unit);
    units->addWidget(Frame(1 + unit));
  }
  units->addWidget(NewVersions());
  units->addStretch();
  layout->addLayout(units);
}

QGroupBox* FrmOpzioni::NewSystem() {
  QGroupBox* frame = NewFrame({}, kMainBoardLine);
  auto* layout = new QVBoxLayout(frame);
  auto* choices = new QGridLayout;
  layout->addLayout(choices);
  for (int n = 0; n < choices_.size(); ++n) {
    choices_.PlaceIn(*choices, n, n, 0);
  }
  auto* switches = new QGridLayout;
  layout->addSpacing(kGap);
  layout->addLayout(switches);
  main_.MakeSwitches(Body(), {"Label1"}, {"SwitchX1"});
  main_.SetWords(kWords);
  main_.caption(kCup).setObjectName("Label1(20)");
  main_.caption(kCup).setText(kCupCaption);
  main_.control(kCup).setAccessibleName(kCupCaption);
  AddHeading(*switches, "Label2", "Label3");
  PlaceSwitches(main_, *switches, 1);
  NumberBoxes& numbers = NewNumberBoxes({"Label6", kFirstNumberCaption}, {"Text1"}, kNumbers);
  auto* boxes = new QGridLayout;
  layout->addSpacing(kGap);
  layout->addLayout(boxes);
  numbers.PlaceIn(*boxes);
  layout->addStretch();
  Watch(choices_, Counts::kYes);
  Watch(main_, Counts::kNo);
  Watch(numbers, Counts::kYes);
  Hear(kMainBoard, kPaymentOptions, Counts::kYes, [this](double) { OpenPoint(); });
  Follow(status_, [this] {
    choices_.SetWords(kLanguage, (status_.presence & kEightLanguages) != 0 ? kEightWords : kFourWords);
  });
  return frame;
}

void FrmOpzioni::FillHotDrinks(QGroupBox* frame) {
  auto* layout = new QVBoxLayout(frame);
  FieldRows& settings = NewBoardRows(
      {.caption = {"Label6"}, .value = {"Label10"}, .box = {"Text2"}, .bar = {"HScroll1"}}, kSettings);
  auto* rows = new QGridLayout;
  layout->addLayout(rows);
  settings.PlaceInColumns(*rows, 1);
  for (int n = 0; n < settings.size(); ++n) {
    settings[n].SetCaption(QString::fromUtf8(kSettingCaptions[n]));
  }
  BitRows& switches = NewBits(kHotDrinksBytes, kHotDrinksSwitches);
  switches.MakeSwitches(Body(), {"Label1"}, {"SwitchX1"});
  switches.SetWords(kWords);
  auto* grid = new QGridLayout;
  layout->addSpacing(kGap);
  layout->addLayout(grid);
  const auto heading = AddHeading(*grid, "Label12", "Label13");
  PlaceSwitches(switches, *grid, 1);
  layout->addStretch();
  switches.SetEnabled(true);  // their frame opens and closes them
  Watch(switches, Counts::kYes);
  Hear(kHotDrinks, kHotDrinksBytes[0].record, Counts::kYes, [&switches](double value) {
    switches.SetEnabled(kDecaffeinated, (LowBits(value) & kFourthCanister) == 0);
  });
  if (ModelCode < kFirstModelWithPowderFirst) {
    switches.Hide(kPowderFirst);
    for (FieldLabel* word : heading) {
      word->hide();
    }
  }
}

void FrmOpzioni::FillZeth(QGroupBox* frame, std::size_t unit) {
  const ZethUnit& zeth = kZethUnits[unit];
  ChoiceRows& kind = NewChoices({&zeth.kind, 1});
  BitRows& switches = NewBits({&zeth.byte, 1}, zeth.switches);
  switches.MakeSwitches(Body(), zeth.captions, {"SwitchX1"});
  switches.SetWords(kWords);
  kind.SetEnabled(true);  // their frame opens and closes them
  switches.SetEnabled(true);
  auto* grid = new QGridLayout(frame);
  kind.PlaceIn(*grid, 0, 0, 0);
  PlaceSwitches(switches, *grid, 1);
  Watch(kind, Counts::kYes);
  Watch(switches, Counts::kYes);
}

QGroupBox* FrmOpzioni::NewVersions() {
  QGroupBox* frame = NewFrame({}, 0);
  auto* grid = new QGridLayout(frame);
  for (int n = 0; n < static_cast<int>(std::size(kVersions)); ++n) {
    auto* caption = new FieldLabel(frame);
    caption->setObjectName(ControlArray{"Label7s"}[n]);
    caption->setText(kVersions[n].caption);
    grid->addWidget(caption, n, 0);
    FieldLabel* value = NewReading(ControlArray{"Label7"}[n], frame);
    grid->addWidget(value, n, 1);
    Hear(kVersions[n].node, kVersions[n].record, Counts::kNo,
         [value](double tenths) { value->setText(TenthsText(tenths)); });
  }
  return frame;
}

std::array<FieldLabel*, 2> FrmOpzioni::AddHeading(QGridLayout& grid, const char* off, const char* on) {
  const std::array<FieldLabel*, 2> words = {NewLabel(off, kWords.off), NewLabel(on, kWords.on)};
  for (FieldLabel* word : words) {
    word->SetQuiet(true);
  }
  auto* heading = new QHBoxLayout;
  heading->addWidget(words[0]);
  heading->addStretch();
  heading->addWidget(words[1]);
  grid.addLayout(heading, 0, 1);
  return words;
}

// The options of the main board open last and open all, also the one whose bit lies in the first Zeth unit
// and that FollowBoard may just have closed with it.
void FrmOpzioni::Loaded() {
  BoardsForm::Loaded();
  main_.SetEnabled(true);
  choices_.SetEnabled(kPayment, true);
  choices_.SetEnabled(kLanguage, true);
  OpenPoint();
}

void FrmOpzioni::FollowBoard(int node, bool open) {
  BoardsForm::FollowBoard(node, open);
  if (node == kZeth) {
    main_.control(kCreditTimeout).setEnabled(open);
  }
}

void FrmOpzioni::OpenPoint() {
  const bool free = choices_.Position(kPayment) < kFirstWithItsOwnPoint;
  choices_.SetEnabled(kPoint, free && !Loading);
}

}  // namespace dosmara
