// Colours as they are painted; the system's are those of a quiet paper-coloured picture book.
#include "platform/base/colors.h"

#include "platform/base/errors.h"

#include <QColor>

#include <cmath>

namespace platform {

Color ToColor(double value)
{
    // Both readings of 32 bits occur: signed, as files hold system colours, and unsigned.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= -2147483648.0 && rounded <= 4294967295.0))
        throw RunTimeError(Overflow);
    return static_cast<Color>(static_cast<int64_t>(rounded));
}

QColor ToQColor(Color color)
{
    if ((color & 0x80000000U) == 0)
        return QColor(static_cast<int>(color & 0xFFU), static_cast<int>(color >> 8 & 0xFFU),
                      static_cast<int>(color >> 16 & 0xFFU));
    switch (color & 0xFFU) {
    case 0x05: // window
    case 0x0E: // caption text
    case 0x14: // light edge of a button
        return QColor(0xFF, 0xFF, 0xFF);
    case 0x06: // window frame
    case 0x07: // menu text
    case 0x08: // window text
    case 0x12: // button text
        return QColor(0x1E, 0x1A, 0x18);
    case 0x0D: // chosen item
        return QColor(0x2F, 0x6F, 0xB5);
    case 0x10: // shadow of a button
    case 0x11: // grey text
        return QColor(0x9A, 0x94, 0x8C);
    default:
        return QColor(0xF4, 0xEF, 0xE6);
    }
}

} // namespace platform
