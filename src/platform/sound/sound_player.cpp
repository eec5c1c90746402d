// The sound of a right or a wrong answer must never keep the child waiting, whatever the sound
// server does. So the server is talked to from a thread of its own, and no reply is waited for.
#include "platform/sound/sound_player.h"

#include <QtGlobal>

#ifndef Q_OS_WIN

#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include <pulse/pulseaudio.h>

#include "platform/sound/sound_file.h"

namespace platform {
namespace {

// How much the server holds ahead: long enough not to stutter, short enough to feel immediate.
constexpr pa_usec_t TargetLength = 40 * PA_USEC_PER_MSEC;

// A server that was stuck for longer must not answer a child who is at the next task by now.
constexpr std::chrono::seconds LatestStart{2};

pa_sample_spec SampleSpec(const SoundFile &sound)
{
    pa_sample_spec spec{};
    spec.format = PA_SAMPLE_FLOAT32NE;
    spec.channels = static_cast<uint8_t>(sound.Channels());
    spec.rate = static_cast<uint32_t>(sound.FramesPerSecond());
    return spec;
}

// All fields belong to the loop: they are touched with its lock held, which its callbacks have.
class Player {
public:
    Player() : m_loop(pa_threaded_mainloop_new())
    {
        if (m_loop && pa_threaded_mainloop_start(m_loop) < 0) {
            pa_threaded_mainloop_free(m_loop);
            m_loop = nullptr;
        }
    }

    ~Player()
    {
        if (!m_loop)
            return;
        pa_threaded_mainloop_stop(m_loop);
        DropStream();
        DropContext();
        pa_threaded_mainloop_free(m_loop);
    }

    Player(const Player &) = delete;
    Player &operator=(const Player &) = delete;

    // Without a sound only the one that still plays is cut off.
    void Play(std::unique_ptr<SoundFile> sound)
    {
        if (!m_loop)
            return;
        pa_threaded_mainloop_lock(m_loop);
        DropStream();
        m_sound = std::move(sound);
        m_begun = false;
        m_asked = std::chrono::steady_clock::now();
        // Finding the server reads files and may take some milliseconds: the loop does it.
        pa_mainloop_api_once(pa_threaded_mainloop_get_api(m_loop), &Player::Start, this);
        pa_threaded_mainloop_unlock(m_loop);
    }

private:
    static void Start(pa_mainloop_api *, void *self)
    {
        Player &player = *static_cast<Player *>(self);
        player.DropStream(); // of a sound asked for just before
        if (!player.m_context || !PA_CONTEXT_IS_GOOD(pa_context_get_state(player.m_context)))
            player.Connect();
        else if (pa_context_get_state(player.m_context) == PA_CONTEXT_READY)
            player.StartStream();
    }

    void Connect()
    {
        DropContext();
        m_context = pa_context_new(pa_threaded_mainloop_get_api(m_loop), "MorleneKVT");
        if (!m_context)
            return;
        pa_context_set_state_callback(m_context, &Player::ContextChanged, this);
        pa_context_connect(m_context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    }

    void StartStream()
    {
        if (IsTooLate() || !m_sound)
            return;
        const pa_sample_spec spec = SampleSpec(*m_sound);
        m_stream = pa_stream_new(m_context, "MorleneKVT", &spec, nullptr);
        if (!m_stream)
            return;
        pa_stream_set_state_callback(m_stream, &Player::StreamChanged, this);
        pa_stream_set_write_callback(m_stream, &Player::WriteMore, this);
        const uint32_t serverDecides = UINT32_MAX;
        pa_buffer_attr buffer{};
        buffer.maxlength = serverDecides;
        buffer.prebuf = serverDecides;
        buffer.minreq = serverDecides;
        buffer.fragsize = serverDecides;
        buffer.tlength = static_cast<uint32_t>(pa_usec_to_bytes(TargetLength, &spec));
        if (pa_stream_connect_playback(m_stream, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY,
                                       nullptr, nullptr) < 0)
            DropStream();
    }

    bool IsTooLate() const { return std::chrono::steady_clock::now() - m_asked > LatestStart; }

    // Without its callbacks a stream that is on its way out cannot disturb the next one. One that
    // the server has not answered yet can only be ended when the answer comes.
    void DropStream()
    {
        if (!m_stream)
            return;
        pa_stream_set_write_callback(m_stream, nullptr, nullptr);
        if (pa_stream_get_state(m_stream) == PA_STREAM_CREATING) {
            pa_stream_set_state_callback(m_stream, &Player::EndWhenReady, nullptr);
        } else {
            pa_stream_set_state_callback(m_stream, nullptr, nullptr);
            pa_stream_disconnect(m_stream);
        }
        pa_stream_unref(m_stream);
        m_stream = nullptr;
    }

    void DropContext()
    {
        if (!m_context)
            return;
        pa_context_set_state_callback(m_context, nullptr, nullptr);
        pa_context_disconnect(m_context);
        pa_context_unref(m_context);
        m_context = nullptr;
    }

    static void ContextChanged(pa_context *context, void *self)
    {
        Player &player = *static_cast<Player *>(self);
        const pa_context_state_t state = pa_context_get_state(context);
        if (state == PA_CONTEXT_READY)
            player.StartStream();
        else if (!PA_CONTEXT_IS_GOOD(state))
            player.DropStream();
    }

    static void StreamChanged(pa_stream *stream, void *self)
    {
        if (!PA_STREAM_IS_GOOD(pa_stream_get_state(stream)))
            static_cast<Player *>(self)->DropStream();
    }

    static void EndWhenReady(pa_stream *stream, void *)
    {
        if (pa_stream_get_state(stream) == PA_STREAM_READY)
            pa_stream_disconnect(stream);
    }

    static void WriteMore(pa_stream *stream, size_t wanted, void *self)
    {
        Player &player = *static_cast<Player *>(self);
        if (!player.m_begun && player.IsTooLate()) {
            player.DropStream();
            return;
        }
        player.m_begun = true;
        const auto channels = static_cast<size_t>(player.m_sound->Channels());
        const size_t frames = wanted / sizeof(float) / channels;
        player.m_samples.resize(frames * channels);
        const size_t read = player.m_sound->Read(player.m_samples.data(), frames);
        if (read > 0)
            pa_stream_write(stream, player.m_samples.data(), read * channels * sizeof(float),
                            nullptr, 0, PA_SEEK_RELATIVE);
        if (read == frames)
            return;
        // Draining also starts a sound that is shorter than what the server wants ahead.
        pa_stream_set_write_callback(stream, nullptr, nullptr);
        if (pa_operation *drain = pa_stream_drain(stream, &Player::Drained, self))
            pa_operation_unref(drain);
    }

    static void Drained(pa_stream *, int, void *self) { static_cast<Player *>(self)->DropStream(); }

    pa_threaded_mainloop *m_loop = nullptr;
    pa_context *m_context = nullptr;
    pa_stream *m_stream = nullptr;
    std::unique_ptr<SoundFile> m_sound;
    std::vector<float> m_samples;
    bool m_begun = false; // the server has some of it
    std::chrono::steady_clock::time_point m_asked;
};

} // namespace

void PlaySoundFile(const QString &nativePath)
{
    static Player player;
    // A missing file cuts off what still plays, too.
    player.Play(SoundFile::Open(nativePath));
}

} // namespace platform

#else

#include <QDir>
#include <QFileInfo>

#include <windows.h>

#include <mmsystem.h>

// The system's own player, which plays WAV alone.
void platform::PlaySoundFile(const QString &nativePath)
{
    // A missing file cuts off what still plays, too.
    PlaySoundW(nullptr, nullptr, 0);
    if (!QFileInfo(nativePath).isFile())
        return;
    // It takes a slash for part of a name.
    const QString path = QDir::toNativeSeparators(nativePath);
    PlaySoundW(reinterpret_cast<const wchar_t *>(path.utf16()), nullptr,
               SND_FILENAME | SND_ASYNC | SND_NODEFAULT);
}

#endif
