// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/selling/group_boxes.h"

#include <QCoreApplication>

#include "controls/field_label.h"
#include "fields/entry_parsers.h"
#include "fields/position_grid.h"
#include "shell/msg_box.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr int kGroupMask = 127;  // the bit above is not the group's
constexpr int kLargestGroup = 99;

constexpr int kDigits = 3;         // width of a box
constexpr int kFrame = 20;         // and what lies around them, in pixels
constexpr int kPositionWidth = 3;  // columns of the grid that a position takes: number, box, mark

const char* const kRefusal = "Error Value or Value out of range";

QString GroupText(double value) {
  const int group = LowBits(value) & kGroupMask;
  return group > kLargestGroup ? QStringLiteral("?") : QString::number(group);
}

QString PositionText(int n) { return QString::number(NumberOf(Numbering::kPosition, n)); }

}  // namespace

GroupBoxes::GroupBoxes(QWidget* parent, const Records& records, const ControlArray& boxes)
    : QObject(parent), parent_(parent), records_(records) {
  for (int n = 0; n < records_.count; ++n) {
    auto* box = new EntryBox(parent, kJudgedAfterAMoment);
    box->setObjectName(boxes[n]);
    box->setFixedWidth(kDigits * box->fontMetrics().horizontalAdvance('0') + kFrame);
    box->ComeBackTo([this, n] { return TextInForce(n); });
    connect(box, &EntryBox::Confirmed, this, [this, n](const QString& text) { Judge(n, text); });
    rows_.push_back({box, new EchoMark(parent)});
  }
}

void GroupBoxes::PlaceIn(QGridLayout& grid, const std::function<QString(int n)>& number_name) {
  for (int n = 0; n < records_.count; ++n) {
    auto* number = new FieldLabel(parent_);
    number->setObjectName(number_name(n));
    number->setText(PositionText(n));
    const int line = PositionLine(n);
    const int column = PositionColumn(n, kPositionWidth);
    grid.addWidget(number, line, column, Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(rows_[n].box, line, column + 1);
    grid.addWidget(rows_[n].mark, line, column + 2);
  }
  AddPositionHeadings(grid, *parent_, kPositionWidth, Qt::AlignHCenter);
}

void GroupBoxes::SetEnabled(bool enabled) {
  for (const Row& row : rows_) {
    row.box->setEnabled(enabled);
  }
}

void GroupBoxes::SetAccessibleNames(const QString& name) {
  for (int n = 0; n < records_.count; ++n) {
    rows_[n].box->setAccessibleName(name + ' ' + PositionText(n));
  }
}

void GroupBoxes::Show(int n, double value) {
  Row& row = rows_[n];
  row.known = true;
  row.mark->Came(LowBits(value) & kGroupMask);
  row.box->ShowText(GroupText(value));
}

void GroupBoxes::Write(int n, int group) {
  rows_[n].mark->Sent(group);
  PutRecord(records_.node, records_.first + n, group);
}

void GroupBoxes::Judge(int n, const QString& text) {
  EntryBox& box = *rows_[n].box;
  const bool negative = ParseNumeric(text).value_or(0) < 0;
  const std::optional<int> group = negative ? std::nullopt : ParseRounded(text, 0, kLargestGroup);
  if (group) {
    Write(n, *group);
    box.Accept();
  } else {
    // Nothing is touched behind the message: the form may close while it stands.
    box.Refuse(kRefusal);
    MsgBox(kRefusal, QCoreApplication::applicationName(), BoxStyle::kCritical);
  }
}

// The table holds what came last or is on its way; before that, what an index file says, which is not the
// machine's.
QString GroupBoxes::TextInForce(int n) const {
  return rows_[n].known ? GroupText(ParamGet(records_.first + n, records_.node)) : QString();
}

}  // namespace dosmara
