// A run of a drawing's elements as a picture of its own: to rasterise thick outlines is most of
// what a drawing costs, to lay pictures over each other is next to nothing.
#pragma once

#include "platform/movies/svg_document.h"

#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRectF>

namespace platform {

// Only the rectangle that something is painted on.
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
// The smallest rectangle round all that is painted.
QRect PaintedPart(const QImage &image);
// The whole drawing lies in `target`. The sheet is drawn on, and may serve the next piece.
SvgPiece PaintPiece(const QByteArray &text, const QRectF &target, QImage &sheet);

} // namespace platform
