// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/keypad.h"

#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kColumns = 4;
constexpr int kUpperKeys = 16;
// The panel in key pitches: six rows and half a pitch of gap between the upper and the lower keys.
constexpr double kRowPitches = 6.5;
constexpr double kGapPitches = 0.5;
constexpr double kRim = 0.15;    // around all keys
constexpr double kInset = 0.1;   // of a key within its pitch, on each side
constexpr double kCorner = 0.2;  // of the panel
constexpr double kKeyCorner = 0.25;
constexpr double kFocusLine = 2;
constexpr double kFocusRoom = 4;  // the ring and a gap to the cap
constexpr int kHeldRoom = 3;
const QColor kPanel(58, 64, 72);

// The ring of the key that has the focus, or would have it if it were not disabled, just inside `place`.
void DrawFocus(QPainter& painter, const QRectF& place) {
  const double line = kFocusLine / 2;
  const double corner = place.height() * kKeyCorner;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, kFocusLine));
  painter.drawRoundedRect(place.adjusted(line, line, -line, -line), corner, corner);
}

}  // namespace

QRect KeyRect(QSize size, int index) {
  const double pitch_x = size.width() / (kColumns + 2 * kRim);
  const double pitch_y = size.height() / (kRowPitches + 2 * kRim);
  const bool lower = index >= kUpperKeys;
  const int row = index / kColumns;
  const bool last_row = index >= 20;
  const double x = (kRim + index % kColumns + (last_row ? 1 : 0) + kInset) * pitch_x;
  const double y = (kRim + row + (lower ? kGapPitches : 0) + kInset) * pitch_y;
  return QRectF(x, y, pitch_x * (1 - 2 * kInset), pitch_y * (1 - 2 * kInset)).toRect();
}

KeypadKey::KeypadKey(QWidget* parent, int index) : QAbstractButton(parent), index_(index) {
  setCheckable(true);
  setCursor(Qt::PointingHandCursor);
}

void KeypadKey::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool lit = isChecked();
  const QColor cap = lit ? palette().color(QPalette::Highlight) : QColor(236, 238, 240);
  const QColor ink = lit ? palette().color(QPalette::HighlightedText) : QColor(30, 34, 40);
  const double fade = isEnabled() ? 0 : 0.45;
  const double inset = hasFocus() ? kFocusRoom : 1;
  QRectF face = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  if (isDown()) {
    face.translate(0, 1);
  }
  painter.setPen(QPen(Blend(cap, kPanel, 0.5), 1));
  painter.setBrush(Blend(cap, kPanel, fade));
  const double corner = face.height() * kKeyCorner;
  painter.drawRoundedRect(face, corner, corner);
  QFont font = this->font();
  font.setBold(lit);
  painter.setFont(font);
  painter.setPen(Blend(ink, kPanel, fade / 2));
  painter.drawText(face, Qt::AlignCenter, QString::number(SelectionNumber(index_)));
  if (hasFocus()) {
    DrawFocus(painter, rect());
  }
}

Keypad::Keypad(QWidget* parent) : Pad(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  std::vector<QAbstractButton*> buttons;
  for (int index = 0; index < kSelections; ++index) {
    keys_[index] = new KeypadKey(this, index);
    connect(keys_[index], &QAbstractButton::clicked, this, [this, index] { emit Pressed(index); });
    buttons.push_back(keys_[index]);
  }
  SetButtons(buttons);
}

void Keypad::SetSelection(int index) {
  for (int key = 0; key < kSelections; ++key) {
    keys_[key]->setChecked(key == index);
  }
  SetEntry(index);
}

QSize Keypad::sizeHint() const {
  const double pitch_x = fontMetrics().horizontalAdvance('0') * 6.5;
  const double pitch_y = fontMetrics().height() * 2.1;
  return QSizeF(pitch_x * (kColumns + 2 * kRim), pitch_y * (kRowPitches + 2 * kRim)).toSize();
}

void Keypad::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kPanel);
  const double corner = kCorner * width() / kColumns;
  painter.drawRoundedRect(rect(), corner, corner);
  if (!HeldPlace().isEmpty()) {
    DrawFocus(painter, HeldPlace().adjusted(-kHeldRoom, -kHeldRoom, kHeldRoom, kHeldRoom));
  }
}

void Keypad::resizeEvent(QResizeEvent*) {
  for (int index = 0; index < kSelections; ++index) {
    keys_[index]->setGeometry(KeyRect(size(), index));
  }
}

}  // namespace dosmara
