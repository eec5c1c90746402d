// The sounds that the program ships: numbered without gaps, short, of one loudness, without clicks.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <QDir>
#include <QTest>
#include <QtEndian>

#include "platform/wave_file.h"
#include "support/registered_tests.h"

namespace {

constexpr int kSilent = 33; // a thousandth of full scale: no step that is heard as a click

QList<int> Samples(const QByteArray &bytes)
{
    QList<int> samples;
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        samples << qFromLittleEndian<qint16>(bytes.constData() + at);
    return samples;
}

// From the first to the last sample that is within 40 decibels of the loudest.
double LoudnessInDecibels(const QList<int> &samples)
{
    int peak = 0;
    for (int sample : samples)
        peak = std::max(peak, std::abs(sample));
    double sum = 0;
    double sumOfSounding = 0;
    int length = 0;
    int soundingLength = 0;
    for (int sample : samples) {
        sum += static_cast<double>(sample) * sample;
        ++length;
        if (std::abs(sample) > peak / 100) {
            sumOfSounding = sum;
            soundingLength = length;
        }
    }
    return 10 * std::log10(sumOfSounding / soundingLength / 32768.0 / 32768.0);
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
    const auto sound = platform::ReadWaveFile(path);
    QVERIFY(sound);
    QCOMPARE(sound->bitsPerSample, 16);
    QCOMPARE(sound->channels, 1);
    QCOMPARE(sound->framesPerSecond, 44100);
    const double seconds = static_cast<double>(sound->samples.size()) / 2 / 44100;
    QVERIFY2(seconds >= 0.4 && seconds <= 1.5, QByteArray::number(seconds));
}

void TestAnswerSounds::everySoundIsOfOneLoudness()
{
    QFETCH(QString, path);
    const auto sound = platform::ReadWaveFile(path);
    QVERIFY(sound);
    const double loudness = LoudnessInDecibels(Samples(sound->samples));
    QVERIFY2(std::abs(loudness + 20) < 0.5, QByteArray::number(loudness));
}

void TestAnswerSounds::noSoundClicksOrIsClipped()
{
    QFETCH(QString, path);
    const auto sound = platform::ReadWaveFile(path);
    QVERIFY(sound);
    const QList<int> samples = Samples(sound->samples);
    QVERIFY(std::abs(samples.first()) < kSilent);
    QVERIFY(std::abs(samples.last()) < kSilent);
    for (int sample : samples)
        QVERIFY(std::abs(sample) < 32000);
}

MORLENE_TEST(TestAnswerSounds)
#include "test_answer_sounds.moc"
