// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/pad.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollArea>
#include <cstdlib>
#include <utility>

namespace dosmara {

int NeighbourOf(const std::vector<QRect>& buttons, int from, Qt::Key arrow) {
  const QRect& start = buttons[from];
  const bool sideways = arrow == Qt::Key_Left || arrow == Qt::Key_Right;
  const int sign = arrow == Qt::Key_Right || arrow == Qt::Key_Down ? 1 : -1;
  int best = from;
  std::pair<int, int> best_distance;
  for (int n = 0; n < static_cast<int>(buttons.size()); ++n) {
    const QPoint way = buttons[n].center() - start.center();
    const int along = sign * (sideways ? way.x() : way.y());
    const int aside = std::abs(sideways ? way.y() : way.x());
    const int size = sideways ? start.width() : start.height();
    const bool in_line = !sideways || aside < start.height() / 2;
    const std::pair distance(along, aside);
    if (!buttons[n].isEmpty() && along > size / 2 && in_line && (best == from || distance < best_distance)) {
      best = n;
      best_distance = distance;
    }
  }
  return best;
}

namespace {

// A scroll area brings what has the focus into sight by itself, but only when Tab has moved the focus.
void BringIntoSight(QWidget& button) {
  for (QWidget* around = button.parentWidget(); around != nullptr; around = around->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(around)) {
      area->ensureWidgetVisible(&button);
    }
  }
}

}  // namespace

Pad::Pad(QWidget* parent) : QWidget(parent) {}

void Pad::SetButtons(std::vector<QAbstractButton*> buttons) {
  buttons_ = std::move(buttons);
  for (QAbstractButton* button : buttons_) {
    button->installEventFilter(this);
  }
  ChooseStop();
}

void Pad::SetEntry(int button) {
  entry_ = button;
  ChooseStop();
}

int Pad::IndexOf(const QObject* widget) const {
  for (int n = 0; n < static_cast<int>(buttons_.size()); ++n) {
    if (buttons_[n] == widget) {
      return n;
    }
  }
  return -1;
}

// One button alone takes Tab: the focused one, so that the next Tab leaves the pad from there; while none has
// the focus, the one on which Tab enters.
void Pad::ChooseStop() {
  int stop = IndexOf(QApplication::focusWidget());
  if (stop < 0 && entry_ >= 0 && buttons_[entry_]->isEnabled()) {
    stop = entry_;
  }
  for (int n = 0; stop < 0 && n < static_cast<int>(buttons_.size()); ++n) {
    if (buttons_[n]->isEnabled()) {
      stop = n;
    }
  }
  for (int n = 0; n < static_cast<int>(buttons_.size()); ++n) {
    buttons_[n]->setFocusPolicy(n == stop ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

bool Pad::TakesKey(int button, const QKeyEvent& event) {
  const auto key = static_cast<Qt::Key>(event.key());
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down: {
      std::vector<QRect> places;
      for (const QAbstractButton* other : buttons_) {
        places.push_back(other->isEnabled() ? other->geometry() : QRect());
      }
      QAbstractButton* next = buttons_[NeighbourOf(places, button, key)];
      next->setFocus(Qt::OtherFocusReason);
      BringIntoSight(*next);
      return true;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event.isAutoRepeat()) {
        buttons_[button]->click();
      }
      return true;
    default:
      return false;
  }
}

bool Pad::eventFilter(QObject* watched, QEvent* event) {
  const int button = IndexOf(watched);
  if (button >= 0) {
    switch (event->type()) {
      case QEvent::KeyPress:
        return TakesKey(button, *static_cast<QKeyEvent*>(event));
      case QEvent::EnabledChange:
        if (button == held_ && hasFocus() && buttons_[button]->isEnabled()) {
          buttons_[button]->setFocus(Qt::OtherFocusReason);
        }
        ChooseStop();
        break;
      case QEvent::FocusIn:
      case QEvent::FocusOut:
        ChooseStop();
        break;
      default:
        break;
    }
  }
  return QWidget::eventFilter(watched, event);
}

// Qt asks for the next control too when the button that has the focus is disabled. The pad takes the focus
// then.
bool Pad::focusNextPrevChild(bool next) {
  const int focused = IndexOf(QApplication::focusWidget());
  if (focused >= 0 && !buttons_[focused]->isEnabled()) {
    held_ = focused;
    setFocus(Qt::OtherFocusReason);
    return true;
  }
  return QWidget::focusNextPrevChild(next);
}

QRect Pad::HeldPlace() const { return hasFocus() && held_ >= 0 ? buttons_[held_]->geometry() : QRect(); }

}  // namespace dosmara
