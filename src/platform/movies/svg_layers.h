// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#pragma once

#include "platform/movies/svg_document.h"
#include "platform/movies/svg_piece.h"

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSvgRenderer>
#include <QTransform>

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

class SvgLayers {
public:
    // Nothing is painted.
    SvgLayers() = default;
    // `animated` are the elements that may ever change, in ascending order. What changes together
    // is one layer.
    SvgLayers(const SvgDocument &document, const std::vector<int> &animated);

    bool IsEmpty() const { return m_layers.empty(); }
    // `moment` is the drawing as it is now, to be painted into `target`; `changed` are the elements
    // whose attributes differ from those before. Tells what of the target looks different now.
    QRect Follow(const QRectF &target, SvgDocument moment, const std::vector<int> &changed);
    void Paint(QPainter &painter);
    // Whether what lies lowest leaves no pixel of this part open.
    bool Covers(const QRect &part) const;

private:
    struct Layer { // elements from `From`, before `To`
        int From = 0;
        int To = 0;
        std::vector<int> Movers; // that change it: groups round it, then itself
        int Rested = 0;          // paintings since it changed
        QByteArray Text;         // as it is, but for `Place`; empty when not known yet
        QTransform Place;        // from the units of the text to the drawing's
        QRectF Bounds;           // of what the text paints, in its units
        std::shared_ptr<QSvgRenderer> Renderer; // of the text; made when asked
        std::optional<SvgPiece> Kept;
        // What is only pushed about, as pictures: the same on the screen but for the place.
        QTransform Shape; // the place on the screen, when this was last another but for the shift
        int Pushed = 0;   // paintings since
        std::map<std::pair<int, int>, SvgPiece> Pictures; // by the part of a pixel, right and down
    };
    QRect Seen(const Layer &layer) const; // where it may be painted
    void PaintMoving(QPainter &painter, Layer &layer) const;
    const SvgPiece *Picture(Layer &layer, const QTransform &shown, QPoint &corner) const;
    static void Follow(Layer &layer, SvgDocument &moment);

    std::vector<Layer> m_layers;
    QRectF m_target;
    QTransform m_screen; // from the drawing's units to the target's
};

} // namespace platform
