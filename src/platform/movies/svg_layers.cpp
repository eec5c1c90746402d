// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#include "platform/movies/svg_layers.h"

#include "platform/movies/svg_transform.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {
namespace {

// To make a picture costs more than to paint once without it.
constexpr int PaintingsUntilKept = 3;
// What is pushed about stands within a quarter of a pixel of its place, so that few pictures serve
// a whole way and a slow way is still smooth.
constexpr int PlacesInAPixel = 2;

bool SameButForTheShift(const QTransform &one, const QTransform &other)
{
    constexpr double Least = 1e-6;
    return std::abs(one.m11() - other.m11()) < Least && std::abs(one.m12() - other.m12()) < Least &&
           std::abs(one.m21() - other.m21()) < Least && std::abs(one.m22() - other.m22()) < Least;
}

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
    layer.Pictures.clear();
    layer.Pushed = 0;
}

QRect SvgLayers::Follow(const QRectF &target, SvgDocument moment, const std::vector<int> &changed)
{
    const bool elsewhere = std::exchange(m_target, target) != target;
    const QRectF &box = moment.ViewBox;
    m_screen = QTransform::fromTranslate(target.x(), target.y());
    m_screen.scale(target.width() / box.width(), target.height() / box.height());
    m_screen.translate(-box.x(), -box.y());
    QRect different;
    for (Layer &layer : m_layers) {
        const bool touched = std::any_of(changed.begin(), changed.end(), [&](int one) {
            return std::binary_search(layer.Movers.begin(), layer.Movers.end(), one);
        });
        if (touched)
            layer.Rested = 0;
        if (touched || elsewhere)
            layer.Kept.reset();
        if (touched || layer.Text.isEmpty()) {
            const QRect before = Seen(layer);
            Follow(layer, moment);
            if (!layer.Renderer && !layer.Movers.empty()) {
                layer.Renderer = std::make_shared<QSvgRenderer>(layer.Text);
                layer.Bounds = BoundsOf(*layer.Renderer, box);
            }
            different |= before | Seen(layer);
        }
        if (!layer.Kept && layer.Rested >= PaintingsUntilKept)
            layer.Kept = PaintPiece(PieceText(moment, layer.From, layer.To), target);
    }
    return elsewhere ? target.toAlignedRect() : different;
}

// A pixel more on each side, for edges between pixels.
QRect SvgLayers::Seen(const Layer &layer) const
{
    const QRectF place = (layer.Place * m_screen).mapRect(layer.Bounds) & m_target;
    return place.isEmpty() ? QRect() : place.toAlignedRect().adjusted(-1, -1, 1, 1);
}

bool SvgLayers::Covers(const QRect &part) const
{
    const auto &ground = m_layers.front().Kept;
    return ground && !ground->Picture.hasAlphaChannel() &&
           QRect(ground->Corner, ground->Picture.size()).contains(part);
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
        PaintMoving(painter, layer);
    }
}

void SvgLayers::PaintMoving(QPainter &painter, Layer &layer) const
{
    const QTransform shown = layer.Place * m_screen;
    if (!SameButForTheShift(shown, layer.Shape)) {
        layer.Shape = shown;
        layer.Pushed = 0;
        layer.Pictures.clear();
    }
    QPoint corner;
    if (++layer.Pushed > PaintingsUntilKept) {
        if (const SvgPiece *picture = Picture(layer, shown, corner)) {
            painter.drawImage(corner + picture->Corner, picture->Picture);
            return;
        }
    }
    painter.save();
    painter.setTransform(m_screen.inverted() * shown, true);
    layer.Renderer->render(&painter, m_target);
    painter.restore();
}

// Nothing for what may be anywhere, or is larger than the target: a picture of it would cost more
// than it saves.
const SvgPiece *SvgLayers::Picture(Layer &layer, const QTransform &shown, QPoint &corner) const
{
    const auto place = [](double at) { return static_cast<int>(std::lround(at * PlacesInAPixel)); };
    const auto whole = [](int at) {
        return at >= 0 ? at / PlacesInAPixel : -(-at + PlacesInAPixel - 1) / PlacesInAPixel;
    };
    const QPoint at(place(shown.dx()), place(shown.dy()));
    corner = QPoint(whole(at.x()), whole(at.y()));
    const QPoint part = at - corner * PlacesInAPixel;
    const auto known = layer.Pictures.find({part.x(), part.y()});
    if (known != layer.Pictures.end())
        return &known->second;

    const QTransform there(shown.m11(), shown.m12(), shown.m21(), shown.m22(),
                           static_cast<double>(part.x()) / PlacesInAPixel,
                           static_cast<double>(part.y()) / PlacesInAPixel);
    const QRectF bounds = there.mapRect(layer.Bounds);
    if (bounds.width() > m_target.width() || bounds.height() > m_target.height())
        return nullptr;
    const QRect pixels = bounds.toAlignedRect();
    SvgPiece piece{QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied), pixels.topLeft()};
    piece.Picture.fill(Qt::transparent);
    QPainter painter(&piece.Picture);
    painter.translate(-pixels.topLeft());
    painter.setTransform(m_screen.inverted() * there, true);
    layer.Renderer->render(&painter, m_target);
    painter.end();
    return &layer.Pictures.emplace(std::pair(part.x(), part.y()), std::move(piece)).first->second;
}

} // namespace platform
