// Reads the wave files that teachers put into the sound folders: plain PCM, and nothing else.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

namespace platform {

// Samples as they stand in the file: little endian, channels interleaved, whole frames only.
struct WaveSound {
    int bitsPerSample = 0; // 8 (unsigned), 16, 24 or 32 (signed)
    int channels = 0;      // 1 or 2
    int framesPerSecond = 0;
    QByteArray samples; // never empty
};

// About two minutes of one channel at 44100 Hz and 16 bits; a longer file stays silent.
inline constexpr qint64 kLargestWaveFile = qint64{10} * 1024 * 1024;

// Nothing when the bytes are no wave file of a kind named above. A file that was cut short gives
// the samples that are there.
std::optional<WaveSound> ReadWave(const QByteArray &bytes);

// Nothing also when the file is missing, unreadable, too large or no plain file.
std::optional<WaveSound> ReadWaveFile(const QString &nativePath);

} // namespace platform
