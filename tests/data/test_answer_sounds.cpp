// The sounds that the program ships: numbered without gaps, short, of one loudness, without clicks.
#include <algorithm>
#include <cmath>
#include <vector>

#include <QDir>
#include <QTest>

#include "platform/sound/sound_file.h"
#include "support/registered_tests.h"

namespace {

constexpr float Silent = 0.001F; // no step that is heard as a click

std::vector<float> Samples(const QString &path)
{
    const auto sound = platform::SoundFile::Open(path);
    std::vector<float> samples(sound ? static_cast<std::size_t>(sound->FramesPerSecond()) * 2 : 0);
    if (sound)
        samples.resize(sound->Read(samples.data(), samples.size()));
    return samples;
}

// From the first to the last sample that is within 40 decibels of the loudest.
double LoudnessInDecibels(const std::vector<float> &samples)
{
    float peak = 0;
    for (const float sample : samples)
        peak = std::max(peak, std::abs(sample));
    double sum = 0;
    double sumOfSounding = 0;
    int length = 0;
    int soundingLength = 0;
    for (const float sample : samples) {
        sum += static_cast<double>(sample) * sample;
        ++length;
        if (std::abs(sample) > peak / 100) {
            sumOfSounding = sum;
            soundingLength = length;
        }
    }
    return 10 * std::log10(sumOfSounding / soundingLength);
}

} // namespace

class TestAnswerSounds : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesAreNumberedFromOneWithoutGaps_data();
    void filesAreNumberedFromOneWithoutGaps();
    void everySoundIsShortAndOfOneKind_data();
    void everySoundIsShortAndOfOneKind();
    void everySoundIsOfOneLoudness_data() { everySoundIsShortAndOfOneKind_data(); }
    void everySoundIsOfOneLoudness();
    void noSoundClicksOrIsClipped_data() { everySoundIsShortAndOfOneKind_data(); }
    void noSoundClicksOrIsClipped();
};

void TestAnswerSounds::filesAreNumberedFromOneWithoutGaps_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("least");
    QTest::newRow("right") << QStringLiteral("si") << 6;
    QTest::newRow("wrong") << QStringLiteral("no") << 4;
}

void TestAnswerSounds::filesAreNumberedFromOneWithoutGaps()
{
    QFETCH(QString, folder);
    QFETCH(int, least);
    const QDir files(QStringLiteral(APPLICATION_DIR "/suoni/") + folder);
    const qsizetype count = files.entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size();
    QVERIFY(count >= least);
    for (qsizetype number = 1; number <= count; ++number)
        QVERIFY(files.exists(QStringLiteral("%1.wav").arg(number)));
}

void TestAnswerSounds::everySoundIsShortAndOfOneKind_data()
{
    QTest::addColumn<QString>("path");
    for (const QString &folder : {QStringLiteral("si"), QStringLiteral("no")}) {
        const QDir files(QStringLiteral(APPLICATION_DIR "/suoni/") + folder);
        for (const QString &name : files.entryList(QDir::Files))
            QTest::newRow(qPrintable(folder + QLatin1Char('/') + name)) << files.filePath(name);
    }
}

void TestAnswerSounds::everySoundIsShortAndOfOneKind()
{
    QFETCH(QString, path);
    const auto sound = platform::SoundFile::Open(path);
    QVERIFY(sound);
    QCOMPARE(sound->Channels(), 1);
    QCOMPARE(sound->FramesPerSecond(), 44100);
    const double seconds = static_cast<double>(Samples(path).size()) / 44100;
    QVERIFY2(seconds >= 0.4 && seconds <= 1.5, QByteArray::number(seconds));
}

void TestAnswerSounds::everySoundIsOfOneLoudness()
{
    QFETCH(QString, path);
    const double loudness = LoudnessInDecibels(Samples(path));
    QVERIFY2(std::abs(loudness + 20) < 0.5, QByteArray::number(loudness));
}

void TestAnswerSounds::noSoundClicksOrIsClipped()
{
    QFETCH(QString, path);
    const std::vector<float> samples = Samples(path);
    QVERIFY(!samples.empty());
    QVERIFY(std::abs(samples.front()) < Silent);
    QVERIFY(std::abs(samples.back()) < Silent);
    for (const float sample : samples)
        QVERIFY(std::abs(sample) < 0.977F);
}

MORLENE_TEST(TestAnswerSounds)
#include "test_answer_sounds.moc"
