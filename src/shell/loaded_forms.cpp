// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/loaded_forms.h"

#include <QMdiSubWindow>

namespace dosmara {

namespace {

// Closes the form with its frame. Returns whether the list of loaded forms has lost it.
bool UnloadForm(Form& form) {
  auto* frame = qobject_cast<QMdiSubWindow*>(form.parentWidget());
  return frame != nullptr ? frame->close() : form.close();
}

// Returns whether a form was unloaded.
bool UnloadFirstForm() {
  for (LoadedForm* loaded : LoadedForms) {
    auto* form = dynamic_cast<Form*>(loaded);
    if (form != nullptr && UnloadForm(*form)) {
      return true;
    }
  }
  return false;
}

}  // namespace

Form* FindForm(const QString& name) {
  for (LoadedForm* loaded : LoadedForms) {
    auto* form = dynamic_cast<Form*>(loaded);
    if (form != nullptr && form->objectName().compare(name, Qt::CaseInsensitive) == 0) {
      return form;
    }
  }
  return nullptr;
}

void UnloadDataForms() {
  while (UnloadFirstForm()) {
  }
}

}  // namespace dosmara
