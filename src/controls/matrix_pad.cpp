// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/matrix_pad.h"

#include <QLabel>
#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kLinesToRow = 2;  // of the grid: a switch and what may stand below it
constexpr double kFocusLine = 2;
constexpr double kCorner = 6;
constexpr int kDistance = 2;

}  // namespace

SwitchPad::SwitchPad(QWidget* parent, int count) : Pad(parent) {
  std::vector<QAbstractButton*> buttons;
  for (int index = 0; index < count; ++index) {
    auto* each = new LedSwitch(this);
    connect(each, &LedSwitch::Wished, this, [this, index](bool on) { emit Wished(index, on); });
    switches_.push_back(each);
    buttons.push_back(each);
  }
  SetButtons(buttons);
}

// A switch that is disabled while it has the focus loses it to the pad, which paints the frame in its place.
void SwitchPad::paintEvent(QPaintEvent*) {
  const QRectF held = HeldPlace();
  if (held.isEmpty()) {
    return;
  }
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Ink(palette(), true), kFocusLine));
  painter.drawRoundedRect(held.adjusted(1, 1, -1, -1), kCorner, kCorner);
}

MatrixPad::MatrixPad(QWidget* parent, int rows, int columns)
    : SwitchPad(parent, rows * columns), columns_(columns), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setSpacing(kDistance);
  for (int column = 0; column < columns; ++column) {
    grid_->addWidget(new QLabel(QString::number(column + 1), this), 0, column + 1, Qt::AlignCenter);
  }
  for (int row = 0; row < rows; ++row) {
    grid_->addWidget(new QLabel(QString::number(row + 1), this), 1 + row * kLinesToRow, 0, Qt::AlignCenter);
  }
  for (int index = 0; index < Count(); ++index) {
    grid_->addWidget(&Switch(index), 1 + index / columns * kLinesToRow, 1 + index % columns, Qt::AlignCenter);
  }
}

void MatrixPad::PlaceBelow(int index, QWidget* caption) {
  grid_->addWidget(caption, 2 + index / columns_ * kLinesToRow, 1 + index % columns_, Qt::AlignCenter);
}

}  // namespace dosmara
