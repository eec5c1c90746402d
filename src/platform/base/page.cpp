#include "platform/base/page.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

double Outline(const QSize &size)
{
    return std::clamp(size.height() / 100.0, 2.0, 5.0);
}

double Radius(const QSize &size)
{
    return std::min({size.width() / 8.0, size.height() / 8.0, 28.0});
}

} // namespace

int PageMargin(const QSize &size)
{
    // A round corner reaches inwards by three tenths of its radius.
    return static_cast<int>(std::ceil(Outline(size) + std::max(5.0, Radius(size) * 0.45)));
}

void DrawPage(QPainter &painter, const QRect &place, Color back)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = Outline(place.size());
    const double edge = line / 2;
    QPainterPath page;
    page.addRoundedRect(QRectF(place).adjusted(edge, edge, -edge, -edge), Radius(place.size()),
                        Radius(place.size()));
    painter.fillPath(page, ToQColor(back));
    painter.strokePath(page, QPen(ToQColor(Ink), line));
}

} // namespace platform
