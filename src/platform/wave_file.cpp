// A RIFF file is a row of chunks: four letters, a length, that many bytes, and one more to make the
// length even. Of these a sound needs "fmt " and, behind it, "data".
#include "platform/wave_file.h"

#include <algorithm>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace platform {
namespace {

constexpr qsizetype kRiffHeader = 12;
constexpr qsizetype kChunkHeader = 8;
constexpr qsizetype kPlainFormat = 16;
constexpr qsizetype kExtendedFormat = 40;
constexpr qsizetype kExtendedKind = 24; // where the real kind stands in an extended format
constexpr quint16 kPcm = 1;
constexpr quint16 kExtended = 0xFFFE;

// What sound servers take without complaint.
constexpr quint32 kLowestRate = 1000;
constexpr quint32 kHighestRate = 192000;

quint16 Number16(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

quint32 Number32(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

bool HasLetters(const QByteArray &bytes, qsizetype at, const char *letters)
{
    return std::equal(letters, letters + 4, bytes.constData() + at);
}

std::optional<WaveSound> ReadFormat(const QByteArray &bytes, qsizetype at, qsizetype length)
{
    if (length < kPlainFormat)
        return std::nullopt;
    quint16 kind = Number16(bytes, at);
    if (kind == kExtended && length >= kExtendedFormat)
        kind = Number16(bytes, at + kExtendedKind);
    const quint16 channels = Number16(bytes, at + 2);
    const quint32 rate = Number32(bytes, at + 4);
    const quint16 bits = Number16(bytes, at + 14);
    const bool known = kind == kPcm && (channels == 1 || channels == 2) && rate >= kLowestRate &&
                       rate <= kHighestRate &&
                       (bits == 8 || bits == 16 || bits == 24 || bits == 32);
    if (!known || Number16(bytes, at + 12) != channels * bits / 8)
        return std::nullopt;
    return WaveSound{bits, channels, static_cast<int>(rate), {}};
}

} // namespace

std::optional<WaveSound> ReadWave(const QByteArray &bytes)
{
    if (bytes.size() < kRiffHeader || !HasLetters(bytes, 0, "RIFF") ||
        !HasLetters(bytes, 8, "WAVE"))
        return std::nullopt;
    std::optional<WaveSound> sound;
    qsizetype at = kRiffHeader;
    while (bytes.size() - at >= kChunkHeader) {
        const qsizetype body = at + kChunkHeader;
        const qsizetype told = Number32(bytes, at + 4);
        const qsizetype length = std::min(told, bytes.size() - body);
        if (HasLetters(bytes, at, "fmt ")) {
            sound = ReadFormat(bytes, body, length);
            if (!sound)
                return std::nullopt;
        } else if (HasLetters(bytes, at, "data")) {
            if (!sound)
                return std::nullopt;
            const qsizetype frame = sound->channels * sound->bitsPerSample / 8;
            sound->samples = bytes.mid(body, length - length % frame);
            return sound->samples.isEmpty() ? std::nullopt : sound;
        }
        at = body + length + (told % 2 != 0 && length == told ? 1 : 0);
    }
    return std::nullopt;
}

std::optional<WaveSound> ReadWaveFile(const QString &nativePath)
{
    // A named pipe would block on opening.
    if (!QFileInfo(nativePath).isFile())
        return std::nullopt;
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestWaveFile)
        return std::nullopt;
    return ReadWave(file.read(kLargestWaveFile));
}

} // namespace platform
