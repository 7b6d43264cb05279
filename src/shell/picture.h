// SPDX-License-Identifier: GPL-3.0-or-later
// Drawn pictures, rendered sharp at any scale.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

namespace dosmara {

// The drawing `name` of the program's resources (":/art/tx_on.svg") for `size` pixels of a screen with the
// scale `ratio`, centred: as large as fits, or with KeepAspectRatioByExpanding large enough to cover all of
// it. Small ones are kept once rendered.
QPixmap Picture(const QString& name, QSize size, qreal ratio, Qt::AspectRatioMode mode = Qt::KeepAspectRatio);

}  // namespace dosmara
