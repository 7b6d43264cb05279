// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/field_rows.h"

#include "fields/numbering.h"
#include "fields/records.h"
#include "shell/caption_table.h"

namespace dosmara {

namespace {

// The column of the bar takes what width there is.
constexpr int kBarColumn = 2;

}  // namespace

FieldRows::FieldRows(QWidget* parent, const RowStyle& style, std::span<const FieldRow> fields,
                     const bool& in_arrival, const Money* money)
    : fields_(fields), in_arrival_(in_arrival), money_(money), held_(style.held) {
  for (int n = 0; n < size(); ++n) {
    const FieldRow& field = fields_[n];
    auto* view = new ValueRow(parent, {.caption_name = style.caption[n],
                                       .value_name = style.value[n],
                                       .box_name = style.box[n],
                                       .bar_name = style.bar[n],
                                       .min = field.min,
                                       .max = field.max,
                                       .large_change = field.large_change,
                                       .length = field.length,
                                       .parse = [this, &field](const QString& t) { return Parse(field, t); },
                                       .held = style.held,
                                       .closed_box_stays = style.closed_box_stays,
                                       .opening_fills_box = style.opening_fills_box});
    QObject::connect(&view->bar(), &Bar::Changed, view, [this, n](int value) { Write(n, value); });
    rows_.push_back({.view = view, .arrived = std::nullopt});
  }
}

void FieldRows::SetShift(int shift) {
  shift_ = shift;
  for (Row& row : rows_) {
    row.view->echo().Clear();
    row.view->bar().SetKnown(false);
    row.view->value().clear();
    row.view->TakeValueText();
    row.arrived.reset();
  }
}

void FieldRows::PlaceIn(QGridLayout& grid, int first, int last, int line, int column) {
  grid.setColumnStretch(column + kBarColumn, 1);
  for (int n = first; n <= last; ++n) {
    rows_[n].view->PlaceIn(grid, line++, column);
  }
}

void FieldRows::PlaceInColumns(QGridLayout& grid, int columns) {
  const int lines = (size() + columns - 1) / columns;
  for (int n = 0; n < size(); ++n) {
    PlaceIn(grid, n, n, n % lines, n / lines * kRowColumns);
  }
}

void FieldRows::SetOpen(int node, bool open) {
  for (int n = 0; n < size(); ++n) {
    if (fields_[n].node == node) {
      rows_[n].view->SetOpen(open);
    }
  }
}

void FieldRows::SetOpen(bool open) {
  for (const Row& row : rows_) {
    row.view->SetOpen(open);
  }
}

void FieldRows::SetEnabled(bool enabled) {
  SetOpen(enabled);
  for (const Row& row : rows_) {
    row.view->SetLabelsEnabled(enabled);
  }
}

void FieldRows::SetCaptions() {
  for (int n = 0; n < size(); ++n) {
    if (fields_[n].line != 0) {
      rows_[n].view->SetCaption(Numbered(Caption(fields_[n].line), fields_[n].number));
    }
  }
}

void FieldRows::Show(int n, double value) {
  Row& row = rows_[n];
  row.arrived = value;
  row.view->echo().Came(value);
  if (Waits(n)) {
    return;
  }
  Draw(n);
  if (held_ && echo_opens_) {
    row.view->SetBarOpen(true);
  }
}

void FieldRows::Fill(int n, double value) {
  rows_[n].arrived = value;
  Draw(n);
}

// A row that is on its way keeps the value that the machine has sent last.
void FieldRows::RedrawMoney() {
  for (int n = 0; n < size(); ++n) {
    if (fields_[n].text == MoneyText && rows_[n].arrived) {
      Draw(n);
    }
  }
}

std::optional<int> FieldRows::Parse(const FieldRow& field, const QString& text) const {
  if (field.parse == ParseMoney && !money_->known()) {
    return std::nullopt;
  }
  const int decimals = money_ != nullptr ? money_->decimals() : 0;
  const std::optional<int> entry = field.parse(text, field.low, field.limit, decimals);
  return entry ? std::optional(*entry - field.offset) : std::nullopt;
}

bool FieldRows::Waits(int n) const { return fields_[n].text == MoneyText && !money_->known(); }

void FieldRows::Draw(int n) {
  const FieldRow& field = fields_[n];
  ValueRow& view = *rows_[n].view;
  const double value = *rows_[n].arrived;
  const double shown = field.clamped ? view.bar().Clamped(value - field.offset) + field.offset : value;
  BindScroll(view.value(), view.bar(), shown - field.offset,
             field.text(shown, money_ != nullptr ? money_->decimals() : 0));
  view.TakeValueText();
}

void FieldRows::Write(int n, int bar_value) {
  if (in_arrival_) {
    return;
  }
  const int value = bar_value + fields_[n].offset;
  rows_[n].view->echo().Sent(value);
  PutWithMirror(fields_[n].node, Record(n), fields_[n].mirror, value);
}

}  // namespace dosmara
