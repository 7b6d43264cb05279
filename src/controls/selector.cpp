// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/selector.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <numeric>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kMargin = 4;  // room for the focus frame
constexpr double kFocusLine = 2;
constexpr double kCorner = 4;
constexpr int kRowLimit = 24;  // widest row, in heights of the words
constexpr int kLeastForTwoRows = 6;
constexpr int kWheelNotch = 120;  // what the wheel reports for one notch

}  // namespace

SelectorGeometry LayOutSelector(const std::vector<int>& widths_of_words, int height_of_words) {
  const int count = static_cast<int>(widths_of_words.size());
  const int height = height_of_words * 3 / 2;
  const int padding = height_of_words;
  const int limit = kRowLimit * height_of_words;
  const int widest =
      count > 0 ? *std::max_element(widths_of_words.begin(), widths_of_words.end()) + padding : 0;
  const int row_width = std::accumulate(widths_of_words.begin(), widths_of_words.end(), count * padding);
  int columns = 1;
  if (row_width <= limit) {
    columns = count;
  } else if (count >= kLeastForTwoRows && (count + 1) / 2 * widest <= limit) {
    columns = (count + 1) / 2;
  }
  SelectorGeometry geometry;
  int x = kMargin;
  int y = kMargin;
  for (int n = 0; n < count; ++n) {
    if (n > 0 && n % columns == 0) {
      x = kMargin;
      y += height;
    }
    const int width = columns == count ? widths_of_words[n] + padding : widest;
    geometry.segments.emplace_back(x, y, width, height);
    x += width;
  }
  for (const QRect& segment : geometry.segments) {
    geometry.size = geometry.size.expandedTo({segment.right() + 1 + kMargin, segment.bottom() + 1 + kMargin});
  }
  return geometry;
}

Selector::Selector(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Selector::SetPositionTexts(const QString& comma_separated) {
  words_ = comma_separated.split(',');
  if (words_.last().trimmed().isEmpty()) {
    words_.removeLast();
  }
  for (QString& word : words_) {
    word = word.trimmed();
  }
  LayOut();
  Describe();
  if (position_ >= PositionCount()) {
    Take(0);
  }
}

void Selector::SetPosition(int position) {
  if (position < 0 || position >= PositionCount()) {
    return;
  }
  SetKnown(true);
  Take(position);
}

void Selector::SetKnown(bool known) {
  if (known != known_) {
    known_ = known;
    Describe();
  }
}

void Selector::Take(int position) {
  if (position != position_) {
    position_ = position;
    Describe();
    emit Changed(position);
  }
}

void Selector::Choose(int position) {
  if (position < 0 || position >= PositionCount() || (known_ && position == position_)) {
    return;
  }
  SetKnown(true);
  position_ = position;
  Describe();
  emit Changed(position);
}

void Selector::MoveBy(int steps) {
  if (steps != 0) {
    Choose(std::clamp(position_ + steps, 0, std::max(0, PositionCount() - 1)));
  }
}

QFont Selector::ChosenFont() const {
  QFont bold = font();
  bold.setBold(true);
  return bold;
}

// The chosen word is bold, so each word gets the room that it needs in bold.
void Selector::LayOut() {
  const QFontMetrics metrics(ChosenFont());
  std::vector<int> widths;
  for (const QString& word : words_) {
    widths.push_back(metrics.horizontalAdvance(word));
  }
  geometry_ = LayOutSelector(widths, metrics.height());
  updateGeometry();
  update();
}

// A screen reader tells the word of the position behind the name.
void Selector::Describe() {
  setAccessibleDescription(known_ ? words_.value(position_) : QString());
  update();
}

int Selector::SegmentAt(const QPoint& point) const {
  const auto found = std::find_if(geometry_.segments.begin(), geometry_.segments.end(),
                                  [&](const QRect& segment) { return segment.contains(point); });
  return found == geometry_.segments.end() ? -1 : static_cast<int>(found - geometry_.segments.begin());
}

QSize Selector::sizeHint() const { return geometry_.size; }

void Selector::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    LayOut();
  }
  QWidget::changeEvent(event);
}

void Selector::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Down:
      MoveBy(1);
      break;
    case Qt::Key_Left:
    case Qt::Key_Up:
      MoveBy(-1);
      break;
    case Qt::Key_Home:
      Choose(0);
      break;
    case Qt::Key_End:
      Choose(PositionCount() - 1);
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void Selector::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? SegmentAt(event->position().toPoint()) : -1;
}

void Selector::mouseReleaseEvent(QMouseEvent* event) {
  const int segment = SegmentAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && segment == pressed_) {
    Choose(segment);
  }
  pressed_ = -1;
}

void Selector::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) {
    event->ignore();
    return;
  }
  wheel_ += event->angleDelta().y();
  MoveBy(-wheel_ / kWheelNotch);
  wheel_ %= kWheelNotch;
  event->accept();
}

void Selector::paintEvent(QPaintEvent*) {
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = Ink(palette(), true);
  const QColor line = Blend(ground, ink, isEnabled() ? 0.5 : 0.3);
  const QRectF frame = QRectF(QPointF(), geometry_.size).adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const QRectF outline = frame.adjusted(0.5, 0.5, -0.5, -0.5);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line);
  painter.setBrush(Blend(ground, ink, 0.05));
  painter.drawRoundedRect(outline, kCorner, kCorner);
  for (int n = 0; n < PositionCount(); ++n) {
    const QRectF segment = geometry_.segments[n];
    const bool chosen = known_ && n == position_;
    painter.setPen(line);
    const QRectF edge = segment.adjusted(0.5, 0.5, -0.5, -0.5);
    if (segment.left() > frame.left()) {
      painter.drawLine(edge.topLeft(), edge.bottomLeft());
    }
    if (segment.top() > frame.top()) {
      painter.drawLine(edge.topLeft(), edge.topRight());
    }
    if (chosen) {
      painter.setBrush(isEnabled() ? ChosenTone(palette()) : Blend(ground, ink, 0.25));
      painter.setPen(QPen(ink, 1));
      painter.drawRoundedRect(segment.adjusted(2.5, 2.5, -1.5, -1.5), kCorner - 1, kCorner - 1);
    }
    painter.setFont(chosen ? ChosenFont() : font());
    painter.setPen(chosen && isEnabled() ? QColor(Qt::white) : Ink(palette(), isEnabled() || chosen));
    painter.drawText(segment, Qt::AlignCenter, words_[n]);
  }
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, kFocusLine));
    painter.drawRoundedRect(frame.adjusted(-2, -2, 2, 2), kCorner + 2, kCorner + 2);
  }
}

}  // namespace dosmara
