// The font of a control: family, size in points and style. A point is 20 twips on every screen.
#pragma once

#include <QString>

class QFont;

namespace platform {

struct Font {
    QString Name = QStringLiteral("arial");
    double Size = 9;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;

    bool operator==(const Font &) const = default;
};

// The font to draw with, in `points`; the size is set in logical pixels, so that it does not hang
// on the resolution that the screen claims.
QFont ToQFont(const Font &font, double points);

} // namespace platform
