// SPDX-License-Identifier: GPL-3.0-or-later
// Text that is larger than the text around it.
#pragma once

#include <QFont>

namespace dosmara {

// `font` in letters `scale` times as large, whether its size is given in points or in pixels.
QFont ScaledFont(const QFont& font, double scale);

}  // namespace dosmara
