// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_conf.h"

#include <QButtonGroup>
#include <QPointer>
#include <algorithm>

#include "fields/numbering.h"
#include "forms/selling/group_boxes.h"
#include "shell/caption_table.h"
#include "shell/msg_box.h"

namespace dosmara {

namespace {

constexpr FormSetup kSetup = {.name = "FrmConf", .title = 24, .opens_with = 2 * kPositions + 1};

// The other bits of the byte are options of the payment system. Only the windows of those write its mirror.
constexpr BitRecord kOptions = {.node = kMainBoard, .record = kCreditOptions};
constexpr int kGroupsManaged = 4;

// Button 0 switches on and button 1 off; the words of a switch stand the other way round in the language
// file.
constexpr int kManagementLines[] = {kOffOn.on, kOffOn.off};

// What tells the frames of the two units apart.
struct Unit {
  int node;
  int line;  // what the menus call it
  ControlArray boxes;
  int first_number;  // Label2 of position 11, and the step to that of the next one
  int number_step;
  int first_caption;  // of Label1
};
constexpr Unit kUnitTable[] = {{kZeth, 33, {"Text5"}, 47, -1, 0}, {kZeth2, 45, {"Text6"}, 104, 1, 6}};

constexpr Records GroupsOf(const Unit& unit) { return {unit.node, 328, kPositions}; }

// The captions of the second unit come from the language, those of the first one never do.
constexpr int kCaptionLine = 615;
constexpr const char* kCaptions[] = {"SETTORE", "GRUPPO =>", "Associa"};

constexpr const char* kReset = "Reset Equals Products ";

}  // namespace

FrmConf::FrmConf() : DataForm(kSetup), options_(kOptions), all_(NewFrame("Frame1", 614)) {
  auto* layout = new QVBoxLayout(Body());
  layout->addWidget(all_);
  layout->addStretch();
  auto* inside = new QVBoxLayout(all_);
  MakeManagement(*inside);
  for (int unit = 0; unit < kUnits; ++unit) {
    MakePane(unit, *inside);
  }
  Hear(kOptions.node, kOptions.record, Counts::kYes, [this](double value) { ShowManagement(value); });
  all_->setEnabled(false);
}

void FrmConf::MakeManagement(QVBoxLayout& layout) {
  auto* line = new QHBoxLayout;
  auto* choice = new QButtonGroup(this);
  for (int i = 0; i < 2; ++i) {
    management_[i] = new QRadioButton(all_);
    management_[i]->setObjectName(ControlArray{"Option1"}[i]);
    choice->addButton(management_[i]);
    line->addWidget(management_[i]);
    connect(management_[i], &QRadioButton::toggled, this, [this, i](bool chosen) {
      if (chosen && !InArrival) {
        ChooseManagement(i == 0);
      }
    });
  }
  mark_ = new EchoMark(all_);
  line->addWidget(mark_);
  line->addStretch();
  layout.addLayout(line);
}

void FrmConf::MakePane(int unit, QVBoxLayout& layout) {
  const Unit& setup = kUnitTable[unit];
  Pane& pane = panes_[unit];
  pane.frame = NewFrame(ControlArray{"Frame2"}[unit], setup.line);
  pane.frame->setEnabled(false);
  layout.addWidget(pane.frame);
  auto* line = new QHBoxLayout(pane.frame);

  auto* captions = new QVBoxLayout;
  for (int i = 0; i < 3; ++i) {
    pane.captions[i] = new FieldLabel(pane.frame);
    pane.captions[i]->setObjectName(ControlArray{"Label1", setup.first_caption}[i]);
    captions->addWidget(pane.captions[i]);
  }
  captions->addStretch();
  line->addLayout(captions);

  auto* shape = new QFrame(pane.frame);
  shape->setObjectName(ControlArray{"Shape15"}[unit]);
  shape->setFrameStyle(QFrame::VLine | QFrame::Sunken);
  line->addWidget(shape);

  pane.groups = new GroupBoxes(pane.frame, GroupsOf(setup), setup.boxes);
  auto* grid = new QGridLayout;
  pane.groups->PlaceIn(
      *grid, [&setup](int n) { return ControlArray{"Label2"}[setup.first_number + n * setup.number_step]; });
  line->addLayout(grid);
  line->addStretch();

  pane.reset = new QPushButton(QString(kReset).trimmed(), pane.frame);
  pane.reset->setObjectName(ControlArray{"Command3"}[unit]);
  line->addWidget(pane.reset, 0, Qt::AlignBottom);
  connect(pane.reset, &QPushButton::clicked, this, [this, unit] { Reset(unit); });
  Watch(*pane.groups, Counts::kYes);
}

void FrmConf::InitMessaggi() {
  DataForm::InitMessaggi();
  for (int i = 0; i < 2; ++i) {
    management_[i]->setText(Caption(kManagementLines[i]));
    management_[i]->setAccessibleName(all_->title() + ' ' + management_[i]->text());
  }
  int width = 0;
  for (int i = 0; i < 3; ++i) {
    panes_[0].captions[i]->setText(kCaptions[i]);
    panes_[1].captions[i]->setText(Caption(kCaptionLine + i));
    for (const Pane& pane : panes_) {
      width = std::max(width, pane.captions[i]->sizeHint().width());
    }
  }
  for (const Pane& pane : panes_) {
    // The boxes of both units stand below each other, whatever the words beside them.
    pane.captions[0]->setMinimumWidth(width);
    pane.groups->SetAccessibleNames(pane.frame->title());
    pane.reset->setAccessibleName(pane.frame->title() + ' ' + pane.reset->text());
  }
}

void FrmConf::SetFramesEnabled(bool enabled) {
  all_->setEnabled(enabled);
  for (const Pane& pane : panes_) {
    pane.frame->setEnabled(enabled);
  }
}

void FrmConf::ShowManagement(double value) {
  options_.Take(value);
  const bool on = options_.Has(kGroupsManaged);
  management_[on ? 0 : 1]->setChecked(true);
  // Tab and the first focus go to the button that is chosen, not to the other one.
  management_[on ? 0 : 1]->setFocusPolicy(Qt::StrongFocus);
  management_[on ? 1 : 0]->setFocusPolicy(Qt::ClickFocus);
  mark_->Came(on ? 1 : 0);
  for (const Pane& pane : panes_) {
    pane.frame->setEnabled(on);
    pane.reset->setEnabled(on);
    pane.groups->SetEnabled(on);
    for (FieldLabel* caption : pane.captions) {
      caption->setEnabled(on);
    }
  }
}

void FrmConf::ChooseManagement(bool on) {
  if (options_.Write(kGroupsManaged, on ? kGroupsManaged : 0)) {
    mark_->Sent(on ? 1 : 0);
    return;
  }
  // The other bits are not known yet, and neither is this one.
  QButtonGroup& choice = *management_[0]->group();
  choice.setExclusive(false);
  management_[on ? 0 : 1]->setChecked(false);
  choice.setExclusive(true);
}

// The form may close while the question stands.
void FrmConf::Reset(int unit) {
  const QPointer<FrmConf> alive(this);
  const auto enable = [this](bool enabled) {
    SetFramesEnabled(enabled);
    for (const Pane& pane : panes_) {
      pane.reset->setEnabled(enabled);
    }
  };
  enable(false);
  const BoxAnswer answer = MsgBox("      Are you sure?", kReset, BoxStyle::kYesNoWarning);
  if (!alive) {
    return;
  }
  if (answer == BoxAnswer::kYes) {
    for (int n = 0; n < kPositions; ++n) {
      panes_[unit].groups->Write(n, n + 1);
    }
  }
  enable(true);
  panes_[unit].reset->setFocus(Qt::OtherFocusReason);
}

}  // namespace dosmara
