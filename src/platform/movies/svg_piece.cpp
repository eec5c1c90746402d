// A run of a drawing's elements as a picture of its own.
#include "platform/movies/svg_piece.h"

#include <QPaintDevice>
#include <QSet>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

// The largest reward has a fourth of it; each piece costs a rendering of its own.
constexpr size_t MostElements = 400;

bool IsOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (std::any_of(row, row + image.width(), [](QRgb pixel) { return qAlpha(pixel) != 255; }))
            return false;
    }
    return true;
}

} // namespace

bool CanCut(const SvgDocument &document)
{
    static const QSet<QByteArray> plain{"svg",     "g",    "path",     "rect",   "circle",
                                        "ellipse", "line", "polyline", "polygon"};
    return document.Elements.size() <= MostElements &&
           std::all_of(
               document.Elements.begin(), document.Elements.end(),
               [](const SvgElement &one) { return IsAnimation(one) || plain.contains(one.Name); });
}

bool CanPaintPieces(const QPainter &painter)
{
    const QTransform &device = painter.deviceTransform();
    return device.type() <= QTransform::TxTranslate && device.dx() == std::floor(device.dx()) &&
           device.dy() == std::floor(device.dy()) && painter.device()->devicePixelRatio() == 1;
}

QByteArray PieceText(const SvgDocument &document, int from, int to)
{
    return SvgText(document, [&](int index) {
        return index > 0 &&
               (index >= to || document.Elements[static_cast<size_t>(index)].End <= from);
    });
}

QRect PaintedPart(const QImage &image)
{
    QRect painted;
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        const auto *end = row + image.width();
        const auto some = [](QRgb pixel) { return pixel != 0; };
        const auto *first = std::find_if(row, end, some);
        if (first == end)
            continue;
        const auto *last = end - 1;
        while (!some(*last))
            --last;
        painted |= QRect(QPoint(static_cast<int>(first - row), y),
                         QPoint(static_cast<int>(last - row), y));
    }
    return painted;
}

SvgPiece PaintPiece(const QByteArray &text, const QRectF &target, QImage &sheet)
{
    const QRect pixels = target.toAlignedRect();
    if (sheet.size() != pixels.size())
        sheet = QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::transparent);
    QSvgRenderer renderer(text);
    QPainter painter(&sheet);
    painter.translate(-pixels.topLeft());
    renderer.render(&painter, target);
    painter.end();
    const QRect painted = PaintedPart(sheet);
    if (painted.isEmpty())
        return {};
    QImage picture = sheet.copy(painted);
    if (IsOpaque(picture)) // and so painted without mixing
        picture.reinterpretAsFormat(QImage::Format_RGB32);
    return {picture, pixels.topLeft() + painted.topLeft()};
}

} // namespace platform
