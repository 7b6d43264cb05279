// SPDX-License-Identifier: GPL-3.0-or-later
// The positions of a Zeth unit as they lie in it: a grid of rows and columns with their digits around it, so
// that each is found at a glance.
#pragma once

#include <QGridLayout>
#include <QWidget>

#include "fields/numbering.h"

namespace dosmara {

// Where the n-th position lies, counted from 0: line and column of a grid in which each takes `width`
// columns.
constexpr int PositionLine(int n) { return n / kPositionColumns + 1; }
constexpr int PositionColumn(int n, int width) { return n % kPositionColumns * width + 1; }

// Puts the digits of the columns above such a grid, aligned to their columns, and those of the rows beside
// it. They become children of `parent`.
void AddPositionHeadings(QGridLayout& grid, QWidget& parent, int width, Qt::Alignment alignment);

}  // namespace dosmara
