// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/frm_pagamento.h"

#include "fields/tab_order.h"
#include "forms/selling/pagamento_tables.h"
#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {

using namespace pagamento;

FrmPagamento::FrmPagamento()
    : DataForm(kSetup),
      coins_(NewRows(Style({"Label1"}, {"Label10"}, {"txtMon"}, {"HScroll10"}), kCoins, &money_)),
      tokens_(NewRows(Style({"Label6"}, {"Label6s"}, {"txtMDB", 1}, {"HScroll6"}), kTokens, &money_)),
      change_(NewRows(Style({"Label4"}, {"Label11"}, {"txtMDB"}, {"HScroll11"}), kChange, &money_)),
      credits_(
          NewRows(Style({"Label4", 1}, {"Label11", 1}, {"txtMDB", 4}, {"HScroll11", 1}), kCredits, &money_)),
      overpay_(NewRows(Style({"Label4", 3}, {"Label11", 3}, {}, {"HScroll11", 3}), kOverpay)),
      timeout_(NewRows(
          Style({"Label8", kNoArray}, {"Label8v", kNoArray}, {"txtTmPr", kNoArray}, {"scrTP", kNoArray}),
          kTimeout)),
      modes_(NewChoices(kModes)),
      switches_(NewBits(kBytes, kSwitches)),
      executive_frame_(NewFrame("Frame4", kExecutiveLine)),
      coins_frame_(NewFrame("Frame1", 86)),
      mdb_frame_(NewFrame("Frame2", 89)),
      tokens_frame_(NewFrame("Frame5", 100)) {
  switches_.MakeSwitches(Body());
  switches_.SetWords(kOffOn);
  for (QGroupBox* frame : {executive_frame_, coins_frame_, mdb_frame_}) {
    frame->setEnabled(false);
  }
  for (FieldRows* rows : {&tokens_, &change_, &credits_, &overpay_}) {
    rows->SetOpen(true);  // their frame opens and closes them
  }
  switches_.SetEnabled(true);
  modes_.SetEnabled(true);
  LayOut();
  HideWhatTheModelLacks();
  Watch(money_, Counts::kYes);
  for (FieldRows* rows : {&coins_, &tokens_, &change_, &credits_, &overpay_}) {
    Watch(*rows, Counts::kNo);
  }
  Watch(timeout_, Counts::kYes);
  Watch(switches_, Counts::kYes);
  Watch(modes_, Counts::kYes);
  Hear(kMainBoard, kPaymentOptions, Counts::kYes, [this](double value) {
    payment_options_ = LowBits(value);
    if (!Loading) {
      FollowPaymentSystem();
    }
  });
}

void FrmPagamento::InitMessaggi() {
  DataForm::InitMessaggi();
  modes_.control(0).SetPositionTexts(Caption(96) + ',' + Caption(95) + ',' + Caption(98));
  for (std::size_t i = 0; i < std::size(kChannels); ++i) {
    channels_[i]->setAccessibleName(Caption(kChannels[i].line));
  }
}

// The system, then coins, bills, tokens and limits.
void FrmPagamento::LayOut() {
  auto* executive = new QVBoxLayout(executive_frame_);
  auto* mode = new QHBoxLayout;
  modes_.caption(0).hide();  // the title of the frame says the same
  mode->addWidget(&modes_.control(0));
  mode->addWidget(&modes_.mark(0));
  mode->addStretch();
  executive->addLayout(mode);
  auto* timing = new QGridLayout;
  timeout_.PlaceIn(*timing, 0, 0);
  executive->addLayout(timing);
  executive->addLayout(LineOfSwitches({kImmediateChange}));

  coins_.PlaceInColumns(*new QGridLayout(coins_frame_), 1);

  auto* mdb = new QVBoxLayout(mdb_frame_);
  mdb->addLayout(LineOfSwitches({kChanger, kIgnoreExactChange}));
  for (std::size_t i = 0; i < std::size(kChannels); ++i) {
    mdb->addWidget(NewChannels(i));
  }
  mdb->addWidget(tokens_frame_);
  auto* tokens = new QVBoxLayout(tokens_frame_);
  auto* values = new QGridLayout;
  tokens_.PlaceInColumns(*values, 1);
  tokens->addLayout(values);
  tokens->addLayout(LineOfSwitches({kChangeForToken, kRechargeForToken, kExactForToken}));
  auto* limits = new QGridLayout;
  change_.PlaceIn(*limits, 0, 0);
  credits_.PlaceIn(*limits, 0, 1, 1);
  overpay_.PlaceIn(*limits, 0, 0, 3);
  mdb->addLayout(limits);

  auto* layout = new QHBoxLayout(Body());
  auto* left = new QVBoxLayout;
  left->addWidget(executive_frame_);
  left->addWidget(coins_frame_);
  left->addStretch();
  layout->addLayout(left);
  layout->addWidget(mdb_frame_, 0, Qt::AlignTop);
  TabAsLaidOut(*Body());
}

QLayout* FrmPagamento::LineOfSwitches(std::initializer_list<int> rows) {
  auto* grid = new QGridLayout;
  int column = 0;
  for (const int n : rows) {
    switches_.PlaceIn(*grid, n, 0, column);
    column += kSwitchColumns;
  }
  grid->setColumnStretch(column, 1);
  return grid;
}

QGroupBox* FrmPagamento::NewChannels(std::size_t which) {
  const Channels& channels = kChannels[which];
  QGroupBox* frame = NewFrame(channels.frame, channels.frame_line);
  auto* selector = new Selector(frame);
  selector->setObjectName(channels.selector);
  selector->SetPositionTexts(kChannelNumbers);
  selector->SetPosition(0);
  channels_[which] = selector;
  connect(selector, &Selector::Changed, this,
          [this, row = channels.accepted](int channel) { switches_.MoveWithinByte(row, 1 << channel); });
  auto* grid = new QGridLayout(frame);
  grid->addWidget(NewLabel(channels.caption, channels.line), 0, 0);
  grid->addWidget(selector, 0, 1, 1, kSwitchColumns);
  switches_.PlaceIn(*grid, channels.accepted, 1, 0);
  grid->setColumnStretch(kSwitchColumns, 1);
  return frame;
}

// The box of the second credit stays in sight.
void FrmPagamento::HideWhatTheModelLacks() {
  ValueRow& credit = credits_[kSecondCredit];
  if (ModelCode < kFirstModelWithSecondCredit) {
    credits_.SetEnabled(kSecondCredit, false);
    for (QWidget* part :
         std::initializer_list<QWidget*>{&credit.caption(), &credit.value(), &credit.bar(), &credit.echo()}) {
      part->hide();
    }
  }
  if (ModelCode < kFirstModelWithChangeOptions) {
    switches_.Hide(kImmediateChange);
    switches_.Hide(kIgnoreExactChange);
  }
}

// MDB before Executive before G13; none of them is a machine on tokens.
void FrmPagamento::FollowPaymentSystem() {
  const bool mdb = (payment_options_ & kMdb) != 0;
  const bool executive = !mdb && (payment_options_ & kExecutive) != 0;
  const bool coins = !mdb && !executive;
  const bool all_coins = coins && (payment_options_ & kG13) != 0;
  const bool timing = executive && (payment_options_ & kAnyMode) != 0;
  mdb_frame_->setEnabled(mdb);
  executive_frame_->setEnabled(executive);
  timeout_.SetEnabled(timing);
  switches_.SetEnabled(kImmediateChange, timing);
  coins_frame_->setEnabled(coins);
  for (int n = 0; n < kCoinChannels; ++n) {
    coins_.SetEnabled(n, all_coins || (coins && n == kTokenChannel));
  }
}

}  // namespace dosmara
