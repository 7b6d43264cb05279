// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/progress_line.h"

#include <QPainter>
#include <algorithm>
#include <cstdint>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kThinnest = 3;
constexpr int kLinesToText = 5;  // heights of the line in one of the text

}  // namespace

int FilledLength(int width, int arrived, int total) {
  return arrived >= total ? 0 : static_cast<int>(std::int64_t{width} * arrived / total);
}

ProgressLine::ProgressLine(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgressLine::SetShare(int arrived, int total) {
  const int filled_before = Filled();
  const bool shown_before = arrived_ < total_;
  total_ = std::max(total, 0);
  arrived_ = std::clamp(arrived, 0, total_);
  setAccessibleDescription(QString("%1 of %2").arg(arrived_).arg(total_));
  if (Filled() != filled_before || (arrived_ < total_) != shown_before) {
    update();
  }
}

double ProgressLine::Share() const { return total_ > 0 ? static_cast<double>(arrived_) / total_ : 1; }

int ProgressLine::Filled() const {
  return FilledLength(qRound(width() * devicePixelRatioF()), arrived_, total_);
}

QSize ProgressLine::sizeHint() const {
  return {0, std::max(kThinnest, fontMetrics().height() / kLinesToText)};
}

void ProgressLine::paintEvent(QPaintEvent*) {
  if (arrived_ >= total_) {
    return;
  }
  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Window);
  painter.fillRect(rect(), Blend(ground, Ink(palette(), true), 0.15));
  painter.fillRect(QRectF(0, 0, Filled() / devicePixelRatioF(), height()),
                   palette().color(QPalette::Highlight));
}

}  // namespace dosmara
