// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#include "platform/movies/svg_layers.h"

#include <QPaintDevice>
#include <QSet>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {
namespace {

// To cut anew costs as much as a whole frame; that is paid for after a few frames.
constexpr int FramesUntilStill = 10;
// A picture as large as the movie costs about a tenth of a frame each time it is painted.
constexpr size_t MostMovingLayers = 2;

const SvgElement &At(const SvgDocument &document, int index)
{
    return document.Elements[static_cast<size_t>(index)];
}

// The drawing without what lies before or behind the layer; groups round it stay.
QByteArray TextOf(const SvgDocument &document, int from, int to)
{
    return SvgText(document, [&](int index) {
        return index > 0 && (index >= to || At(document, index).End <= from);
    });
}

bool HasShapes(const SvgDocument &document, int from, int to)
{
    for (int index = from; index < to; ++index)
        if (At(document, index).Name != "g" && At(document, index).Name != "svg" &&
            !IsAnimation(At(document, index)))
            return true;
    return false;
}

// The smallest rectangle round all that is painted.
QRect Painted(const QImage &image)
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

bool SvgLayers::CanCut(const SvgDocument &document)
{
    static const QSet<QByteArray> plain{"svg",     "g",    "path",     "rect",   "circle",
                                        "ellipse", "line", "polyline", "polygon"};
    return std::all_of(
        document.Elements.begin(), document.Elements.end(),
        [](const SvgElement &one) { return IsAnimation(one) || plain.contains(one.Name); });
}

bool SvgLayers::CanPaint(const QPainter &painter)
{
    const QTransform &device = painter.deviceTransform();
    return device.type() <= QTransform::TxTranslate && device.dx() == std::floor(device.dx()) &&
           device.dy() == std::floor(device.dy()) && painter.device()->devicePixelRatio() == 1;
}

// With all that is in it.
bool SvgLayers::Moves(const SvgDocument &moment, int element) const
{
    const int end = At(moment, element).End;
    return std::any_of(m_layers.begin(), m_layers.end(), [element, end](const Layer &layer) {
        return layer.Moves && layer.From <= element && end <= layer.To;
    });
}

// True when the layers no longer fit what moves.
bool SvgLayers::Watch(const SvgDocument &moment, const std::vector<int> &changed)
{
    bool cut = m_layers.empty();
    for (const int element : changed)
        cut = cut || !Moves(moment, element);
    for (auto &[element, frames] : m_still)
        ++frames;
    for (const int element : changed)
        m_still[element] = 0;
    return std::erase_if(m_still, [](const auto &one) { return one.second > FramesUntilStill; }) >
               0 ||
           cut;
}

void SvgLayers::Cut(const SvgDocument &moment)
{
    std::vector<std::pair<int, int>> moving;
    for (const auto &[element, frames] : m_still) {
        const int end = At(moment, element).End;
        if (!moving.empty() && !HasShapes(moment, moving.back().second, element))
            moving.back().second = std::max(moving.back().second, end);
        else
            moving.emplace_back(element, end);
    }
    while (moving.size() > MostMovingLayers) {
        auto closest = moving.begin();
        for (auto one = moving.begin(); one + 1 != moving.end(); ++one)
            if ((one + 1)->first - one->second < (closest + 1)->first - closest->second)
                closest = one;
        closest->second = (closest + 1)->second;
        moving.erase(closest + 1);
    }
    const std::vector<Layer> before = std::exchange(m_layers, {});
    const auto kept = [&before](int first, int behind) {
        return std::find_if(before.begin(), before.end(), [&](const Layer &layer) {
            return !layer.Moves && layer.From == first && layer.To == behind;
        });
    };
    int from = 0;
    const int end = static_cast<int>(moment.Elements.size());
    moving.emplace_back(end, end);
    for (const auto &[first, behind] : moving) {
        if (HasShapes(moment, from, first)) {
            const auto same = kept(from, first);
            m_layers.push_back(same != before.end() ? *same : Keep(moment, from, first));
        }
        if (first < behind)
            m_layers.push_back({first, behind, true, {}, {}});
        from = behind;
    }
}

// Only the rectangle that something is painted on is kept.
SvgLayers::Layer SvgLayers::Keep(const SvgDocument &moment, int from, int to)
{
    const QRect pixels = m_target.toAlignedRect();
    if (m_sheet.size() != pixels.size())
        m_sheet = QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    m_sheet.fill(Qt::transparent);
    QSvgRenderer renderer(TextOf(moment, from, to));
    QPainter painter(&m_sheet);
    painter.translate(-pixels.topLeft());
    renderer.render(&painter, m_target);
    painter.end();
    const QRect painted = Painted(m_sheet);
    QImage picture = m_sheet.copy(painted);
    if (IsOpaque(picture)) // and so painted without mixing
        picture.reinterpretAsFormat(QImage::Format_RGB32);
    return {from, to, false, picture, pixels.topLeft() + painted.topLeft()};
}

void SvgLayers::Paint(QPainter &painter, const QRectF &target, const SvgDocument &moment,
                      const std::vector<int> &changed)
{
    const bool elsewhere = m_target != target;
    m_target = target;
    if (elsewhere)
        m_layers.clear();
    if ((!changed.empty() && Watch(moment, changed)) || elsewhere)
        Cut(moment);
    for (const Layer &layer : m_layers) {
        if (layer.Moves) {
            QSvgRenderer renderer(TextOf(moment, layer.From, layer.To));
            renderer.render(&painter, target);
        } else {
            painter.drawImage(layer.Corner, layer.Picture);
        }
    }
}

} // namespace platform
