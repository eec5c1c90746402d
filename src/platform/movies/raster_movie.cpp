// A movie of ready pictures, WebP or GIF: each is decoded when it is first painted.
#include "platform/movies/frame_delays.h"
#include "platform/movies/movie_formats.h"
#include "platform/movies/svg_movie.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QPainter>

#include <algorithm>
#include <limits>

namespace platform {
namespace {

constexpr int LargestSide = 4096;
constexpr size_t MostFrames = 2000;
constexpr int LongestMovie = std::numeric_limits<int>::max(); // ms
constexpr qint64 MostPixels = qint64{1} << 30; // of all frames together: some seconds of decoding

class RasterMovie : public MovieReader {
public:
    RasterMovie(const QByteArray &content, const QByteArray &format, std::vector<int> delays)
        : m_content(content), m_delays(std::move(delays))
    {
        m_buffer.setData(m_content);
        m_buffer.open(QIODevice::ReadOnly);
        m_reader = std::make_unique<QImageReader>(&m_buffer, format);
        // A frame may stand for hours.
        qint64 duration = 0;
        for (const int delay : m_delays)
            duration += delay;
        if (m_delays.size() >= 2)
            m_duration = static_cast<int>(std::min<qint64>(duration, LongestMovie));
    }

    bool Open()
    {
        // The decoder tells the size of a frame where a GIF tells that of the whole.
        const QSize size = m_reader->size().expandedTo(CanvasSize(m_content));
        if (!m_reader->size().isValid() || size.width() > LargestSide ||
            size.height() > LargestSide || m_delays.size() > MostFrames ||
            qint64{size.width()} * size.height() * static_cast<qint64>(m_delays.size()) >
                MostPixels)
            return false;
        m_image = m_reader->read();
        return !m_image.isNull();
    }

    QSizeF Size() const override { return m_image.size(); }

    void Paint(QPainter &painter, const QRectF &target) override
    {
        // Frames are made one on top of the other: none can be left out.
        while (m_decoded < m_wanted) {
            ++m_decoded;
            QImage next = m_damaged ? QImage() : m_reader->read();
            m_damaged = next.isNull();
            if (!m_damaged)
                m_image = std::move(next);
        }
        if (target.isEmpty())
            return;
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(Fitted(Size(), target), m_image);
        painter.restore();
    }

    void SetVariable(const QString &, const QString &) override {}
    void SetProperty(const QString &, int, const QString &) override {}

    bool Advance(int milliseconds) override
    {
        size_t frame = 0;
        qint64 end = m_delays.empty() ? 0 : m_delays.front();
        while (frame + 1 < m_delays.size() && milliseconds >= end)
            end += m_delays[++frame];
        // Time only goes on: the decoder cannot go back.
        if (frame <= m_wanted)
            return false;
        m_wanted = frame;
        return true;
    }

    int Duration() const override { return m_duration; }
    int Hit(const QPointF &, const QRectF &) override { return 0; }
    QString Description() const override { return {}; }

private:
    QByteArray m_content;
    std::vector<int> m_delays; // ms
    QBuffer m_buffer;
    std::unique_ptr<QImageReader> m_reader;
    QImage m_image;
    size_t m_decoded = 0; // the frame that m_image holds
    size_t m_wanted = 0;
    int m_duration = 0; // ms; a movie is played once, however often it asks for
    bool m_damaged = false;
};

} // namespace

std::unique_ptr<MovieReader> ReadRasterMovie(const QByteArray &content)
{
    const bool gif = IsGif(content);
    if (content.size() > LargestMovie || !(gif || IsWebp(content)))
        return nullptr;
    auto movie = std::make_unique<RasterMovie>(content, gif ? "gif" : "webp",
                                               gif ? GifDelays(content) : WebpDelays(content));
    if (!movie->Open())
        return nullptr;
    return movie;
}

} // namespace platform
