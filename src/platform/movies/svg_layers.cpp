// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#include "platform/movies/svg_layers.h"

#include <QSvgRenderer>

#include <algorithm>
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

bool HasShapes(const SvgDocument &document, int from, int to)
{
    for (int index = from; index < to; ++index)
        if (At(document, index).Name != "g" && At(document, index).Name != "svg" &&
            !IsAnimation(At(document, index)))
            return true;
    return false;
}

} // namespace

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
            m_layers.push_back(
                same != before.end()
                    ? *same
                    : Layer{from, first, false,
                            PaintPiece(PieceText(moment, from, first), m_target, m_sheet)});
        }
        if (first < behind)
            m_layers.push_back({first, behind, true, {}});
        from = behind;
    }
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
            QSvgRenderer renderer(PieceText(moment, layer.From, layer.To));
            renderer.render(&painter, target);
        } else {
            painter.drawImage(layer.Still.Corner, layer.Still.Picture);
        }
    }
}

} // namespace platform
