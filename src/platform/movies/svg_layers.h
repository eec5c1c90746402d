// A moving drawing painted in layers: what stands still for a while is kept as a picture, for to
// rasterise thick outlines is most of what a frame costs.
#pragma once

#include "platform/movies/svg_document.h"

#include <QImage>
#include <QPainter>
#include <QRectF>

#include <map>
#include <vector>

namespace platform {

class SvgLayers {
public:
    // Only plain shapes can be painted apart: a copy or a gradient refers to an element that may
    // lie in another layer.
    static bool CanCut(const SvgDocument &document);
    // Whether kept pixels fall on the painter's pixels.
    static bool CanPaint(const QPainter &painter);

    // `moment` is the drawing as it is now; `changed` are the elements whose attributes differ
    // from those painted last, in ascending order.
    void Paint(QPainter &painter, const QRectF &target, const SvgDocument &moment,
               const std::vector<int> &changed);

private:
    struct Layer { // elements from `From`, before `To`
        int From;
        int To;
        bool Moves;
        QImage Picture;
        QPoint Corner;
    };
    bool Moves(const SvgDocument &moment, int element) const;
    bool Watch(const SvgDocument &moment, const std::vector<int> &changed);
    void Cut(const SvgDocument &moment);
    Layer Keep(const SvgDocument &moment, int from, int to);

    std::map<int, int> m_still; // of an element that moves: frames since it changed
    std::vector<Layer> m_layers;
    QRectF m_target;
    QImage m_sheet; // that pictures are drawn on
};

} // namespace platform
