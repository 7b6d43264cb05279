// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form.h"

#include <QCloseEvent>
#include <QLayout>
#include <QMdiSubWindow>
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

QMdiSubWindow* FitFrame(Form& form) {
  auto* frame = qobject_cast<QMdiSubWindow*>(form.parentWidget());
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
  frame->resize(frame->sizeHint().boundedTo(frame->parentWidget()->size()));
  return frame;
}

void FormCentre(Form& form) {
  if (QMdiSubWindow* frame = FitFrame(form)) {
    const QPoint place = FormCentrePosition(frame->window()->size(), frame->size());
    const QSize room = frame->parentWidget()->size() - frame->size();
    frame->move(std::max(0, std::min(place.x(), room.width())),
                std::max(0, std::min(place.y(), room.height())));
  }
}

}  // namespace dosmara
