// SPDX-License-Identifier: GPL-3.0-or-later
// Payment: how the machine takes money.
#pragma once

#include "fields/data_form.h"

namespace dosmara {

// What coins, bills and tokens are worth and which of them are taken, the limits of change and credit, and
// the mode of an Executive system. The payment system that is fitted decides which groups can be changed; a
// closed one shows its values all the same.
class FrmPagamento : public DataForm {
 public:
  FrmPagamento();

  void InitMessaggi() override;

 private:
  void LayOut();
  QLayout* LineOfSwitches(std::initializer_list<int> rows);
  QGroupBox* NewChannels(std::size_t which);
  void HideWhatTheModelLacks();
  void FollowPaymentSystem();
  void Loaded() override { FollowPaymentSystem(); }

  Money money_;
  int payment_options_ = 0;
  FieldRows& coins_;
  FieldRows& tokens_;
  FieldRows& change_;
  FieldRows& credits_;
  FieldRows& overpay_;
  FieldRows& timeout_;
  ChoiceRows& modes_;
  BitRows& switches_;
  QGroupBox* executive_frame_;
  QGroupBox* coins_frame_;
  QGroupBox* mdb_frame_;
  QGroupBox* tokens_frame_;
  Selector* channels_[2];
};

}  // namespace dosmara
