// SPDX-License-Identifier: GPL-3.0-or-later
// Scrolling of a form by keys while none of its controls has the focus.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QScrollArea>

namespace dosmara {

// Watches the frame around a form, which has the focus while no control has it: arrows and page keys scroll.
// A key that a control leaves alone goes up to the scroll area by itself.
class FormScroller : public QObject {
 public:
  // Belongs to `area`, which lies in `frame`.
  FormScroller(QScrollArea* area, QWidget* frame);

  bool eventFilter(QObject* frame, QEvent* event) override;

 private:
  bool ScrollBy(const QKeyEvent& key);

  QScrollArea* area_;
};

}  // namespace dosmara
