// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/led_switch.h"

#include "controls/tones.h"

namespace dosmara {

namespace {

constexpr int kMargin = 3;        // room for the focus frame
constexpr int kPadding = 5;       // from the edge of the cap to what is on it
constexpr double kLampWidth = 2;  // in heights of the text
constexpr double kCorner = 4;
constexpr double kFocusLine = 2;

}  // namespace

LedSwitchGeometry LayOutLedSwitch(int width_of_text, int height_of_text) {
  const int inset = kMargin + kPadding;
  LedSwitchGeometry geometry;
  geometry.lamp = QRect(inset, inset, qRound(kLampWidth * height_of_text), height_of_text);
  geometry.text = QRect(geometry.lamp.right() + 1 + kPadding, inset, width_of_text, height_of_text);
  const QRect& last = width_of_text > 0 ? geometry.text : geometry.lamp;
  geometry.size = QSize(last.right() + 1 + inset, height_of_text + 2 * inset);
  return geometry;
}

LedSwitch::LedSwitch(QWidget* parent) : QAbstractButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QAbstractButton::clicked, this, [this] { emit Wished(!IsOn()); });
}

void LedSwitch::SetOn(bool on) { Show(true, on); }

void LedSwitch::SetKnown(bool known) {
  if (known != known_) {
    Show(known, false);
  }
}

void LedSwitch::Show(bool known, bool on) {
  if (known == known_ && on == IsOn()) {
    return;
  }
  known_ = known;
  setChecked(on);
  setAccessibleDescription(LampText(state_texts_, State()));
  update();
}

void LedSwitch::SetStateTexts(const QString& off_and_on) {
  state_texts_ = off_and_on;
  setAccessibleDescription(LampText(state_texts_, State()));
}

LampState LedSwitch::State() const {
  if (!known_) {
    return LampState::kUnknown;
  }
  return IsOn() ? LampState::kOn : LampState::kOff;
}

LedSwitchGeometry LedSwitch::Geometry() const {
  const QFontMetrics metrics = fontMetrics();
  return LayOutLedSwitch(metrics.horizontalAdvance(text()), metrics.height());
}

QSize LedSwitch::sizeHint() const { return Geometry().size; }

void LedSwitch::paintEvent(QPaintEvent*) {
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = Ink(palette(), true);
  const LedSwitchGeometry geometry = Geometry();
  const QRectF cap = QRectF(rect()).adjusted(kMargin + 0.5, kMargin + 0.5, -kMargin - 0.5, -kMargin - 0.5);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Blend(ground, ink, isEnabled() ? 0.5 : 0.25));
  const QColor face = palette().color(QPalette::Active, QPalette::Button);
  painter.setBrush(isEnabled() ? Blend(face, ink, isDown() ? 0.2 : 0) : ground);
  painter.drawRoundedRect(cap, kCorner, kCorner);
  DrawLamp(painter, geometry.lamp, LampShape::kRectangular, State(), isEnabled(), palette());
  painter.setPen(Ink(palette(), isEnabled()));
  painter.drawText(geometry.text, Qt::AlignLeft | Qt::AlignVCenter, text());
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, kFocusLine));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCorner + 2, kCorner + 2);
  }
}

}  // namespace dosmara
