// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/tab_order.h"

#include <QLayout>

namespace dosmara {

namespace {

// Puts the controls of `layout` behind `last`, and returns the last of them. Buttons that only a click gives
// the focus to are among them: Tab goes on from where the arrow keys have led.
QWidget* Append(QLayout& layout, QWidget* last) {
  for (int i = 0; i < layout.count(); ++i) {
    QWidget* const widget = layout.itemAt(i)->widget();
    QLayout* const inner = widget != nullptr ? widget->layout() : layout.itemAt(i)->layout();
    if (inner != nullptr) {
      last = Append(*inner, last);
    } else if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus) {
      QWidget::setTabOrder(last, widget);
      last = widget;
    }
  }
  return last;
}

}  // namespace

// The chain of the focus is a ring. A start that takes the focus too keeps Qt from seeing the end of the ring
// and its start as neighbours, which would leave the controls in order but the first one anywhere.
void TabAsLaidOut(QWidget& body) {
  const Qt::FocusPolicy policy = body.focusPolicy();
  body.setFocusPolicy(Qt::TabFocus);
  Append(*body.layout(), &body);
  body.setFocusPolicy(policy);
}

}  // namespace dosmara
