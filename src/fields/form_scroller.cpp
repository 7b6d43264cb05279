// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/form_scroller.h"

#include <QScrollBar>

namespace dosmara {

namespace {

constexpr struct {
  int key;
  Qt::Orientation along;
  QAbstractSlider::SliderAction action;
} kScrollKeys[] = {{Qt::Key_Up, Qt::Vertical, QAbstractSlider::SliderSingleStepSub},
                   {Qt::Key_Down, Qt::Vertical, QAbstractSlider::SliderSingleStepAdd},
                   {Qt::Key_PageUp, Qt::Vertical, QAbstractSlider::SliderPageStepSub},
                   {Qt::Key_PageDown, Qt::Vertical, QAbstractSlider::SliderPageStepAdd},
                   {Qt::Key_Left, Qt::Horizontal, QAbstractSlider::SliderSingleStepSub},
                   {Qt::Key_Right, Qt::Horizontal, QAbstractSlider::SliderSingleStepAdd}};

}  // namespace

FormScroller::FormScroller(QScrollArea* area, QWidget* frame) : QObject(area), area_(area) {
  frame->installEventFilter(this);
}

// A frame that is being moved or sized by keys needs them itself, and holds the mouse.
bool FormScroller::eventFilter(QObject* frame, QEvent* event) {
  const bool scrolls = event->type() == QEvent::KeyPress && QWidget::mouseGrabber() == nullptr &&
                       ScrollBy(*static_cast<QKeyEvent*>(event));
  return scrolls || QObject::eventFilter(frame, event);
}

bool FormScroller::ScrollBy(const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
    return false;
  }
  for (const auto& each : kScrollKeys) {
    if (each.key == key.key()) {
      const bool down = each.along == Qt::Vertical;
      (down ? area_->verticalScrollBar() : area_->horizontalScrollBar())->triggerAction(each.action);
      return true;
    }
  }
  return false;
}

}  // namespace dosmara
