// SPDX-License-Identifier: GPL-3.0-or-later
// What lamps have in common, alone or in a switch.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <QString>

namespace dosmara {

enum class LampState { kUnknown, kOff, kOn };
enum class LampShape { kRound, kRectangular };

// Draws a lamp that fills `place`: bright with a shine when on, a dark glass when off, an empty broken
// outline when it is not known. A lamp that is not `enabled` is paler, but its states differ as clearly.
void DrawLamp(QPainter& painter, const QRectF& place, LampShape shape, LampState state, bool enabled,
              const QPalette& palette);

// The word of a state out of "off,on" or "off,on,not known"; empty for a state that has no word there.
QString LampText(const QString& words, LampState state);

}  // namespace dosmara
