// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/key_panel.h"

#include <QPainter>

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr double kPanelCorner = 0.27;  // in widths of a key
constexpr double kKeyCorner = 0.25;    // in heights of a cap
constexpr double kFocusLine = 2;
constexpr double kFocusRoom = 4;  // the ring and a gap to the cap
constexpr int kHeldRoom = 3;
constexpr double kRaised = 2;  // of a cap above its shadow
const QColor kPanel(58, 64, 72);
const QColor kShadow(24, 28, 34);

void DrawRound(QPainter& painter, const QRectF& place) {
  const double corner = place.height() * kKeyCorner;
  painter.drawRoundedRect(place, corner, corner);
}

// The ring of the key that has the focus, or would have it if it were not disabled, just inside `place`.
void DrawFocus(QPainter& painter, const QRectF& place) {
  const double line = kFocusLine / 2;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, kFocusLine));
  DrawRound(painter, place.adjusted(line, line, -line, -line));
}

}  // namespace

KeypadKey::KeypadKey(QWidget* parent, const QString& text) : QAbstractButton(parent) {
  setText(text);
  setCheckable(true);
  setCursor(Qt::PointingHandCursor);
}

void KeypadKey::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool lit = isChecked();
  QColor cap = lit ? palette().color(QPalette::Highlight) : QColor(236, 238, 240);
  QColor ink = lit ? palette().color(QPalette::HighlightedText) : QColor(30, 34, 40);
  const double inset = hasFocus() ? kFocusRoom : 1;
  QRectF face = QRectF(rect()).adjusted(inset, inset, -inset, -inset - kRaised);
  if (isEnabled() && !isDown()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(kShadow);
    DrawRound(painter, face.translated(0, kRaised));
  } else {
    face.translate(0, kRaised);
  }
  if (isDown()) {
    cap = Blend(cap, kPanel, 0.35);
  }
  painter.setPen(QPen(Blend(cap, kPanel, 0.5), 1));
  if (isEnabled()) {
    painter.setBrush(cap);
  } else if (lit) {
    painter.setBrush(Blend(cap, kPanel, 0.45));
  } else {
    painter.setBrush(Qt::NoBrush);
    ink = Blend(cap, kPanel, 0.25);
  }
  DrawRound(painter, face);
  QFont font = this->font();
  font.setBold(lit);
  painter.setFont(font);
  painter.setPen(ink);
  painter.drawText(face, Qt::AlignCenter, text());
  if (hasFocus()) {
    DrawFocus(painter, rect());
  }
}

KeyPanel::KeyPanel(QWidget* parent, const QStringList& texts) : Pad(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  for (const QString& text : texts) {
    const int index = Count();
    keys_.push_back(new KeypadKey(this, text));
    connect(keys_.back(), &QAbstractButton::clicked, this, [this, index] { emit Pressed(index); });
  }
  SetButtons({keys_.begin(), keys_.end()});
}

void KeyPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kPanel);
  const double corner = kPanelCorner * keys_.front()->width();
  painter.drawRoundedRect(rect(), corner, corner);
  if (!HeldPlace().isEmpty()) {
    DrawFocus(painter, HeldPlace().adjusted(-kHeldRoom, -kHeldRoom, kHeldRoom, kHeldRoom));
  }
}

void KeyPanel::resizeEvent(QResizeEvent*) {
  for (int index = 0; index < Count(); ++index) {
    keys_[index]->setGeometry(PlaceOfKey(size(), index));
  }
}

}  // namespace dosmara
