// SPDX-License-Identifier: GPL-3.0-or-later
// Drawn pictures, rendered sharp at any scale.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

namespace dosmara {

// The drawing `name` of the program's resources (":/art/tx_on.svg"), as large as fits into `size` pixels of
// a screen with the scale `ratio`, centred. Rendered once for each size and kept.
QPixmap Picture(const QString& name, QSize size, qreal ratio);

}  // namespace dosmara
