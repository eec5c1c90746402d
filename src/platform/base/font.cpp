#include "platform/base/font.h"

#include <QFont>

#include <algorithm>
#include <cmath>

namespace platform {

QFont ToQFont(const Font &font, double points)
{
    QFont result(font.Name);
    result.setPixelSize(std::max(1, static_cast<int>(std::lround(points * 4 / 3))));
    result.setBold(font.Bold);
    result.setItalic(font.Italic);
    result.setUnderline(font.Underline);
    return result;
}

} // namespace platform
