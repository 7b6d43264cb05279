// SPDX-License-Identifier: GPL-3.0-or-later
// Machine configuration: which positions of the Zeth units sell as one.
#pragma once

#include <QRadioButton>

#include "fields/data_form.h"

namespace dosmara {

class GroupBoxes;

// A group for each position of both units, and whether the machine looks at the groups at all.
class FrmConf : public DataForm {
 public:
  FrmConf();

  void InitMessaggi() override;

 private:
  static constexpr int kUnits = 2;

  // The frame of one unit.
  struct Pane {
    QGroupBox* frame;
    GroupBoxes* groups;
    FieldLabel* captions[3];
    QPushButton* reset;
  };

  void Loaded() override { SetFramesEnabled(true); }
  void MakeManagement(QVBoxLayout& layout);
  void MakePane(int unit, QVBoxLayout& layout);
  // Shows whether the machine looks at the groups. While it does not, nothing of them can be changed.
  void ShowManagement(double value);
  void ChooseManagement(bool on);
  // Asks, and makes each position of a unit a group of its own.
  void Reset(int unit);
  void SetFramesEnabled(bool enabled);

  BitByte options_;
  QGroupBox* all_;
  QRadioButton* management_[2];  // on, off
  EchoMark* mark_;
  Pane panes_[kUnits];
};

}  // namespace dosmara
