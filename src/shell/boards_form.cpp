// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/boards_form.h"

#include "shell/caption_table.h"
#include "shell/records.h"

namespace dosmara {

BoardsForm::BoardsForm(const QString& name, int load_threshold, std::span<const BoardFrame> boards,
                       const Gate& gate)
    : DataForm(name, load_threshold) {
  for (const BoardFrame& board : boards) {
    auto* frame = new QGroupBox(Body());
    frame->setObjectName(board.name);
    frame->setEnabled(false);
    groups_.push_back({board, frame, gate});
    groups_.back().gate.record = GateRecord(board.node);
  }
}

FieldRows& BoardsForm::NewRows(const RowStyle& style, std::span<const FieldRow> fields, QString* saved_text) {
  return *rows_.emplace_back(std::make_unique<FieldRows>(Body(), style, fields, InArrival, saved_text));
}

void BoardsForm::Load() {
  for (const auto& rows : rows_) {
    rows->Subscribe();
    Listen(*rows);
  }
  for (Group& group : groups_) {
    Subscribe({.node = 0, .first = group.gate.record});
    Listen(group.gate, [this, &group] { Follow(group); });
  }
  InitMessaggi();
  FormCentre(*this);
}

void BoardsForm::InitMessaggi() {
  for (const Group& group : groups_) {
    group.frame->setTitle(Caption(group.board.line));
  }
  for (const auto& rows : rows_) {
    rows->SetCaptions();
  }
}

void BoardsForm::Unload() {
  for (const auto& rows : rows_) {
    rows->Unsubscribe();
  }
  for (const Group& group : groups_) {
    Unsubscribe({.node = 0, .first = group.gate.record});
  }
}

void BoardsForm::Loaded() {
  for (const Group& group : groups_) {
    Follow(group);
  }
}

// The frame first: as a whole it lets go of the focus, while its rows one by one would pass it on into the
// boxes of another board and empty them.
void BoardsForm::Follow(const Group& group) {
  group.frame->setEnabled(group.gate.Open());
  for (const auto& rows : rows_) {
    rows->SetOpen(group.board.node, group.gate.Open());
  }
}

}  // namespace dosmara
