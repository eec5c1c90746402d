// How long each frame of an animated picture stands.
#include "platform/movies/frame_delays.h"

namespace platform {
namespace {

int ByteAt(const QByteArray &content, qsizetype at)
{
    return at >= 0 && at < content.size() ? static_cast<unsigned char>(content[at]) : 0;
}

qint64 Little(const QByteArray &content, qsizetype at, int bytes)
{
    qint64 number = 0;
    for (int index = bytes - 1; index >= 0; --index)
        number = number * 256 + ByteAt(content, at + index);
    return number;
}

int Standing(qint64 milliseconds)
{
    return milliseconds <= 10 ? 100 : static_cast<int>(milliseconds);
}

// Bytes of a colour table whose size the flags tell.
qsizetype TableSize(int flags)
{
    return (flags & 0x80) != 0 ? qsizetype{3} << ((flags & 7) + 1) : 0;
}

// Behind a row of blocks, each with its length ahead, that ends with an empty one.
qsizetype BehindBlocks(const QByteArray &content, qsizetype at)
{
    while (at < content.size() && ByteAt(content, at) != 0)
        at += 1 + ByteAt(content, at);
    return at + 1;
}

} // namespace

bool IsGif(const QByteArray &content)
{
    return content.startsWith("GIF87a") || content.startsWith("GIF89a");
}

bool IsWebp(const QByteArray &content)
{
    return content.startsWith("RIFF") && content.mid(8, 4) == "WEBP";
}

QSize CanvasSize(const QByteArray &content)
{
    if (!IsGif(content))
        return {};
    return {static_cast<int>(Little(content, 6, 2)), static_cast<int>(Little(content, 8, 2))};
}

std::vector<int> GifDelays(const QByteArray &content)
{
    std::vector<int> delays;
    qint64 delay = 0;
    qsizetype at = 13 + TableSize(ByteAt(content, 10));
    while (at < content.size()) {
        const int kind = ByteAt(content, at);
        if (kind == 0x21) { // an extension; the one before a frame holds hundredths of a second
            if (ByteAt(content, at + 1) == 0xF9)
                delay = Little(content, at + 4, 2) * 10;
            at = BehindBlocks(content, at + 2);
        } else if (kind == 0x2C) { // a frame
            delays.push_back(Standing(delay));
            delay = 0;
            at = BehindBlocks(content, at + 11 + TableSize(ByteAt(content, at + 9)));
        } else {
            break;
        }
    }
    return delays;
}

std::vector<int> WebpDelays(const QByteArray &content)
{
    std::vector<int> delays;
    for (qint64 at = 12; at + 8 <= content.size();) {
        const qint64 length = Little(content, at + 4, 4);
        if (content.mid(at, 4) == "ANMF")
            delays.push_back(Standing(Little(content, at + 8 + 12, 3)));
        at += 8 + length + length % 2;
    }
    return delays;
}

} // namespace platform
