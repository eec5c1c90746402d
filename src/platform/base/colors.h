// Colours of controls: 32 bits, &H00BBGGRR, or a system colour with the high bit set.
#pragma once

#include <cstdint>

class QColor;

namespace platform {

using Color = uint32_t;

constexpr Color SystemButtonFace = 0x8000000F;
constexpr Color SystemButtonText = 0x80000012;
constexpr Color SystemWindow = 0x80000005;

// Of the outlines of all that is drawn.
constexpr Color Ink = 0x00282B3A;

constexpr Color Rgb(int red, int green, int blue)
{
    return static_cast<Color>(red) | static_cast<Color>(green) << 8 |
           static_cast<Color>(blue) << 16;
}

// Colours are kept as doubles by the program: rounded into 32 bits, error 6 outside them.
Color ToColor(double value);

// What is painted. An unknown system colour is painted as the button face.
QColor ToQColor(Color color);

} // namespace platform
