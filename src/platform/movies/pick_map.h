// Which part of the figure lies where, one byte a pixel: 1 to 8, or 0 for none.
#pragma once

#include "platform/movies/svg_document.h"

#include <QSize>

#include <array>
#include <cstdint>
#include <vector>

namespace platform {

// The parts in the order of their numbers, from 1.
inline constexpr std::array<const char *, 8> FigureParts{
    "comignolo", "tetto", "pareti", "finestre", "porta", "gradino", "fumo", "nuvole"};

class PickMap {
public:
    // Largest side in pixels; a figure is never shown larger.
    static constexpr int LargestSide = 4096;

    // Draws each part alone, in the order of the document, so that the topmost one that covers a
    // pixel by more than half holds it. Bit n - 1 of `visible` lets part n in.
    PickMap(const SvgDocument &document, const QSize &size, unsigned visible);

    int At(int x, int y) const;

private:
    QSize m_size;
    std::vector<uint8_t> m_parts;
};

// True when neither the element nor one round it is hidden.
bool IsShown(const SvgDocument &document, int index);

} // namespace platform
