// A teacher's wave file is played when it is plain PCM; anything else in its place stays silent.
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include "platform/wave_file.h"
#include "support/registered_tests.h"

using platform::ReadWave;
using platform::ReadWaveFile;
using platform::WaveSound;

namespace {

QByteArray Number(quint32 number, int length)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes.left(length);
}

QByteArray Chunk(const char *name, const QByteArray &body)
{
    QByteArray chunk = name + Number(static_cast<quint32>(body.size()), 4) + body;
    if (body.size() % 2 != 0)
        chunk += '\0';
    return chunk;
}

struct Format {
    quint16 kind = 1;
    quint16 channels = 1;
    quint32 rate = 44100;
    quint16 bits = 16;
};

QByteArray FormatChunk(const Format &format)
{
    const quint32 frame = static_cast<quint32>(format.channels) * format.bits / 8u;
    return Chunk("fmt ", Number(format.kind, 2) + Number(format.channels, 2) +
                             Number(format.rate, 4) + Number(format.rate * frame, 4) +
                             Number(frame, 2) + Number(format.bits, 2));
}

QByteArray Riff(const QByteArray &chunks)
{
    return Chunk("RIFF", "WAVE" + chunks);
}

QByteArray Wave(const Format &format, const QByteArray &samples)
{
    return Riff(FormatChunk(format) + Chunk("data", samples));
}

bool IsSilent(const QByteArray &bytes)
{
    return !ReadWave(bytes).has_value();
}

void Write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class TestWaveFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void samplesOfEveryPlainKindAreRead_data();
    void samplesOfEveryPlainKindAreRead();
    void chunksThatAreNoSoundAreSkipped();
    void aChunkOfOddLengthIsFollowedByOneMoreByte();
    void anExtendedFormatOfPlainSamplesIsRead();
    void aFormatThatIsNotPlainIsSilent_data();
    void aFormatThatIsNotPlainIsSilent();
    void halfAFrameAtTheEndIsDropped();
    void aFileThatWasCutShortGivesWhatIsThere();
    void everyCutOfAFileIsReadWithoutHarm();
    void soundWithoutAFormatBeforeItIsSilent();
    void aFileWithoutSamplesIsSilent();
    void lengthsBeyondTheFileDoNoHarm();
    void foreignFilesAreSilent();
    void aFileOnDiskIsReadWithAccentsInItsName();
    void aMissingFileIsSilent();
    void aFolderNamedLikeASoundIsSilent();
    void aNamedPipeIsNotWaitedFor();
    void aHugeFileIsSilent();
};

void TestWaveFile::samplesOfEveryPlainKindAreRead_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    for (int bits : {8, 16, 24, 32})
        for (int channels : {1, 2})
            for (int rate : {8000, 44100, 192000})
                QTest::addRow("%d bits, %d channels, %d", bits, channels, rate)
                    << bits << channels << rate;
}

void TestWaveFile::samplesOfEveryPlainKindAreRead()
{
    QFETCH(int, bits);
    QFETCH(int, channels);
    QFETCH(int, rate);
    const QByteArray samples = QByteArray("abcdefghijklmnopqrstuvwx");
    const auto sound = ReadWave(Wave(
        {1, static_cast<quint16>(channels), static_cast<quint32>(rate), static_cast<quint16>(bits)},
        samples));
    QVERIFY(sound);
    QCOMPARE(sound->bitsPerSample, bits);
    QCOMPARE(sound->channels, channels);
    QCOMPARE(sound->framesPerSecond, rate);
    QCOMPARE(sound->samples, samples);
}

void TestWaveFile::chunksThatAreNoSoundAreSkipped()
{
    const QByteArray list = Chunk("LIST", "INFOdata");
    const auto sound = ReadWave(
        Riff(list + FormatChunk({}) + Chunk("fact", "1234") + Chunk("data", "abcd") + list));
    QVERIFY(sound);
    QCOMPARE(sound->samples, QByteArray("abcd"));
}

void TestWaveFile::aChunkOfOddLengthIsFollowedByOneMoreByte()
{
    const auto sound =
        ReadWave(Riff(Chunk("LIST", "odd") + FormatChunk({}) + Chunk("data", "abcd")));
    QVERIFY(sound);
    QCOMPARE(sound->samples, QByteArray("abcd"));
}

void TestWaveFile::anExtendedFormatOfPlainSamplesIsRead()
{
    const QByteArray plain = FormatChunk({0xFFFE, 2, 48000, 24}).mid(8);
    const auto extended = [&plain](quint32 kind) {
        return Riff(Chunk("fmt ", plain + Number(22, 2) + Number(24, 2) + Number(3, 4) +
                                      Number(kind, 2) + QByteArray(14, 'x')) +
                    Chunk("data", "abcdef"));
    };
    const auto sound = ReadWave(extended(1));
    QVERIFY(sound);
    QCOMPARE(sound->bitsPerSample, 24);
    QCOMPARE(sound->samples, QByteArray("abcdef"));
    QVERIFY(IsSilent(extended(3)));
}

void TestWaveFile::aFormatThatIsNotPlainIsSilent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray samples(48, 'x');
    QTest::newRow("compressed") << Wave({2, 1, 44100, 16}, samples);
    QTest::newRow("floating point") << Wave({3, 1, 44100, 32}, samples);
    QTest::newRow("extended but short") << Wave({0xFFFE, 1, 44100, 16}, samples);
    QTest::newRow("no channel") << Wave({1, 0, 44100, 16}, samples);
    QTest::newRow("three channels") << Wave({1, 3, 44100, 16}, samples);
    QTest::newRow("no rate") << Wave({1, 1, 0, 16}, samples);
    QTest::newRow("rate too high") << Wave({1, 1, 192001, 16}, samples);
    QTest::newRow("no bits") << Wave({1, 1, 44100, 0}, samples);
    QTest::newRow("twelve bits") << Wave({1, 1, 44100, 12}, samples);
    QTest::newRow("sixty-four bits") << Wave({1, 1, 44100, 64}, samples);
    QByteArray wrongFrame = Wave({}, samples);
    wrongFrame[32] = 3;
    QTest::newRow("frame of a wrong length") << wrongFrame;
    QTest::newRow("format cut short")
        << Riff(Chunk("fmt ", FormatChunk({}).mid(8, 14)) + Chunk("data", samples));
}

void TestWaveFile::aFormatThatIsNotPlainIsSilent()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(IsSilent(bytes));
}

void TestWaveFile::halfAFrameAtTheEndIsDropped()
{
    const auto sound = ReadWave(Wave({1, 2, 44100, 16}, "abcdefg"));
    QVERIFY(sound);
    QCOMPARE(sound->samples, QByteArray("abcd"));
}

void TestWaveFile::aFileThatWasCutShortGivesWhatIsThere()
{
    QByteArray bytes = Wave({}, "abcdefgh");
    bytes.chop(4);
    const auto sound = ReadWave(bytes);
    QVERIFY(sound);
    QCOMPARE(sound->samples, QByteArray("abcd"));
}

void TestWaveFile::everyCutOfAFileIsReadWithoutHarm()
{
    const QByteArray whole = Riff(Chunk("LIST", "odd") + FormatChunk({}) + Chunk("data", "ab"));
    for (qsizetype length = 0; length < whole.size(); ++length)
        QVERIFY2(IsSilent(whole.left(length)), QByteArray::number(length));
    QVERIFY(!IsSilent(whole));
}

void TestWaveFile::soundWithoutAFormatBeforeItIsSilent()
{
    QVERIFY(IsSilent(Riff(Chunk("data", "abcd"))));
    QVERIFY(IsSilent(Riff(Chunk("data", "abcd") + FormatChunk({}))));
}

void TestWaveFile::aFileWithoutSamplesIsSilent()
{
    QVERIFY(IsSilent(Wave({}, "")));
    QVERIFY(IsSilent(Wave({}, "a")));
    QVERIFY(IsSilent(Riff(FormatChunk({}))));
}

void TestWaveFile::lengthsBeyondTheFileDoNoHarm()
{
    // A recorder that never came back to fill in the length leaves the highest one.
    const auto sound = ReadWave(Riff(FormatChunk({}) + "data" + Number(0xFFFFFFFF, 4) + "abcd"));
    QVERIFY(sound);
    QCOMPARE(sound->samples, QByteArray("abcd"));
    QVERIFY(IsSilent(Riff("LIST" + Number(0xFFFFFFFF, 4) + "ab" + FormatChunk({}))));
    QVERIFY(IsSilent(Riff("LIST" + Number(0x7FFFFFFF, 4))));
}

void TestWaveFile::foreignFilesAreSilent()
{
    const QByteArray samples(64, 'x');
    QByteArray big = Wave({}, samples);
    big.replace(0, 4, "RIFX");
    QVERIFY(IsSilent(big));
    QByteArray film = Wave({}, samples);
    film.replace(8, 4, "AVI ");
    QVERIFY(IsSilent(film));
    QVERIFY(IsSilent(QByteArray(100000, '\xFF')));
    QVERIFY(IsSilent("OggS" + samples));
}

void TestWaveFile::aFileOnDiskIsReadWithAccentsInItsName()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("perché.wav"));
    Write(path, Wave({}, "abcd"));
    const auto sound = ReadWaveFile(path);
    QVERIFY(sound);
    QCOMPARE(sound->samples, QByteArray("abcd"));
}

void TestWaveFile::aMissingFileIsSilent()
{
    QTemporaryDir folder;
    QVERIFY(!ReadWaveFile(folder.filePath(QStringLiteral("1.wav"))));
    QVERIFY(!ReadWaveFile(QString()));
}

void TestWaveFile::aFolderNamedLikeASoundIsSilent()
{
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("1.wav")));
    QVERIFY(!ReadWaveFile(folder.filePath(QStringLiteral("1.wav"))));
}

void TestWaveFile::aNamedPipeIsNotWaitedFor()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("1.wav"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!ReadWaveFile(path));
}

void TestWaveFile::aHugeFileIsSilent()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("1.wav"));
    Write(path, Wave({}, "abcd"));
    QVERIFY(QFile::resize(path, platform::kLargestWaveFile));
    QVERIFY(ReadWaveFile(path));
    QVERIFY(QFile::resize(path, platform::kLargestWaveFile + 1));
    QVERIFY(!ReadWaveFile(path));
}

MORLENE_TEST(TestWaveFile)
#include "test_wave_file.moc"
