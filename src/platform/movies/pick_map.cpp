// Which part of the figure lies where, one byte a pixel.
#include "platform/movies/pick_map.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace platform {
namespace {

struct Piece {
    int Index;
    uint8_t Part;
};

// The groups of the visible parts, in the order of the document.
std::vector<Piece> PiecesOf(const SvgDocument &document, unsigned visible)
{
    std::vector<Piece> pieces;
    for (size_t number = 0; number < FigureParts.size(); ++number) {
        const int index = document.Index(FigureParts[number]);
        if (index >= 0 && (visible & (1U << number)) != 0)
            pieces.push_back({index, static_cast<uint8_t>(number + 1)});
    }
    std::sort(pieces.begin(), pieces.end(),
              [](const Piece &a, const Piece &b) { return a.Index < b.Index; });
    return pieces;
}

// The document with this piece alone, where it stands, with what it refers to.
QByteArray Alone(const SvgDocument &document, int piece)
{
    const auto &elements = document.Elements;
    const int end = elements[static_cast<size_t>(piece)].End;
    return SvgText(document, [&](int index) {
        const SvgElement &element = elements[static_cast<size_t>(index)];
        const bool around = index <= piece && element.End >= end;
        const bool inside = index >= piece && index < end;
        bool defined = false; // what it may refer to
        for (int at = index; at >= 0 && !defined; at = elements[static_cast<size_t>(at)].Parent) {
            const QByteArray &name = elements[static_cast<size_t>(at)].Name;
            defined = name == "defs" || name.endsWith("Gradient");
        }
        return !around && !inside && !defined;
    });
}

} // namespace

bool IsShown(const SvgDocument &document, int index)
{
    for (int at = index; at >= 0; at = document.Elements[static_cast<size_t>(at)].Parent) {
        const SvgElement &element = document.Elements[static_cast<size_t>(at)];
        if (element.Value("display") == "none" || element.Value("visibility") == "hidden")
            return false;
    }
    return true;
}

PickMap::PickMap(const SvgDocument &document, const QSize &size, unsigned visible)
    : m_size(size.boundedTo({LargestSide, LargestSide}).expandedTo({1, 1})),
      m_parts(static_cast<size_t>(m_size.width()) * static_cast<size_t>(m_size.height()), 0)
{
    QImage image(m_size, QImage::Format_ARGB32_Premultiplied);
    for (const Piece &piece : PiecesOf(document, visible)) {
        QSvgRenderer renderer(Alone(document, piece.Index));
        image.fill(Qt::transparent);
        QPainter painter(&image);
        renderer.render(&painter, QRectF(image.rect()));
        painter.end();
        auto place = m_parts.begin();
        for (int y = 0; y < m_size.height(); ++y) {
            const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            for (int x = 0; x < m_size.width(); ++x, ++place)
                if (qAlpha(line[x]) > 127)
                    *place = piece.Part;
        }
    }
}

int PickMap::At(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_size.width() || y >= m_size.height())
        return 0;
    return m_parts[static_cast<size_t>(y) * static_cast<size_t>(m_size.width()) +
                   static_cast<size_t>(x)];
}

} // namespace platform
