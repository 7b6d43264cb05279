// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/caption_table.h"

namespace dosmara {

QString CaptionTable[kLastCaption + 1];

QString Caption(int line) { return line > 0 && line <= kLastCaption ? CaptionTable[line] : QString(); }

QString CaptionOr(int line, const char* otherwise) {
  const QString caption = Caption(line);
  return caption.isEmpty() ? QString::fromUtf8(otherwise) : caption;
}

}  // namespace dosmara
