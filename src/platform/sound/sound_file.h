// The sounds that teachers put into the sound folders, whatever kind of sound file they are: WAV
// plain or compressed, FLAC, Ogg. The kind is told by the content.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <memory>

namespace platform {

// About two minutes at 44100 Hz and 16 bits; a larger file stays silent.
inline constexpr qint64 LargestSoundFile = qint64{10} * 1024 * 1024;
// What a small file may grow to when it is decoded.
inline constexpr int LongestSound = 120; // seconds

// A sound that is decoded as it is played.
class SoundFile {
public:
    // Nothing when the bytes are no sound of one or two channels, too long, or of a rate that no
    // sound server takes.
    static std::unique_ptr<SoundFile> Open(const QByteArray &bytes);
    // Nothing also when the file is missing, unreadable, too large or no plain file.
    static std::unique_ptr<SoundFile> Open(const QString &nativePath);
    ~SoundFile();
    SoundFile(const SoundFile &) = delete;
    SoundFile &operator=(const SoundFile &) = delete;

    int Channels() const; // 1 or 2
    int FramesPerSecond() const;
    // Up to `frames` more frames, channels interleaved, from -1 to 1; gives how many there were, 0
    // at the end. A file that was cut short ends where it was cut.
    std::size_t Read(float *samples, std::size_t frames);

private:
    class Impl;
    explicit SoundFile(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> m_impl;
};

} // namespace platform
