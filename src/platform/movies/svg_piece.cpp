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

// The smallest rectangle round all that is painted.
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

QRectF BoundsOf(QSvgRenderer &drawing, const QRectF &target)
{
    constexpr int Side = 128; // pixels of the target's larger side
    const double scale = Side / std::max(target.width(), target.height());
    const QRectF middle(target.width() * scale, target.height() * scale, target.width() * scale,
                        target.height() * scale);
    QImage sheet((middle.size() * 3).toSize().expandedTo({3, 3}),
                 QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    drawing.render(&painter, middle);
    painter.end();
    const QRect painted = PaintedPart(sheet);
    if (painted.isEmpty())
        return {};
    // A thin line may leave no trace in the pixel beside.
    const QRect safe = painted.adjusted(-1, -1, 1, 1);
    if (!sheet.rect().contains(safe))
        return {target.x() - target.width() * 1000, target.y() - target.height() * 1000,
                target.width() * 2001, target.height() * 2001};
    return {(safe.x() - middle.x()) / scale + target.x(),
            (safe.y() - middle.y()) / scale + target.y(), safe.width() / scale,
            safe.height() / scale};
}

SvgPiece PaintPiece(const QByteArray &text, const QRectF &target)
{
    QSvgRenderer renderer(text);
    const QRect pixels = BoundsOf(renderer, target).toAlignedRect() & target.toAlignedRect();
    if (pixels.isEmpty())
        return {};
    QImage picture(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.translate(-pixels.topLeft());
    renderer.render(&painter, target);
    painter.end();
    if (IsOpaque(picture)) // and so painted without mixing
        picture.reinterpretAsFormat(QImage::Format_RGB32);
    return {picture, pixels.topLeft()};
}

} // namespace platform
