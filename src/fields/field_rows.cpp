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
                     const bool& in_arrival, Money* money)
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
                                       .enter = [this, n](const QString& text) { return Enter(n, text); },
                                       .closed_box_stays = style.closed_box_stays,
                                       .opening_fills_box = style.opening_fills_box});
    const BarBinding bar(view->bar(), field.offset);
    rows_.push_back({.view = view, .bar = bar, .value = bar.Value()});
    QObject::connect(&view->bar(), &Bar::Changed, view,
                     [this, n](int position) { Change(n, rows_[n].bar.ValueAt(position)); });
  }
  if (money_ != nullptr) {
    money_->WhenChanged([this] { RedrawMoney(); });
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
  for (int n = 0; n < size(); ++n) {
    SetEnabled(n, enabled);
  }
}

void FieldRows::SetEnabled(int n, bool enabled) {
  rows_[n].view->SetOpen(enabled);
  rows_[n].view->SetLabelsEnabled(enabled);
}

void FieldRows::SetCaptions() {
  for (int n = 0; n < size(); ++n) {
    if (fields_[n].line != 0) {
      rows_[n].view->SetCaption(Numbered(Caption(fields_[n].line), fields_[n].number));
    }
  }
}

std::vector<Records> FieldRows::ShownRecords() const {
  std::vector<Records> records;
  for (int n = 0; n < size(); ++n) {
    records.push_back({fields_[n].node, Record(n)});
  }
  return records;
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
    if (fields_[n].money && rows_[n].arrived) {
      Draw(n);
    }
  }
}

std::optional<int> FieldRows::Parse(const FieldRow& field, const QString& text) const {
  if (!field.money) {
    return field.parse(text, field.low, field.limit);
  }
  return money_->IsKnown() ? ParseMoney(text, field.limit, money_->decimals()) : std::nullopt;
}

QString FieldRows::Text(const FieldRow& field, double value) const {
  return field.money ? MoneyText(value, money_->decimals()) : field.text(value);
}

// Moving the bar raises its change event, which finds nothing changed.
void FieldRows::Draw(int n) {
  const FieldRow& field = fields_[n];
  Row& row = rows_[n];
  row.value = row.bar.Nearest(*row.arrived);
  row.bar.Show(row.value);
  row.view->value().setText(Text(field, field.clamped ? row.value : *row.arrived));
  row.view->TakeValueText();
}

// A value that the bar refuses is a bad entry too. The number that stands, typed again, changes nothing:
// held, the bar would wait for an answer that never comes.
bool FieldRows::Enter(int n, const QString& text) {
  Row& row = rows_[n];
  const std::optional<int> entry = Parse(fields_[n], text);
  if (!entry || !row.bar.Holds(*entry)) {
    return false;
  }
  if (held_ && *entry != row.value) {
    row.view->SetBarOpen(false);
  }
  row.bar.Show(*entry);
  return true;
}

// The bar tells of every move, of those by an arrival too.
void FieldRows::Change(int n, int value) {
  Row& row = rows_[n];
  if (value == row.value) {
    return;
  }
  row.value = value;
  if (in_arrival_) {
    return;
  }
  row.view->echo().Sent(value);
  PutWithMirror(fields_[n].node, Record(n), fields_[n].mirror, value);
  changed_();
}

}  // namespace dosmara
