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
bool UnloadFirstDataForm() {
  for (LoadedForm* loaded : LoadedForms) {
    const QString name = UpperName(*loaded);
    auto* form = dynamic_cast<Form*>(loaded);
    if (form != nullptr && name != "MDIFORM1" && name != "FRMSER" && UnloadForm(*form)) {
      return true;
    }
  }
  return false;
}

}  // namespace

QString UpperName(const LoadedForm& form) {
  const auto* object = dynamic_cast<const QObject*>(&form);
  return object != nullptr ? object->objectName().toUpper() : QString();
}

Form* FindForm(const QString& name) {
  for (LoadedForm* loaded : LoadedForms) {
    if (UpperName(*loaded) == name.toUpper()) {
      return dynamic_cast<Form*>(loaded);
    }
  }
  return nullptr;
}

void UnloadDataForms() {
  while (UnloadFirstDataForm()) {
  }
}

}  // namespace dosmara
