// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/scaled_font.h"

namespace dosmara {

QFont ScaledFont(const QFont& font, double scale) {
  QFont scaled = font;
  if (font.pixelSize() > 0) {
    scaled.setPixelSize(qRound(scale * font.pixelSize()));
  } else {
    scaled.setPointSizeF(scale * font.pointSizeF());
  }
  return scaled;
}

}  // namespace dosmara
