// SPDX-License-Identifier: GPL-3.0-or-later
// Options: the switches of the machine on all its boards, what it is called, and what its boards run.
#pragma once

#include <array>

#include "fields/boards_form.h"

namespace dosmara {

// The options of the main board open with the form, those of the other boards with their boards.
class FrmOpzioni : public BoardsForm {
 public:
  FrmOpzioni();

 private:
  void Loaded() override;
  void FollowBoard(int node, bool open) override;

  QGroupBox* NewSystem();
  void FillHotDrinks(QGroupBox* frame);
  void FillZeth(QGroupBox* frame, std::size_t unit);
  QGroupBox* NewVersions();
  // Puts the words for off and on above the switches of a grid. Returns the two labels.
  std::array<FieldLabel*, 2> AddHeading(QGridLayout& grid, const char* off, const char* on);

  void OpenPoint();

  Gate status_;  // how many languages there are
  ChoiceRows& choices_;
  BitRows& main_;
};

}  // namespace dosmara
