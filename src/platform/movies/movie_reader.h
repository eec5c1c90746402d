// What a reader of one kind of movie file offers to the movie control.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QSizeF>
#include <QString>

#include <memory>

class QPainter;
class QPointF;
class QRectF;

namespace platform {

class MovieReader {
public:
    virtual ~MovieReader() = default;

    virtual QSizeF Size() const = 0; // of the picture, in its own units

    // Paints the present state into `target` (logical pixels), proportions kept, centred.
    virtual void Paint(QPainter &painter, const QRectF &target) = 0;

    // Both are lost silently when the movie has no such thing.
    virtual void SetVariable(const QString &name, const QString &value) = 0;
    virtual void SetProperty(const QString &target, int property, const QString &value) = 0;

    // Milliseconds since the movie was loaded. False: nothing changed on the picture.
    virtual bool Advance(int milliseconds) = 0;
    // What of a painting in `target` is no longer as it was when this was last asked, or painted.
    virtual QRect Changed(const QRect &target) { return target; }
    // Whether every pixel of this part of `target` is painted, so that nothing is needed under it.
    virtual bool Covers(const QRect & /*part*/, const QRectF & /*target*/) const { return false; }
    // Length of the longest animation in milliseconds; 0 for a still picture.
    virtual int Duration() const = 0;

    // Number 1 to 8 of the topmost painted part at `point` when the movie is painted into
    // `target`; 0 for none.
    virtual int Hit(const QPointF &point, const QRectF &target) = 0;

    // What the figure shows: "comignolo RRGGBB, tetto RRGGBB, ... fumo 1, nuvole 0"; empty for a
    // movie without parts.
    virtual QString Description() const = 0;
};

// Opens `path`, a literal or native path that names a .swf: that file if it is there and a reader
// knows it, else the file of the same base name that ends in .svg, .webp or .gif. Readers are
// chosen by content. Nothing when no reader knows it; never an error.
std::unique_ptr<MovieReader> OpenMovie(const QString &path);

// How many movies a pattern "...\\*.swf" stands for: base names with one of the four endings, each
// counted once, folders included as in any look-up.
int CountMovies(const QString &pattern);

} // namespace platform
