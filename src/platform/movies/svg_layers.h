// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#pragma once

#include "platform/movies/svg_document.h"
#include "platform/movies/svg_piece.h"

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSvgRenderer>
#include <QTransform>

#include <memory>
#include <optional>
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
    // `moment` is the drawing as it is now; `changed` are the elements whose attributes differ
    // from those painted last.
    void Paint(QPainter &painter, const QRectF &target, SvgDocument moment,
               const std::vector<int> &changed);

private:
    struct Layer { // elements from `From`, before `To`
        int From = 0;
        int To = 0;
        std::vector<int> Movers; // that change it: groups round it, then itself
        int Rested = 0;          // paintings since it changed
        QByteArray Text;         // as it is, but for `Place`; empty when not known yet
        QTransform Place;        // from the units of the text to the drawing's
        std::shared_ptr<QSvgRenderer> Renderer; // of the text; made when asked
        std::optional<SvgPiece> Kept;
    };
    static void Follow(Layer &layer, SvgDocument &moment);

    std::vector<Layer> m_layers;
    QRectF m_target;
    QImage m_sheet; // that pictures are drawn on
};

} // namespace platform
