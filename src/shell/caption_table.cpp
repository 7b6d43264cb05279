// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/caption_table.h"

namespace dosmara {

QString CaptionTable[kLastCaption + 1];

QString Caption(int line) { return line > 0 && line <= kLastCaption ? CaptionTable[line] : QString(); }

}  // namespace dosmara
