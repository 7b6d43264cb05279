// SPDX-License-Identifier: GPL-3.0-or-later
// What forms have in common whose rows belong to several boards.
#pragma once

#include <span>
#include <vector>

#include "fields/data_form.h"

namespace dosmara {

// The frame of one board on a form.
struct BoardFrame {
  const char* name = nullptr;  // objectName
  int line = 0;                // title, line of the language file
  int node = 0;                // the board: the frame opens and closes with the rows of this node
};

// A form with a frame for each board. A frame is grey until the form has loaded and then follows its board's
// gate, whatever the others do.
class BoardsForm : public DataForm {
 public:
  // `boards` outlives the form. Each board's gate is a `gate` on the record that stands for its node.
  BoardsForm(const FormSetup& setup, std::span<const BoardFrame> boards, const Gate& gate);

 protected:
  // Makes rows as NewRows does and watches them: they open and close with their boards.
  FieldRows& NewBoardRows(const RowStyle& style, std::span<const FieldRow> fields);

  // The frame of the board at `index` in the list of boards; the caller lays it out.
  QGroupBox* Frame(std::size_t index) { return groups_[index].frame; }

  void Loaded() override;
  // Opens or closes the frame and the rows of a board: as the form opens, and whenever the board's gate
  // changes.
  virtual void FollowBoard(int node, bool open);

 private:
  struct Group {
    int node;
    QGroupBox* frame;
    Gate gate;
  };

  std::vector<Group> groups_;
  std::vector<FieldRows*> board_rows_;
};

}  // namespace dosmara
