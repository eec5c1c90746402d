// Moving pictures of one plain colour a frame, made byte by byte.
#pragma once

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QList>

struct RasterFrame {
    QColor Color;
    int Delay; // ms
};

inline QByteArray LittleEndian(qint64 number, int bytes)
{
    QByteArray text;
    for (int index = 0; index < bytes; ++index, number >>= 8)
        text += static_cast<char>(number & 255);
    return text;
}

// 4 by 4 pixels, each frame with a colour table of its own; the codes are kept short by clearing
// the table before each pixel pair.
inline QByteArray Gif(const QList<RasterFrame> &frames, int width = 4, int height = 4)
{
    QByteArray gif = "GIF89a" + LittleEndian(width, 2) + LittleEndian(height, 2) + QByteArray(3, 0);
    for (const RasterFrame &frame : frames) {
        gif += QByteArray("\x21\xF9\x04\x00", 4) + LittleEndian(frame.Delay / 10, 2) +
               QByteArray(2, 0);
        gif += ',' + QByteArray(4, 0) + LittleEndian(4, 2) + LittleEndian(4, 2) + '\x81';
        const QColor &color = frame.Color;
        for (int row = 0; row < 4; ++row)
            gif += QByteArray() + static_cast<char>(color.red()) +
                   static_cast<char>(color.green()) + static_cast<char>(color.blue());
        // Codes of three bits: clear (4), then two pixels (0), and so on; end (5).
        QByteArray bits;
        quint32 pending = 0;
        int count = 0;
        const auto code = [&](quint32 value) {
            pending |= value << count;
            for (count += 3; count >= 8; count -= 8, pending >>= 8)
                bits += static_cast<char>(pending & 255);
        };
        for (int pair = 0; pair < 8; ++pair)
            for (const quint32 value : {4U, 0U, 0U})
                code(value);
        code(5);
        bits += static_cast<char>(pending & 255);
        gif += '\x02' + LittleEndian(bits.size(), 1) + bits + QByteArray(1, 0);
    }
    return gif + ';';
}

inline QByteArray StillWebp(const QColor &color, const QSize &size = {4, 4})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "WEBP", 100);
    return bytes;
}

inline QByteArray Chunk(const QByteArray &name, const QByteArray &content)
{
    return name + LittleEndian(content.size(), 4) + content + QByteArray(content.size() % 2, 0);
}

inline QByteArray Webp(const QList<RasterFrame> &frames, int width = 4, int height = 4)
{
    QByteArray chunks = Chunk("VP8X", QByteArray("\x02\0\0\0", 4) + LittleEndian(width - 1, 3) +
                                          LittleEndian(height - 1, 3));
    chunks += Chunk("ANIM", QByteArray(6, 0));
    for (const RasterFrame &frame : frames)
        chunks += Chunk("ANMF", QByteArray(6, 0) + LittleEndian(3, 3) + LittleEndian(3, 3) +
                                    LittleEndian(frame.Delay, 3) + QByteArray(1, 0) +
                                    StillWebp(frame.Color).mid(12));
    return Chunk("RIFF", "WEBP" + chunks);
}
