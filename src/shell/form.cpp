// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form.h"

#include <QCloseEvent>
#include <QLayout>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

namespace dosmara {

Form::Form(const QString& name) {
  setObjectName(name);
  setAttribute(Qt::WA_DeleteOnClose);
  LoadedForms.push_back(this);
}

Form::~Form() { LeaveLoadedForms(); }

void Form::closeEvent(QCloseEvent* event) {
  if (LeaveLoadedForms()) {
    Unload();
  }
  QWidget::closeEvent(event);
}

// Returns whether the form was still loaded.
bool Form::LeaveLoadedForms() { return std::erase(LoadedForms, static_cast<LoadedForm*>(this)) > 0; }

QPoint FormCentrePosition(QSize main, QSize form) {
  return {qRound(main.width() * 0.85 / 2 - form.width() / 2.0 + FromTwips(100)),
          qRound(main.height() / 2.0 - form.height() / 2.0 - FromTwips(80))};
}

namespace {

QMdiSubWindow* FrameOf(const Form& form) { return qobject_cast<QMdiSubWindow*>(form.parentWidget()); }

// The size of the frame around the whole form. Where the form is larger than `room` in one direction, the
// scroll bar of that direction takes its share of the other.
QSize SizeWithScrollBars(const Form& form, QSize wanted, QSize room) {
  if (const auto* scrolls = form.findChild<QScrollArea*>(QString(), Qt::FindDirectChildrenOnly)) {
    const bool too_tall = wanted.height() > room.height();
    const bool too_wide = wanted.width() > room.width();
    wanted.rwidth() += too_tall ? scrolls->verticalScrollBar()->sizeHint().width() : 0;
    wanted.rheight() += too_wide ? scrolls->horizontalScrollBar()->sizeHint().height() : 0;
  }
  return wanted.boundedTo(room);
}

// Moves the frame to `place`, but never over an edge of the area.
void PlaceFrame(QMdiSubWindow& frame, QPoint place) {
  const QSize room = frame.parentWidget()->size() - frame.size();
  frame.move(std::max(0, std::min(place.x(), room.width())), std::max(0, std::min(place.y(), room.height())));
}

}  // namespace

QMdiSubWindow* FitFrame(Form& form) {
  QMdiSubWindow* frame = FrameOf(form);
  if (frame == nullptr) {
    return nullptr;
  }
  // Controls that have not been on the screen yet do not tell their layouts of new captions, and pages behind
  // another one never do. Children come behind their parents in the list.
  const QList<QWidget*> widgets = form.findChildren<QWidget*>();
  for (auto widget = widgets.rbegin(); widget != widgets.rend(); ++widget) {
    (*widget)->updateGeometry();
    if (QLayout* layout = (*widget)->layout(); layout != nullptr) {
      layout->invalidate();
      layout->activate();
    }
  }
  form.updateGeometry();
  frame->resize(SizeWithScrollBars(form, frame->sizeHint(), frame->parentWidget()->size()));
  form.SetFittedSize(frame->size());
  return frame;
}

void RefitFrame(Form& form) {
  QMdiSubWindow* frame = FrameOf(form);
  if (frame != nullptr && frame->size() == form.FittedSize() && !frame->isMaximized() &&
      !frame->isMinimized()) {
    FitFrame(form);
    PlaceFrame(*frame, frame->pos());
  }
}

void FormCentre(Form& form) {
  if (QMdiSubWindow* frame = FitFrame(form)) {
    PlaceFrame(*frame, FormCentrePosition(frame->window()->size(), frame->size()));
  }
}

}  // namespace dosmara
