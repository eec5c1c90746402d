// Drawings and pictures that the movie tests are made of.
#pragma once

#include "platform/movies/movie_formats.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <memory>

// What a movie shows on a white ground of this size.
inline QImage Shown(platform::MovieReader &movie, const QSize &size = {100, 100})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    movie.Paint(painter, image.rect());
    return image;
}

inline QByteArray Svg(const QByteArray &inside,
                      const QByteArray &attributes = "viewBox='0 0 100 100'")
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' " +
           attributes + ">" + inside + "</svg>";
}

// A figure of flat bars, 10 units each, from the chimney at the top to the clouds at the bottom;
// each has an inside, an outline on its left tenth and a shade on its right one.
inline QByteArray Figure()
{
    QByteArray inside;
    int y = 0;
    for (const char *part :
         {"comignolo", "tetto", "pareti", "finestre", "porta", "gradino", "fumo", "nuvole"}) {
        const QByteArray name = part;
        const QByteArray top = QByteArray::number(y);
        const QByteArray middle = QByteArray::number(y + 5);
        inside += "<g id='" + name + "'><rect id='" + name +
                  ".interno' style='fill:#eeeeee' x='20' y='" + top +
                  "' width='60' height='10'/><path id='" + name +
                  ".contorno' style='fill:none;stroke:#000000;stroke-width:10' d='M10 " + middle +
                  "H20'/><rect id='" + name + ".ombra' fill='#000' fill-opacity='0.2' x='80' y='" +
                  top + "' width='10' height='10'/></g>";
        y += 10;
    }
    return Svg(inside);
}

inline std::unique_ptr<platform::MovieReader> Movie(const QByteArray &content)
{
    return platform::ReadMovie(content);
}

inline QColor At(const QImage &image, int x, int y)
{
    return image.pixelColor(x, y);
}

// How many pixels differ from the expected ones by more than a shift of less than a pixel can
// explain: such a shift gives a pixel a colour between those round it.
inline int Strays(const QImage &image, const QImage &expected)
{
    constexpr int Rounding = 24; // where edges lie over one another they mix
    int strays = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            for (int shift : {0, 8, 16}) {
                const auto channel = [shift](QRgb pixel) {
                    return static_cast<int>(pixel >> shift & 0xFF);
                };
                int least = 255;
                int most = 0;
                for (int v = std::max(y - 1, 0); v <= std::min(y + 1, image.height() - 1); ++v)
                    for (int u = std::max(x - 1, 0); u <= std::min(x + 1, image.width() - 1); ++u) {
                        least = std::min(least, channel(expected.pixel(u, v)));
                        most = std::max(most, channel(expected.pixel(u, v)));
                    }
                const int own = channel(image.pixel(x, y));
                strays += own < least - Rounding || own > most + Rounding ? 1 : 0;
            }
    return strays;
}

// Largest difference of a channel.
inline int Difference(const QImage &one, const QImage &other)
{
    int most = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            most = std::max({most, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                             std::abs(a.blue() - b.blue())});
        }
    return most;
}
