// SPDX-License-Identifier: GPL-3.0-or-later
// Colours that the painted controls share, made from the palette so that they suit light and dark.
#pragma once

#include <QColor>
#include <QPalette>

namespace dosmara {

// The colour that lies `share` of the way from `from` to `to`, 0 to 1.
QColor Blend(const QColor& from, const QColor& to, double share);

// Whether the palette shows light text on a dark ground.
bool IsDark(const QPalette& palette);

// The ink of text: full when `enabled`, else softened but still easy to read.
QColor Ink(const QPalette& palette, bool enabled);

// The ground of a chosen word, which is written on it in white.
QColor ChosenTone(const QPalette& palette);

// The tone of "on" and of a value that the machine has taken.
QColor GoodTone(const QPalette& palette);

// The tone of a value that is on its way.
QColor WaitTone(const QPalette& palette);

// The tone of a value that the machine has not taken.
QColor BadTone(const QPalette& palette);

}  // namespace dosmara
