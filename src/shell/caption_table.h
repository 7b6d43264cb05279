// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the interface: one string per line of the current language file.
#pragma once

#include <QString>

namespace dosmara {

inline constexpr int kLastCaption = 650;

// Element n is line n of the language file, counted from 1; element 0 is never filled. Lives as long as the
// program.
extern QString CaptionTable[kLastCaption + 1];

// Line `line` of the language file; empty for a number outside the table.
QString Caption(int line);

// The same, or `otherwise` where the language has no word on that line: a file may be older than the line.
QString CaptionOr(int line, const char* otherwise);

}  // namespace dosmara
