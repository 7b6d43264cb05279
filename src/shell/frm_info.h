// SPDX-License-Identifier: GPL-3.0-or-later
// The information window: which program this is, and which revision of it.
#pragma once

#include <QVersionNumber>

#include "shell/form.h"

namespace dosmara {

// "Rev. 1.0.5", with a blank before the major number and none before the others.
QString RevisionText(const QVersionNumber& version);

// Where a form of size `form` lies by a window of size `reference`: right of and below the place that would
// centre it.
QPoint CenterForm1Position(QSize form, QSize reference);

// Moves `form` to its CenterForm1Position.
void CenterForm1(QWidget& form, const QWidget& reference);

// Shows a picture and the running program's title and version. Speaks to no board.
class FrmInfo : public Form {
 public:
  FrmInfo();

  void Load() override;
};

}  // namespace dosmara
