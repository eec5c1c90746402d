// A run of a drawing's elements as a picture of its own: to rasterise thick outlines is most of
// what a drawing costs, to lay pictures over each other is next to nothing.
#pragma once

#include "platform/movies/svg_document.h"

#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRectF>

class QSvgRenderer;

namespace platform {

// Little more than the rectangle that something is painted on.
struct SvgPiece {
    QImage Picture; // null when nothing is
    QPoint Corner;  // its place, in the painter's pixels
};

// Only plain shapes can be painted apart: a gradient may lie in another piece. Nor is a drawing of
// very many elements worth it.
bool CanCut(const SvgDocument &document);
// Whether the pixels of pieces fall on the painter's pixels.
bool CanPaintPieces(const QPainter &painter);

// The drawing without what lies before element `from` or, from `to` on, behind the run; groups
// round it stay.
QByteArray PieceText(const SvgDocument &document, int from, int to);
// A rectangle round all that the drawing paints when the whole of it lies in `target`, found on a
// small sheet that shows as much again on each side, since what lies there may come in. What
// reaches the edge of that is taken to be anywhere.
QRectF BoundsOf(QSvgRenderer &drawing, const QRectF &target);
// What of the drawing falls into `target`, in which the whole of it lies.
SvgPiece PaintPiece(const QByteArray &text, const QRectF &target);

} // namespace platform
