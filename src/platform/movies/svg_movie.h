// A movie that is a drawing: the figure, which can be painted, and the rewards, which move.
#pragma once

#include "platform/movies/movie_reader.h"
#include "platform/movies/pick_map.h"
#include "platform/movies/svg_animation.h"
#include "platform/movies/svg_layers.h"
#include "platform/movies/svg_piece.h"

#include <QCache>
#include <QSvgRenderer>

#include <map>
#include <tuple>
#include <vector>

namespace platform {

// All parts in all colours of twelve figures on any screen, or of a large one on a usual screen. A
// figure that alone fills a very large screen is drawn anew each time.
constexpr qsizetype MostPieceBytes = qsizetype{8} * 1024 * 1024;

// What all readers of one file share. Kept once per process; readers change copies.
struct SvgSource {
    explicit SvgSource(SvgDocument document)
        : Document(std::move(document)), Animation(Document), CanCut(platform::CanCut(Document))
    {
    }
    const SvgDocument Document;
    const SvgAnimation Animation;
    const bool CanCut; // into pieces
    // Parts at rest by their text and place.
    QCache<QByteArray, SvgPiece> Pieces{MostPieceBytes};
    // By width, height and shown parts. Made when asked; a resized window drops the old ones.
    std::map<std::tuple<int, int, unsigned>, std::shared_ptr<const PickMap>> PickMaps;
};

class SvgMovie : public MovieReader {
public:
    explicit SvgMovie(std::shared_ptr<SvgSource> source);

    QSizeF Size() const override { return m_document.ViewBox.size(); }
    void Paint(QPainter &painter, const QRectF &target) override;
    void SetVariable(const QString &name, const QString &value) override;
    void SetProperty(const QString &target, int property, const QString &value) override;
    bool Advance(int milliseconds) override;
    QRect Changed(const QRect &target) override;
    bool Covers(const QRect &part, const QRectF &target) const override;
    int Duration() const override { return m_source->Animation.Duration(); }
    int Hit(const QPointF &point, const QRectF &target) override;
    QString Description() const override;

private:
    void Color(const QByteArray &color);
    void Repainted();
    void PaintWhole(QPainter &painter, const QRectF &fitted);
    void PaintStill(QPainter &painter, const QRectF &fitted);
    // Brings the layers to the present moment; tells what that changes.
    QRect Follow(const QRectF &fitted);
    void PaintLayers(QPainter &painter, const QRectF &fitted);
    bool Moves() const { return m_time > 0 && m_time < Duration(); }
    SvgDocument Moment() const;
    QByteArray ColorOf(const QByteArray &object) const;

    std::shared_ptr<SvgSource> m_source;
    SvgDocument m_document;        // with this reader's paint
    QByteArray m_object;           // that the next colour goes to
    int m_time = 0;                // ms
    SvgAnimation::Values m_values; // at m_time
    QSvgRenderer m_renderer;
    bool m_stale = true;             // it does not hold the present state yet
    std::vector<QByteArray> m_parts; // as they are painted at rest; empty when not known yet
    SvgLayers m_layers;
    SvgAnimation::Values m_painted; // those that the layers hold
};

// The largest rectangle of the picture's proportions inside `target`, centred.
QRectF Fitted(const QSizeF &picture, const QRectF &target);

} // namespace platform
