// A moving drawing painted in layers: what stands still for a while is kept as a picture.
#pragma once

#include "platform/movies/svg_document.h"
#include "platform/movies/svg_piece.h"

#include <QImage>
#include <QPainter>
#include <QRectF>

#include <map>
#include <vector>

namespace platform {

class SvgLayers {
public:
    // `moment` is the drawing as it is now; `changed` are the elements whose attributes differ
    // from those painted last, in ascending order.
    void Paint(QPainter &painter, const QRectF &target, const SvgDocument &moment,
               const std::vector<int> &changed);

private:
    struct Layer { // elements from `From`, before `To`
        int From;
        int To;
        bool Moves;
        SvgPiece Still; // of one that does not move
    };
    bool Moves(const SvgDocument &moment, int element) const;
    bool Watch(const SvgDocument &moment, const std::vector<int> &changed);
    void Cut(const SvgDocument &moment);

    std::map<int, int> m_still; // of an element that moves: frames since it changed
    std::vector<Layer> m_layers;
    QRectF m_target;
    QImage m_sheet; // that pictures are drawn on
};

} // namespace platform
