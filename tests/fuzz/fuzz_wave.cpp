// Whatever bytes stand in a sound folder, reading them must do no harm, and what comes out must be
// something that a sound server can take.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "platform/wave_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto sound = platform::ReadWave(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    if (!sound)
        return 0;
    const int frame = sound->channels * sound->bitsPerSample / 8;
    const bool playable = (sound->channels == 1 || sound->channels == 2) &&
                          sound->framesPerSecond > 0 && frame > 0 && !sound->samples.isEmpty() &&
                          sound->samples.size() % frame == 0 &&
                          static_cast<std::size_t>(sound->samples.size()) < size;
    if (!playable)
        std::abort();
    return 0;
}
