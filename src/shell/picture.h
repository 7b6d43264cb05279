// SPDX-License-Identifier: GPL-3.0-or-later
// Drawn pictures, rendered sharp at any scale.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>
#include <QSvgRenderer>
#include <memory>

namespace dosmara {

// The drawing `name` of the program's resources (":/art/tx_on.svg").
std::unique_ptr<QSvgRenderer> Drawing(const QString& name);

// That drawing for `size` pixels of a screen with the scale `ratio`, centred and as large as fits. Small ones
// are kept once rendered.
QPixmap Picture(const QString& name, QSize size, qreal ratio);

}  // namespace dosmara
