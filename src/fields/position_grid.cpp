// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/position_grid.h"

#include "controls/field_label.h"

namespace dosmara {

void AddPositionHeadings(QGridLayout& grid, QWidget& parent, int width, Qt::Alignment alignment) {
  const auto heading = [&parent](int digit) {
    auto* label = new FieldLabel(&parent);
    label->setText(QString::number(digit));
    label->SetQuiet(true);
    return label;
  };
  for (int column = 0; column < kPositionColumns; ++column) {
    grid.addWidget(heading(column + 1), 0, PositionColumn(column, width), 1, width, alignment);
  }
  for (int row = 1; row <= kPositionRows; ++row) {
    grid.addWidget(heading(row), row, 0);
  }
}

}  // namespace dosmara
