// Whatever bytes stand in a sound folder, reading them must do no harm, and what comes out must be
// something that a sound server can take.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "platform/sound/sound_file.h"

#include "fuzz/silence.h"

// The system's decoders lose some kilobytes of a damaged file.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libsndfile\nleak:libvorbis\nleak:libogg\nleak:libFLAC\nleak:libopus\n"
           "leak:libmpg123\nleak:libmp3lame\n";
}

extern "C" const char *__lsan_default_options()
{
    return "print_suppressions=0";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Silence silence; // the decoders find much to say
    const auto sound = platform::SoundFile::Open(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!sound)
        return 0;
    const int channels = sound->Channels();
    const int rate = sound->FramesPerSecond();
    if ((channels != 1 && channels != 2) || rate < 1000 || rate > 192000)
        std::abort();
    constexpr std::size_t Frames = 4096;
    std::vector<float> samples(Frames * 2);
    std::size_t whole = 0;
    while (const std::size_t read = sound->Read(samples.data(), Frames)) {
        whole += read;
        for (std::size_t i = 0; i < read * static_cast<std::size_t>(channels); ++i)
            if (!(std::fabs(samples[i]) <= 1))
                std::abort();
    }
    if (whole > static_cast<std::size_t>(rate) * platform::LongestSound)
        std::abort();
    return 0;
}
