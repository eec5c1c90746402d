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

void SvgLayers::Paint(QPainter &painter, const QRectF &target, SvgDocument moment,
                      const std::vector<int> &changed)
{
    const bool elsewhere = std::exchange(m_target, target) != target;
    const QRectF &box = moment.ViewBox;
    QTransform screen = QTransform::fromTranslate(target.x(), target.y());
    screen.scale(target.width() / box.width(), target.height() / box.height());
    screen.translate(-box.x(), -box.y());
    for (Layer &layer : m_layers) {
        const bool touched = std::any_of(changed.begin(), changed.end(), [&](int one) {
            return std::binary_search(layer.Movers.begin(), layer.Movers.end(), one);
        });
        if (touched)
            layer.Rested = 0;
        if (touched || elsewhere)
            layer.Kept.reset();
        if (touched || layer.Text.isEmpty())
            Follow(layer, moment);
        if (!layer.Kept && layer.Rested >= PaintingsUntilKept)
            layer.Kept = PaintPiece(PieceText(moment, layer.From, layer.To), target, m_sheet);
        if (layer.Kept) {
            painter.drawImage(layer.Kept->Corner, layer.Kept->Picture);
            continue;
        }
        if (!layer.Renderer)
            layer.Renderer = std::make_shared<QSvgRenderer>(layer.Text);
        painter.save();
        painter.setTransform(screen.inverted() * layer.Place * screen, true);
        layer.Renderer->render(&painter, target);
        painter.restore();
        ++layer.Rested;
    }
}

} // namespace platform
