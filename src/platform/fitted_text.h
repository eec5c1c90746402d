// Text drawn in the largest size in which it fits its place.
#pragma once

#include "platform/font.h"

class QPainter;
class QRect;
class QSize;

namespace platform {

// Below this many points no text is made smaller.
constexpr double SmallestPoints = 11;

// The largest size in points, up to the font's own, in half points, in which the wrapped text fits
// `room` (logical pixels) with no word cut; the smallest when none does.
double FittingPoints(const QString &text, const Font &font, const QSize &room);

// `flags` are Qt's alignment flags; the text is wrapped at words.
void DrawFitted(QPainter &painter, const QRect &room, int flags, const QString &text,
                const Font &font);

} // namespace platform
