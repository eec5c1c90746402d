// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#include "platform/movies/svg_layers.h"

#include "platform/movies/svg_transform.h"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

// To make a picture costs more than to paint once without it.
constexpr int PaintingsUntilKept = 3;

bool IsShape(const SvgElement &element)
{
    return element.Name != "g" && element.Name != "svg" && !IsAnimation(element);
}

} // namespace

SvgLayers::SvgLayers(const SvgDocument &document, const std::vector<int> &animated)
{
    for (int index = 0; index < static_cast<int>(document.Elements.size()); ++index) {
        const SvgElement &element = document.Elements[static_cast<size_t>(index)];
        if (!IsShape(element))
            continue;
        Layer layer;
        layer.From = index;
        layer.To = element.End;
        for (const int one : animated)
            if (one <= index && index < document.Elements[static_cast<size_t>(one)].End)
                layer.Movers.push_back(one);
        if (!m_layers.empty() && m_layers.back().Movers == layer.Movers) {
            m_layers.back().To = layer.To;
            continue;
        }
        // What never moves is kept from the start.
        if (layer.Movers.empty())
            layer.Rested = PaintingsUntilKept;
        m_layers.push_back(std::move(layer));
    }
}

// To read a text costs more than many a shape in it, and what moves mostly changes its place only.
// So the place of what moves stands beside the text.
void SvgLayers::Follow(Layer &layer, SvgDocument &moment)
{
    const int mover = layer.Movers.empty() ? 0 : layer.Movers.back();
    const auto place = TransformOf(moment, mover);
    layer.Place = place.value_or(QTransform());
    std::vector<std::pair<SvgElement *, QByteArray>> taken;
    for (int at = place ? mover : -1; at >= 0;) {
        SvgElement &element = moment.Elements[static_cast<size_t>(at)];
        if (const QByteArray *own = element.Find("transform")) {
            taken.emplace_back(&element, *own);
            element.Set("transform", {});
        }
        at = element.Parent;
    }
    QByteArray text = PieceText(moment, layer.From, layer.To);
    for (const auto &[element, own] : taken)
        element->Set("transform", own);
    if (text == layer.Text)
        return;
    layer.Text = std::move(text);
    layer.Renderer.reset();
}

// Looked up on a small sheet that shows as much again on each side of the drawing, since what lies
// there may come in. What reaches the edge of that is taken to be anywhere.
QRectF SvgLayers::BoundsOf(QSvgRenderer &text, const QRectF &box)
{
    constexpr int Side = 128; // pixels of the drawing's larger side
    const double scale = Side / std::max(box.width(), box.height());
    const QRectF middle(box.width() * scale, box.height() * scale, box.width() * scale,
                        box.height() * scale);
    QImage sheet((middle.size() * 3).toSize().expandedTo({3, 3}),
                 QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    text.render(&painter, middle);
    painter.end();
    const QRect painted = PaintedPart(sheet);
    if (painted.isEmpty())
        return {};
    // A thin line may leave no trace in the pixel beside.
    const QRect safe = painted.adjusted(-1, -1, 1, 1);
    if (!sheet.rect().contains(safe))
        return {box.x() - box.width() * 1000, box.y() - box.height() * 1000, box.width() * 2001,
                box.height() * 2001};
    return {(safe.x() - middle.x()) / scale + box.x(), (safe.y() - middle.y()) / scale + box.y(),
            safe.width() / scale, safe.height() / scale};
}

QRectF SvgLayers::Follow(const QRectF &target, SvgDocument moment, const std::vector<int> &changed)
{
    const bool elsewhere = std::exchange(m_target, target) != target;
    const QRectF &box = moment.ViewBox;
    m_screen = QTransform::fromTranslate(target.x(), target.y());
    m_screen.scale(target.width() / box.width(), target.height() / box.height());
    m_screen.translate(-box.x(), -box.y());
    QRectF different;
    for (Layer &layer : m_layers) {
        const bool touched = std::any_of(changed.begin(), changed.end(), [&](int one) {
            return std::binary_search(layer.Movers.begin(), layer.Movers.end(), one);
        });
        if (touched)
            layer.Rested = 0;
        if (touched || elsewhere)
            layer.Kept.reset();
        if (touched || layer.Text.isEmpty()) {
            const auto seen = [&] { return (layer.Place * m_screen).mapRect(layer.Bounds); };
            different |= seen();
            Follow(layer, moment);
            if (!layer.Renderer && !layer.Movers.empty()) {
                layer.Renderer = std::make_shared<QSvgRenderer>(layer.Text);
                layer.Bounds = BoundsOf(*layer.Renderer, box);
            }
            different |= seen();
        }
        if (!layer.Kept && layer.Rested >= PaintingsUntilKept)
            layer.Kept = PaintPiece(PieceText(moment, layer.From, layer.To), target, m_sheet);
    }
    return (elsewhere ? target : different) & target;
}

void SvgLayers::Paint(QPainter &painter)
{
    const QRectF clip = painter.clipBoundingRect();
    for (Layer &layer : m_layers) {
        if (layer.Kept) {
            painter.drawImage(layer.Kept->Corner, layer.Kept->Picture);
            continue;
        }
        ++layer.Rested;
        if (!(layer.Place * m_screen).mapRect(layer.Bounds).intersects(clip))
            continue;
        painter.save();
        painter.setTransform(m_screen.inverted() * layer.Place * m_screen, true);
        layer.Renderer->render(&painter, m_target);
        painter.restore();
    }
}

} // namespace platform
