// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/boards_form.h"

namespace dosmara {

BoardsForm::BoardsForm(const FormSetup& setup, std::span<const BoardFrame> boards, const Gate& gate)
    : DataForm(setup) {
  groups_.reserve(boards.size());
  for (const BoardFrame& board : boards) {
    Group& group = groups_.emplace_back(Group{board.node, NewFrame(board.name, board.line), gate});
    group.frame->setEnabled(false);
    group.gate.record = GateRecord(board.node);
    Follow(group.gate, [this, &group] { FollowBoard(group.node, group.gate.IsOpen()); });
  }
}

FieldRows& BoardsForm::NewBoardRows(const RowStyle& style, std::span<const FieldRow> fields) {
  FieldRows& rows = NewRows(style, fields);
  board_rows_.push_back(&rows);
  Watch(rows, Counts::kYes);
  return rows;
}

void BoardsForm::Loaded() {
  for (const Group& group : groups_) {
    FollowBoard(group.node, group.gate.IsOpen());
  }
}

// The frame first: as a whole it lets go of the focus, while its rows one by one would pass it on into the
// boxes of another board and empty them.
void BoardsForm::FollowBoard(int node, bool open) {
  for (const Group& group : groups_) {
    if (group.node == node) {
      group.frame->setEnabled(open);
    }
  }
  for (FieldRows* rows : board_rows_) {
    rows->SetOpen(node, open);
  }
}

}  // namespace dosmara
