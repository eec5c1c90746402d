// A teacher's sound is played whatever kind of sound file it is; anything else in its place stays
// silent.
#include "platform/sound/sound_file.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include <sndfile.h>
#include <sys/stat.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

using platform::SoundFile;

namespace {

constexpr int Rate = 22050;
constexpr int Frames = Rate / 5;
constexpr float Loud = 0.5F;

// A tone of 441 Hz, as a file of that kind.
QByteArray Tone(int format, int channels = 1, int frames = Frames, int rate = Rate)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("tone"));
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = format;
    SNDFILE *file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    if (file == nullptr)
        qFatal("no tone of that kind: %s", sf_strerror(nullptr));
    std::vector<float> samples;
    for (int i = 0; i < frames * channels; ++i)
        samples.push_back(Loud * static_cast<float>(
                                     std::sin(2 * std::numbers::pi * 441 * (i / channels) / rate)));
    sf_writef_float(file, samples.data(), frames);
    sf_close(file);
    QFile written(path);
    return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
}

const int Plain = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

std::vector<float> AllOf(SoundFile &sound)
{
    std::vector<float> all;
    std::vector<float> some(1000 * static_cast<std::size_t>(sound.Channels()));
    while (const std::size_t read = sound.Read(some.data(), 1000))
        all.insert(all.end(), some.begin(),
                   some.begin() + static_cast<std::ptrdiff_t>(read) * sound.Channels());
    return all;
}

// Root of the mean square: of a sine its height divided by the root of two.
double Loudness(const std::vector<float> &samples)
{
    double sum = 0;
    for (const float sample : samples)
        sum += static_cast<double>(sample) * sample;
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

bool IsSilent(const QByteArray &bytes)
{
    return SoundFile::Open(bytes) == nullptr;
}

void Write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class TestSoundFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKindOfSoundFileIsRead_data()
    {
        QTest::addColumn<int>("format");
        const std::pair<const char *, int> kinds[] = {
            {"8 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_U8},
            {"16 bits", Plain},
            {"24 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_24},
            {"32 bits", SF_FORMAT_WAV | SF_FORMAT_PCM_32},
            {"extended", SF_FORMAT_WAVEX | SF_FORMAT_PCM_16},
            {"floating point", SF_FORMAT_WAV | SF_FORMAT_FLOAT},
            {"double precision", SF_FORMAT_WAV | SF_FORMAT_DOUBLE},
            {"telephone u", SF_FORMAT_WAV | SF_FORMAT_ULAW},
            {"telephone A", SF_FORMAT_WAV | SF_FORMAT_ALAW},
            {"compressed, IMA", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM},
            {"compressed, MS", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM},
            {"big endian", SF_FORMAT_AIFF | SF_FORMAT_PCM_16},
            {"FLAC", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
            {"Ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS}};
        for (const auto &[name, format] : kinds)
            QTest::newRow(name) << format;
    }

    void everyKindOfSoundFileIsRead()
    {
        QFETCH(int, format);
        for (const int channels : {1, 2}) {
            const auto sound = SoundFile::Open(Tone(format, channels));
            QVERIFY(sound);
            QCOMPARE(sound->Channels(), channels);
            QCOMPARE(sound->FramesPerSecond(), Rate);
            std::vector<float> samples = AllOf(*sound);
            // Compressed kinds fill up their last block with silence.
            const auto frames = static_cast<int>(samples.size()) / channels;
            QVERIFY2(frames >= Frames && frames < Frames + 2048, QByteArray::number(frames));
            samples.resize(static_cast<std::size_t>(Frames * channels));
            const double loudness = Loudness(samples);
            QVERIFY2(std::abs(loudness - Loud / std::numbers::sqrt2) < 0.03,
                     QByteArray::number(loudness));
        }
    }

    void whatLiesBeyondLoudestIsCutThere()
    {
        QByteArray bytes = Tone(SF_FORMAT_WAV | SF_FORMAT_FLOAT);
        const float wild[] = {2, -3, std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity()};
        bytes.replace(bytes.size() - 16, 16, reinterpret_cast<const char *>(wild), 16);
        const auto sound = SoundFile::Open(bytes);
        QVERIFY(sound);
        const std::vector<float> samples = AllOf(*sound);
        const std::vector<float> last(samples.end() - 4, samples.end());
        QCOMPARE(last, std::vector<float>({1, -1, 0, 1}));
    }

    void aFileThatWasCutShortGivesWhatIsThere()
    {
        const QByteArray whole = Tone(Plain);
        const auto sound = SoundFile::Open(whole.left(44 + 2000));
        QVERIFY(sound);
        QCOMPARE(AllOf(*sound).size(), std::size_t{1000});
    }

    void everyCutOfAFileIsReadWithoutHarm()
    {
        for (const int format : {Plain, SF_FORMAT_FLAC | SF_FORMAT_PCM_16}) {
            const QByteArray whole = Tone(format, 1, 200);
            for (qsizetype length = 0; length < whole.size(); ++length)
                if (const auto sound = SoundFile::Open(whole.left(length)))
                    QVERIFY(AllOf(*sound).size() <= 200);
        }
    }

    void foreignFilesAreSilent()
    {
        QVERIFY(IsSilent({}));
        QVERIFY(IsSilent(QByteArray(100000, '\xFF')));
        QVERIFY(IsSilent(QByteArray("OggS") + QByteArray(64, 'x')));
        QByteArray film = Tone(Plain);
        film.replace(8, 4, "AVI ");
        QVERIFY(IsSilent(film));
    }

    void aSoundWithoutSamplesIsSilent() { QVERIFY(IsSilent(Tone(Plain, 1, 0))); }

    void moreThanTwoChannelsAreSilent()
    {
        QVERIFY(!IsSilent(Tone(Plain, 2)));
        QVERIFY(IsSilent(Tone(Plain, 3)));
    }

    void ratesThatNoServerTakesAreSilent()
    {
        QVERIFY(IsSilent(Tone(Plain, 1, Frames, 999)));
        QVERIFY(!IsSilent(Tone(Plain, 1, Frames, 1000)));
        QVERIFY(!IsSilent(Tone(Plain, 1, Frames, 192000)));
        QVERIFY(IsSilent(Tone(Plain, 1, Frames, 192001)));
    }

    void whatWouldPlayForMinutesIsSilent()
    {
        constexpr int Slow = 8000;
        const int format = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
        QVERIFY(!IsSilent(Tone(format, 1, Slow * platform::LongestSound, Slow)));
        QVERIFY(IsSilent(Tone(format, 1, Slow * platform::LongestSound + 1, Slow)));
    }

    void aFileOnDiskIsReadWithAccentsInItsName()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("perché.wav"));
        Write(path, Tone(Plain));
        const auto sound = SoundFile::Open(path);
        QVERIFY(sound);
        QCOMPARE(AllOf(*sound).size(), std::size_t{Frames});
    }

    void whatIsNoPlainFileIsSilent()
    {
        const QTemporaryDir folder;
        QVERIFY(!SoundFile::Open(QString()));
        QVERIFY(!SoundFile::Open(folder.filePath(QStringLiteral("missing.wav"))));
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder.wav")));
        QVERIFY(!SoundFile::Open(folder.filePath(QStringLiteral("folder.wav"))));
        const QString pipe = folder.filePath(QStringLiteral("pipe.wav"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(!SoundFile::Open(pipe));
    }

    void aHugeFileIsSilent()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("1.wav"));
        Write(path, Tone(Plain));
        QVERIFY(QFile::resize(path, platform::LargestSoundFile));
        QVERIFY(SoundFile::Open(path));
        QVERIFY(QFile::resize(path, platform::LargestSoundFile + 1));
        QVERIFY(!SoundFile::Open(path));
    }

#if defined(__GLIBC__) && !defined(MORLENE_SANITIZED) // whose allocator does not tell
    // The one played last is held until the next one.
    void aSoundTakesAsMuchMemoryAsItsFileAndNotAsTheLargest()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("1.wav"));
        Write(path, Tone(Plain));
        const auto held = [] {
            const auto told = mallinfo2();
            return told.uordblks + told.hblkhd;
        };
        const auto before = held();
        const auto sound = SoundFile::Open(path);
        QVERIFY(sound);
        QVERIFY(held() - before < 1024 * 1024);
    }
#endif
};

MORLENE_TEST(TestSoundFile)
#include "test_sound_file.moc"
