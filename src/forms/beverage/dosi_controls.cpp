// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/beverage/dosi_controls.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/scaled_font.h"
#include "fields/numbering.h"
#include "shell/caption_table.h"

namespace dosmara {

using namespace dosi;

namespace {

// The groups of rows from top to bottom, with a line between them.
constexpr int kBreak = -1;
constexpr int kRowOrder[] = {0, kBreak, 1, 2,  3,  4,      5,  kBreak, 6, 7,
                             8, kBreak, 9, 10, 13, kBreak, 11, kBreak, 12};
constexpr int kTestColumn = 4;

constexpr double kHeadingScale = 1.6;
constexpr int kGap = 16;         // between the panels
constexpr int kRowDistance = 3;  // between rows

// "Selezione 21"
QString SelectionText(int selection) { return Numbered(Caption(58), SelectionNumber(selection)); }

// How far captions of dependent rows stand in from those of their heads.
void IndentDependants(FieldRows& rows) {
  const int indent = 2 * rows[0].caption().fontMetrics().horizontalAdvance('x');
  for (const Head& head : kHeads) {
    for (int n = head.first; n <= head.last; ++n) {
      rows[n].caption().setContentsMargins(indent, 0, 0, 0);
    }
  }
  rows[kDecaffeinatedDelay].caption().setContentsMargins(indent, 0, 0, 0);
}

}  // namespace

DosiControls::DosiControls(QWidget* body, FieldRows& dose_rows, BitRows& property_bits)
    : rows(dose_rows),
      properties(property_bits),
      label7(new QLabel(body)),
      keypad(new Keypad(body)),
      selection(new Bar(body)) {
  label7->setObjectName("Label7");
  selection->setObjectName("HScroll7");
  selection->SetSpan(0, kSelections - 1, 3);
  selection->SetValue(0);
  for (int n = 0; n < kSelections; ++n) {
    keypad->Key(n).setObjectName(ControlArray{"Label11"}[n]);
  }
  for (std::size_t i = 0; i < drink_tests.size(); ++i) {
    drink_tests[i] = new QPushButton(body);
    drink_tests[i]->setObjectName(ControlArray{"Command1"}[static_cast<int>(i)]);
  }
  for (std::size_t i = 0; i < part_tests.size(); ++i) {
    part_tests[i] = new QPushButton(body);
    part_tests[i]->setObjectName(ControlArray{"cmdProva"}[static_cast<int>(i)]);
  }
  properties.MakeSwitches(body, {"Label8"}, {"SwitchX1"});
  properties.SetWords(kPropertyWords, kPropertiesWithWords);
  IndentDependants(rows);

  auto* layout = new QHBoxLayout(body);
  layout->addLayout(LayOutSelection());
  layout->addSpacing(kGap);
  auto* right = new QVBoxLayout;
  right->addLayout(LayOutRows());
  right->addSpacing(kGap);
  right->addLayout(LayOutProperties());
  right->addStretch();
  layout->addLayout(right, 1);
}

QLayout* DosiControls::LayOutSelection() {
  QFont heading = ScaledFont(label7->font(), kHeadingScale);
  heading.setBold(true);
  label7->setFont(heading);

  auto* panel = new QVBoxLayout;
  panel->addWidget(label7);
  panel->addWidget(keypad);
  panel->addWidget(selection);
  panel->addSpacing(kGap);
  for (QPushButton* button : drink_tests) {
    panel->addWidget(button);
  }
  panel->addStretch();
  return panel;
}

QLayout* DosiControls::LayOutRows() {
  auto* grid = new QGridLayout;
  grid->setColumnStretch(2, 1);
  grid->setVerticalSpacing(kRowDistance);
  QWidget* before = drink_tests.back();
  int line = 0;
  for (const int n : kRowOrder) {
    if (n == kBreak) {
      auto* rule = new QFrame(keypad->parentWidget());
      rule->setFrameShape(QFrame::HLine);
      rule->setForegroundRole(QPalette::Mid);
      grid->addWidget(rule, line++, 0, 1, kTestColumn + 1);
      continue;
    }
    rows[n].PlaceIn(*grid, line, 0);
    QWidget::setTabOrder(before, rows[n].box());
    QWidget::setTabOrder(rows[n].box(), &rows[n].bar());
    before = &rows[n].bar();
    for (std::size_t i = 0; i < part_tests.size(); ++i) {
      if (kPartTests[i].row == n) {
        grid->addWidget(part_tests[i], line, kTestColumn);
        QWidget::setTabOrder(before, part_tests[i]);
        before = part_tests[i];
      }
    }
    ++line;
  }
  return grid;
}

// Two columns of captions with their switches.
QLayout* DosiControls::LayOutProperties() {
  auto* grid = new QGridLayout;
  for (int i = 0; i < properties.size(); ++i) {
    properties.PlaceIn(*grid, i, i / 2, i % 2 * kSwitchColumns);
  }
  grid->setColumnStretch(2 * kSwitchColumns, 1);
  return grid;
}

void DosiControls::SetCaptions(int shown) {
  for (std::size_t i = 0; i < drink_tests.size(); ++i) {
    drink_tests[i]->setText(Caption(59 + static_cast<int>(i)));
  }
  for (std::size_t i = 0; i < part_tests.size(); ++i) {
    part_tests[i]->setText(Caption(67));
    part_tests[i]->setAccessibleName(Caption(67) + ' ' + rows[kPartTests[i].row].caption().text());
  }
  for (int n = 0; n < kSelections; ++n) {
    keypad->Key(n).setAccessibleName(SelectionText(n));
  }
  selection->setAccessibleName(Caption(58));
  ShowSelection(shown);
}

void DosiControls::ShowSelection(int shown) {
  label7->setText(SelectionText(shown));
  keypad->SetSelection(shown);
}

void DosiControls::SetCommonEnabled(bool enabled) {
  for (QPushButton* button : drink_tests) {
    button->setEnabled(enabled);
  }
  for (int n = 0; n < kSelections; ++n) {
    keypad->Key(n).setEnabled(enabled);
  }
  selection->setEnabled(enabled);
  properties.SetEnabled(enabled);
}

}  // namespace dosmara
