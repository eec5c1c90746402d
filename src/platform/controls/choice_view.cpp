#include "platform/controls/choice_view.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace platform {

void DrawChoice(QPainter &painter, const QRect &room, const ChoiceLook &look, ChoiceMark mark,
                const ChoiceState &state)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(room, ToQColor(look.Back));
    painter.setOpacity(state.Enabled ? 1.0 : 0.45);
    // The mark is as tall as a line of the text.
    const double side = std::min<double>(room.height() - 4, look.Letters.Size * 4 / 3 * 1.25);
    const double line = std::clamp(side / 10, 1.5, 3.5);
    const QRectF box(room.left() + 3, room.center().y() - side / 2 + 0.5, side, side);
    const double radius = mark == ChoiceMark::Dot ? side / 2 : side / 4;
    painter.setPen(QPen(state.Focused ? ToQColor(0x8000000D) : ToQColor(Ink), line));
    painter.setBrush(ToQColor(SystemWindow));
    painter.drawRoundedRect(box.adjusted(line / 2, line / 2, -line / 2, -line / 2), radius, radius);
    if (state.Marked && mark == ChoiceMark::Dot) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ToQColor(Ink));
        painter.drawEllipse(box.center(), side * 0.27, side * 0.27);
    } else if (state.Marked) {
        QPainterPath tick(box.topLeft() + QPointF(side * 0.24, side * 0.52));
        tick.lineTo(box.topLeft() + QPointF(side * 0.43, side * 0.72));
        tick.lineTo(box.topLeft() + QPointF(side * 0.78, side * 0.28));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(ToQColor(Ink), side / 8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(tick);
    }
    painter.setPen(ToQColor(look.Fore));
    const int gap = static_cast<int>(std::lround(side * 1.15)) + 5;
    DrawFitted(painter, room.adjusted(gap, 0, 0, 0),
               Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, look.Caption, look.Letters);
}

} // namespace platform
