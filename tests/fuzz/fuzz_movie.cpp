// Any bytes as a drawing: opened, painted, coloured, played to its end and clicked. Ready pictures
// are fuzz_raster's.
#include "platform/movies/frame_delays.h"
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
    static char name[] = "fuzz_movie";
    static char *arguments[] = {name, nullptr};
    static QGuiApplication application(count, arguments);
    static const bool quiet = [] {
        QLoggingCategory::setFilterRules("*=false");
        return true;
    }();
    static_cast<void>(quiet);

    const QByteArray content(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (platform::IsGif(content) || platform::IsWebp(content))
        return 0;
    auto movie = platform::ReadMovie(content);
    if (!movie)
        return 0;
    if (movie->Duration() < 0)
        std::abort();
    QImage image(60, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    movie->Paint(painter, image.rect());
    for (const char *object : {"tetto.interno", "porta.contorno"}) {
        movie->SetVariable("QualeOggetto", object);
        movie->SetVariable("TestoColore.QualeColore", "FF0000");
    }
    movie->SetProperty("fumo", 7, "0");
    for (const int part : {4, 2, 1, 4}) {
        movie->Advance(movie->Duration() / part);
        const QRect changed = movie->Changed(image.rect());
        static_cast<void>(movie->Covers(changed, image.rect()));
        movie->Paint(painter, image.rect());
    }
    movie->Hit({30, 40}, image.rect());
    static_cast<void>(movie->Description());
    return 0;
}
