// SPDX-License-Identifier: GPL-3.0-or-later
// Times: time-outs and timings of the three boards that belong to no selection.
#pragma once

#include <QTabWidget>

#include "fields/boards_form.h"

namespace dosmara {

// A tab for each board: the hot drinks unit, and the two Zeth units with a time and a number of attempts for
// each of their eight drawers.
class FrmTempi : public BoardsForm {
 public:
  FrmTempi();

  void InitMessaggi() override;

 private:
  void AddTab(std::size_t board);
  void LayOutHotDrinks();
  void LayOutZeth(int unit);
  void LineUp(int unit);

  QTabWidget* tabs_;  // SSTab1
  FieldRows& times_;
  FieldRows* drawers_[2];  // by Zeth unit
};

}  // namespace dosmara
