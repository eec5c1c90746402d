#include "platform/sound/sound_file.h"

// Windows reads what it plays by itself.
#ifndef Q_OS_WIN

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstring>

#include <sndfile.h>

namespace platform {

namespace {

// What sound servers take without complaint, in frames a second.
constexpr int LowestRate = 1000;
constexpr int HighestRate = 192000;

} // namespace

// The library reads from memory, so that a disk that is slow or gone disturbs no sound.
class SoundFile::Impl {
public:
    explicit Impl(const QByteArray &bytes) : m_bytes(bytes)
    {
        SF_VIRTUAL_IO access{};
        access.get_filelen = [](void *self) -> sf_count_t { return Self(self).m_bytes.size(); };
        access.seek = Seek;
        access.read = Read;
        access.write = [](const void *, sf_count_t, void *) -> sf_count_t { return 0; };
        access.tell = [](void *self) -> sf_count_t { return Self(self).m_at; };
        File = sf_open_virtual(&access, SFM_READ, &Info, this);
    }
    ~Impl()
    {
        if (File != nullptr)
            sf_close(File);
    }
    Impl(const Impl &) = delete;
    Impl &operator=(const Impl &) = delete;

    bool Playable() const
    {
        return File != nullptr && (Info.channels == 1 || Info.channels == 2) &&
               Info.samplerate >= LowestRate && Info.samplerate <= HighestRate && Info.frames > 0 &&
               Info.frames <= sf_count_t{LongestSound} * Info.samplerate;
    }

    SNDFILE *File = nullptr;
    SF_INFO Info{};
    sf_count_t FramesRead = 0;

private:
    static Impl &Self(void *self) { return *static_cast<Impl *>(self); }

    static sf_count_t Seek(sf_count_t offset, int from, void *self)
    {
        Impl &impl = Self(self);
        const sf_count_t base = from == SEEK_SET   ? 0
                                : from == SEEK_CUR ? impl.m_at
                                                   : impl.m_bytes.size();
        // A hostile file may ask for any place.
        const sf_count_t size = impl.m_bytes.size();
        impl.m_at = base + std::clamp(offset, -base, size - base);
        return impl.m_at;
    }

    static sf_count_t Read(void *to, sf_count_t count, void *self)
    {
        Impl &impl = Self(self);
        const sf_count_t length =
            std::clamp(count, sf_count_t{0}, sf_count_t{impl.m_bytes.size()} - impl.m_at);
        std::memcpy(to, impl.m_bytes.constData() + impl.m_at, static_cast<std::size_t>(length));
        impl.m_at += length;
        return length;
    }

    QByteArray m_bytes;
    sf_count_t m_at = 0;
};

SoundFile::SoundFile(std::unique_ptr<Impl> impl) : m_impl(std::move(impl)) {}
SoundFile::~SoundFile() = default;

std::unique_ptr<SoundFile> SoundFile::Open(const QByteArray &bytes)
{
    auto impl = std::make_unique<Impl>(bytes);
    if (!impl->Playable())
        return nullptr;
    return std::unique_ptr<SoundFile>(new SoundFile(std::move(impl)));
}

std::unique_ptr<SoundFile> SoundFile::Open(const QString &nativePath)
{
    // A named pipe would block on opening.
    if (!QFileInfo(nativePath).isFile())
        return nullptr;
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly) || file.size() > LargestSoundFile)
        return nullptr;
    // Not more: what is asked for is set aside, and stays so while the sound is held.
    return Open(file.read(file.size()));
}

int SoundFile::Channels() const
{
    return m_impl->Info.channels;
}

int SoundFile::FramesPerSecond() const
{
    return m_impl->Info.samplerate;
}

std::size_t SoundFile::Read(float *samples, std::size_t frames)
{
    // The header's count has been looked at, and a file may hold more than it tells.
    const sf_count_t left = m_impl->Info.frames - m_impl->FramesRead;
    const sf_count_t wanted = std::min(static_cast<sf_count_t>(frames), left);
    const sf_count_t read =
        wanted <= 0 ? 0 : std::max(sf_readf_float(m_impl->File, samples, wanted), sf_count_t{0});
    m_impl->FramesRead += read;
    // Files of floating point hold any number.
    std::for_each(samples, samples + read * Channels(), [](float &sample) {
        sample = std::isnan(sample) ? 0.0F : std::clamp(sample, -1.0F, 1.0F);
    });
    return static_cast<std::size_t>(read);
}

} // namespace platform

#endif
