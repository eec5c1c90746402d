#include "platform/fitted_text.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

bool Fits(const QString &text, const Font &font, double points, const QSize &room)
{
    const QFontMetrics metrics(ToQFont(font, points));
    const QRect needed =
        metrics.boundingRect(QRect(0, 0, room.width(), room.height()), Qt::TextWordWrap, text);
    return needed.width() <= room.width() && needed.height() <= room.height();
}

} // namespace

double FittingPoints(const QString &text, const Font &font, const QSize &room)
{
    if (font.Size <= SmallestPoints || text.isEmpty() || Fits(text, font, font.Size, room))
        return font.Size;
    // Half points between the smallest and the font's own; `low` fits or is the smallest.
    int low = static_cast<int>(SmallestPoints * 2);
    int high = static_cast<int>(std::floor(font.Size * 2));
    while (high - low > 1) {
        const int middle = (low + high) / 2;
        (Fits(text, font, middle / 2.0, room) ? low : high) = middle;
    }
    return low / 2.0;
}

void DrawFitted(QPainter &painter, const QRect &room, int flags, const QString &text,
                const Font &font)
{
    painter.setFont(ToQFont(font, FittingPoints(text, font, room.size())));
    painter.drawText(room, flags | Qt::TextWordWrap, text);
}

} // namespace platform
