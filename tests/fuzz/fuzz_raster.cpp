// Any bytes as ready pictures, WebP or GIF: opened, painted and played to the last frame.
#include "platform/movies/movie_formats.h"

#include <QGuiApplication>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int count = 1;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static char name[] = "fuzz_raster";
    static char *arguments[] = {name, nullptr};
    static QGuiApplication application(count, arguments);
    static const bool quiet = [] {
        QLoggingCategory::setFilterRules("*=false");
        return true;
    }();
    static_cast<void>(quiet);

    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    auto movie = platform::ReadRasterMovie(content);
    if (!movie)
        return 0;
    if (movie->Duration() < 0 || movie->Size().isEmpty())
        std::abort();
    QImage image(60, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    movie->Paint(painter, image.rect());
    // Many large frames take some seconds, as they may.
    if (movie->Size().width() * movie->Size().height() > 256 * 256)
        return 0;
    for (const int part : {4, 2, 1}) {
        movie->Advance(movie->Duration() / part);
        movie->Paint(painter, image.rect());
    }
    if (movie->Advance(movie->Duration()) || movie->Advance(0))
        std::abort();
    return 0;
}
