// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/field_rows.h"

#include "shell/caption_table.h"
#include "shell/records.h"

namespace dosmara {

namespace {

// Of a row in its grid; it takes what width there is.
constexpr int kBarColumn = 2;

}  // namespace

QString Indexed(const char* name, int index) {
  return index == kNoArray ? QString(name) : QStringLiteral("%1(%2)").arg(name).arg(index);
}

FieldRows::FieldRows(QWidget* parent, const RowStyle& style, std::span<const FieldRow> fields,
                     const bool& in_arrival, QString* saved_text)
    : fields_(fields), in_arrival_(in_arrival) {
  for (int n = 0; n < size(); ++n) {
    const FieldRow& field = fields_[n];
    const bool alone = style.first == kNoArray;
    const int index = alone ? kNoArray : style.first + n;
    const int caption = alone ? kNoArray : style.first_caption + n;
    auto* view = new ValueRow(parent, {.caption_name = Indexed(style.caption, caption),
                                       .value_name = Indexed(style.value, index),
                                       .box_name = Indexed(style.box, index),
                                       .bar_name = Indexed(style.bar, index),
                                       .min = field.min,
                                       .max = field.max,
                                       .large_change = field.large_change,
                                       .length = field.length,
                                       .parse = [&field](const QString& text) -> std::optional<int> {
                                         const std::optional<int> entry =
                                             field.parse(text, field.low, field.limit);
                                         return entry ? std::optional(*entry - field.offset) : std::nullopt;
                                       },
                                       .saved_text = saved_text,
                                       .closed_box_stays = style.closed_box_stays,
                                       .opening_fills_box = style.opening_fills_box,
                                       .restore_from_label = field.restore_from_label});
    QObject::connect(&view->bar(), &Bar::Changed, view, [this, n](int value) { Write(n, value); });
    rows_.push_back({.view = view});
  }
}

void FieldRows::SetShift(int shift) {
  shift_ = shift;
  for (Row& row : rows_) {
    row.view->echo().SetState(EchoMark::State::kNone);
  }
}

void FieldRows::PlaceIn(QGridLayout& grid, int first, int last, int line) {
  grid.setColumnStretch(kBarColumn, 1);
  for (int n = first; n <= last; ++n) {
    rows_[n].view->PlaceIn(grid, line++, 0);
  }
}

void FieldRows::SetOpen(int node, bool open) {
  for (int n = 0; n < size(); ++n) {
    if (fields_[n].node == node) {
      rows_[n].view->SetOpen(open);
    }
  }
}

void FieldRows::SetCaptions() {
  for (int n = 0; n < size(); ++n) {
    const FieldRow& field = fields_[n];
    const QString number = field.number != 0 ? ' ' + QString::number(field.number) : QString();
    rows_[n].view->SetCaption(Caption(field.line) + number);
  }
}

void FieldRows::Subscribe() const {
  for (int n = 0; n < size(); ++n) {
    dosmara::Subscribe({.node = fields_[n].node, .first = Record(n)});
  }
}

void FieldRows::Unsubscribe() const {
  for (int n = 0; n < size(); ++n) {
    dosmara::Unsubscribe({.node = fields_[n].node, .first = Record(n)});
  }
}

void FieldRows::UnsubscribeMirrors() const {
  for (const FieldRow& field : fields_) {
    if (field.mirror != 0) {
      dosmara::Unsubscribe({.node = field.node, .first = field.mirror});
    }
  }
}

// A value that was on its way before the write may still arrive; only the written one is the echo.
void FieldRows::Show(int n, double value) {
  const FieldRow& field = fields_[n];
  ValueRow& view = *rows_[n].view;
  const double shown = field.clamped ? view.bar().Clamped(value - field.offset) + field.offset : value;
  field.show(view.value(), view.bar(), shown);
  view.TakeValueText();
  if (view.echo().state() == EchoMark::State::kWaiting && value == rows_[n].written) {
    view.echo().SetState(EchoMark::State::kTaken);
  }
}

void FieldRows::Write(int n, int bar_value) {
  if (in_arrival_) {
    return;
  }
  rows_[n].written = bar_value + fields_[n].offset;
  rows_[n].view->echo().SetState(EchoMark::State::kWaiting);
  PutWithMirror(fields_[n].node, Record(n), fields_[n].mirror, rows_[n].written);
}

}  // namespace dosmara
