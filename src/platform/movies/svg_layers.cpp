// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#include "platform/movies/svg_layers.h"

#include <QSvgRenderer>

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

void SvgLayers::Paint(QPainter &painter, const QRectF &target, const SvgDocument &moment,
                      const std::vector<int> &changed)
{
    const bool elsewhere = std::exchange(m_target, target) != target;
    for (Layer &layer : m_layers) {
        const bool touched = std::any_of(changed.begin(), changed.end(), [&](int one) {
            return std::binary_search(layer.Movers.begin(), layer.Movers.end(), one);
        });
        if (touched)
            layer.Rested = 0;
        if (touched || elsewhere)
            layer.Kept.reset();
        if (touched || layer.Text.isEmpty())
            layer.Text = PieceText(moment, layer.From, layer.To);
        if (!layer.Kept && layer.Rested >= PaintingsUntilKept)
            layer.Kept = PaintPiece(layer.Text, target, m_sheet);
        if (layer.Kept) {
            painter.drawImage(layer.Kept->Corner, layer.Kept->Picture);
            continue;
        }
        QSvgRenderer renderer(layer.Text);
        renderer.render(&painter, target);
        ++layer.Rested;
    }
}

} // namespace platform
