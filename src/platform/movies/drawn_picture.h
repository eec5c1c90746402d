// The drawings that belong to the windows, by name.
#pragma once

#include <QString>

class QPainter;
class QPixmap;
class QSize;

namespace platform {

// The drawing `name` (without folder and ending) in that size, logical pixels, for a screen of
// `ratio` device pixels a logical one. Kept once drawn. Empty when there is no such drawing.
QPixmap DrawnPicture(const QString &name, const QSize &size, double ratio);

// Paints it at the painter's corner.
void PaintPicture(QPainter &painter, const QString &name, const QSize &size, double ratio);

} // namespace platform
