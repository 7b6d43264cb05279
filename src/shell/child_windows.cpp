// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/child_windows.h"

#include <QMdiSubWindow>
#include <algorithm>
#include <vector>

#include "shell/loaded_forms.h"
#include "shell/mnemonics.h"

namespace dosmara {

namespace {

QMdiSubWindow* FrameOf(const Form& form) { return qobject_cast<QMdiSubWindow*>(form.parentWidget()); }

// Gives a form the words of the language, and the room that they take.
void ShowCaptions(Form& form) {
  form.InitMessaggi();
  RefitFrame(form);
}

void BringForward(Form& form) {
  if (QMdiSubWindow* frame = FrameOf(form)) {
    frame->show();
    frame->mdiArea()->setActiveSubWindow(frame);
    ShowCaptions(form);
  }
}

// Takes the keys away by which a child window closes. They work only while it has the focus, and a form that
// waits for the machine does not have it: the main window has these keys instead.
void TakeCloseKeys(QMdiSubWindow& frame) {
  for (QAction* entry : frame.systemMenu()->actions()) {
    entry->setShortcuts(QList<QKeySequence>());
  }
}

}  // namespace

ChildWindows::ChildWindows(QMdiArea& area, std::span<const FormEntry> forms) : area_(area), forms_(forms) {
  connect(&area_, &QMdiArea::subWindowActivated, this, [](QMdiSubWindow* frame) {
    if (auto* form = frame != nullptr ? dynamic_cast<Form*>(frame->widget()) : nullptr) {
      ShowCaptions(*form);
    }
  });
}

bool ChildWindows::Has(const char* name) const {
  return std::ranges::any_of(forms_, [name](const FormEntry& entry) { return QString(entry.name) == name; });
}

void ChildWindows::Show(const char* name) {
  if (Form* open = FindForm(name)) {
    FrameOf(*open)->showNormal();
    BringForward(*open);
    return;
  }
  for (const FormEntry& entry : forms_) {
    if (QString(entry.name) == name) {
      Open(entry);
    }
  }
}

void ChildWindows::Open(const FormEntry& entry) {
  Form* form = entry.create();
  QMdiSubWindow* frame = area_.addSubWindow(form);
  TakeCloseKeys(*frame);
  // A frame that was maximized while the language changed has its old size when it comes back.
  connect(
      frame, &QMdiSubWindow::windowStateChanged, form, [form] { RefitFrame(*form); }, Qt::QueuedConnection);
  form->Load();
  form->show();
  frame->show();
  form->TakeFocus();
}

void ChildWindows::ShowAll() {
  const std::vector<LoadedForm*> forms = LoadedForms;
  for (LoadedForm* loaded : forms) {
    if (auto* form = dynamic_cast<Form*>(loaded)) {
      BringForward(*form);
    }
  }
}

void ChildWindows::FillMenu(QMenu& menu, const std::function<void()>& before) {
  menu.clear();
  const QList<QMdiSubWindow*> frames = area_.subWindowList();
  QStringList titles;
  for (const QMdiSubWindow* frame : frames) {
    titles.append(frame->windowTitle());
  }
  const QStringList texts = WithMnemonics(titles);
  for (qsizetype i = 0; i < frames.size(); ++i) {
    QMdiSubWindow* frame = frames[i];
    QAction* entry = menu.addAction(texts[i]);
    entry->setCheckable(true);
    entry->setChecked(frame == area_.activeSubWindow());
    connect(entry, &QAction::triggered, frame, [this, frame, before] {
      before();
      area_.setActiveSubWindow(frame);
    });
  }
}

}  // namespace dosmara
