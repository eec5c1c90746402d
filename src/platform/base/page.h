// The page that a sentence stands on: round corners in a dark outline.
#pragma once

#include "platform/base/colors.h"

class QPainter;
class QRect;
class QSize;

namespace platform {

// Pixels from the edge of the page to its text, clear of the round corners.
int PageMargin(const QSize &size);

void DrawPage(QPainter &painter, const QRect &place, Color back);

} // namespace platform
