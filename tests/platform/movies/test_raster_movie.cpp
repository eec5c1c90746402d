// Rewards that are WebP or GIF: the frame that stands at a moment, and damaged files.
#include "platform/movies/movie_helpers.h"
#include "platform/movies/raster_pictures.h"
#include "support/registered_tests.h"

#include <QElapsedTimer>
#include <QTest>

#include <limits>

static const QList<RasterFrame> Three{{Qt::red, 200}, {Qt::green, 100}, {Qt::blue, 500}};

static bool Near(const QColor &a, const QColor &b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
               std::abs(a.blue() - b.blue()) <
           30; // WebP keeps colours nearly
}

class TestRasterMovie : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void framesStandAsLongAsTheyShould_data();
    void framesStandAsLongAsTheyShould();
    void framesThatNobodySawAreMadeUpFor_data();
    void framesThatNobodySawAreMadeUpFor();
    void hastyFramesStandATenthOfASecond();
    void framesOfManyHoursAddUp();
    void aStillPictureStandsStill_data();
    void aStillPictureStandsStill();
    void itIsNoFigure();
    void proportionsAreKept();
    void aFileCutOffShowsWhatThereIs_data();
    void aFileCutOffShowsWhatThereIs();
    void whatIsTooLargeIsNotKnown_data();
    void whatIsTooLargeIsNotKnown();
    void everyCutAndEveryFlippedByteIsSurvived_data();
    void everyCutAndEveryFlippedByteIsSurvived();
};

static void BothFormats(const QList<RasterFrame> &frames)
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("gif") << Gif(frames);
    QTest::newRow("webp") << Webp(frames);
}

void TestRasterMovie::framesStandAsLongAsTheyShould_data()
{
    BothFormats(Three);
}

void TestRasterMovie::framesStandAsLongAsTheyShould()
{
    QFETCH(QByteArray, content);
    auto movie = Movie(content);
    QVERIFY(movie);
    QCOMPARE(movie->Size(), QSizeF(4, 4));
    QCOMPARE(movie->Duration(), 800);
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::red));
    QVERIFY(!movie->Advance(199));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::red));
    QVERIFY(movie->Advance(200));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::green));
    QVERIFY(!movie->Advance(299));
    QVERIFY(movie->Advance(300));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::blue));
    for (const int time : {700, 800, 801, 5000})
        QVERIFY(!movie->Advance(time));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::blue));
}

void TestRasterMovie::framesThatNobodySawAreMadeUpFor_data()
{
    BothFormats(Three);
}

void TestRasterMovie::framesThatNobodySawAreMadeUpFor()
{
    QFETCH(QByteArray, content);
    auto movie = Movie(content);
    QVERIFY(movie->Advance(250));
    QVERIFY(movie->Advance(100000));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::blue));
    QVERIFY(!movie->Advance(0));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::blue));
}

void TestRasterMovie::hastyFramesStandATenthOfASecond()
{
    const QList<RasterFrame> hasty{{Qt::red, 0}, {Qt::blue, 10}};
    QCOMPARE(Movie(Gif(hasty))->Duration(), 200);
    QCOMPARE(Movie(Webp(hasty))->Duration(), 200);
}

void TestRasterMovie::framesOfManyHoursAddUp()
{
    constexpr int Longest = 0xFFFFFF; // ms, in the three bytes that WebP has
    auto movie =
        Movie(Webp(QList<RasterFrame>(140, {Qt::red, Longest}) << RasterFrame{Qt::blue, 9}));
    QVERIFY(movie);
    QCOMPARE(movie->Duration(), std::numeric_limits<int>::max());
    QVERIFY(movie->Advance(std::numeric_limits<int>::max()));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::red));
}

void TestRasterMovie::aStillPictureStandsStill_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("gif") << Gif({{Qt::red, 200}});
    QTest::newRow("webp") << StillWebp(Qt::red);
    QTest::newRow("webp of one frame") << Webp({{Qt::red, 200}});
}

void TestRasterMovie::aStillPictureStandsStill()
{
    QFETCH(QByteArray, content);
    auto movie = Movie(content);
    QVERIFY(movie);
    QCOMPARE(movie->Duration(), 0);
    QVERIFY(!movie->Advance(1000));
    QVERIFY(Near(At(Shown(*movie), 50, 50), Qt::red));
}

void TestRasterMovie::itIsNoFigure()
{
    auto movie = Movie(Gif(Three));
    const QImage before = Shown(*movie);
    movie->SetVariable("QualeOggetto", "tetto.interno");
    movie->SetVariable("TestoColore.QualeColore", "00FF00");
    movie->SetProperty("fumo", 7, "0");
    QCOMPARE(Shown(*movie), before);
    QCOMPARE(movie->Hit({50, 50}, {0, 0, 100, 100}), 0);
    QVERIFY(movie->Description().isEmpty());
}

void TestRasterMovie::proportionsAreKept()
{
    auto movie = Movie(Gif(Three));
    const QImage image = Shown(*movie, {200, 100});
    QCOMPARE(At(image, 20, 50), QColor(Qt::white));
    QCOMPARE(At(image, 100, 50), QColor(Qt::red));
    QCOMPARE(At(image, 180, 50), QColor(Qt::white));
}

void TestRasterMovie::aFileCutOffShowsWhatThereIs_data()
{
    BothFormats(Three);
}

void TestRasterMovie::aFileCutOffShowsWhatThereIs()
{
    QFETCH(QByteArray, content);
    QVERIFY(!Movie(content.left(20)));
    auto movie = Movie(content.chopped(20));
    if (!movie)
        return; // a format whose table must be whole
    movie->Advance(100000);
    const QColor last = At(Shown(*movie), 50, 50);
    QVERIFY(Near(last, Qt::green) || Near(last, Qt::blue));
}

void TestRasterMovie::whatIsTooLargeIsNotKnown_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("wide gif") << Gif(Three, 5000, 4);
    QTest::newRow("high gif") << Gif(Three, 4, 65535);
    QTest::newRow("wide webp") << Webp(Three, 5000, 4);
    QTest::newRow("high still webp") << StillWebp(Qt::red, {1, 5000});
    QTest::newRow("many frames") << Gif(QList<RasterFrame>(2001, {Qt::red, 50}));
    QTest::newRow("many large frames") << Gif(QList<RasterFrame>(300, {Qt::red, 50}), 4000, 4000);
    QTest::newRow("a huge file") << Gif(Three) + QByteArray(40 << 20, ' ');
    QTest::newRow("nothing behind the name") << QByteArray("GIF89a");
    QTest::newRow("no picture") << Gif({});
    QTest::newRow("another container") << Chunk("RIFF", "WAVE" + QByteArray(100, 0));
    QTest::newRow("noise in a webp") << Chunk("RIFF", "WEBP" + QByteArray(100, '\x7f'));
}

void TestRasterMovie::whatIsTooLargeIsNotKnown()
{
    QFETCH(QByteArray, content);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!Movie(content));
    QVERIFY(timer.elapsed() < 5000);
}

void TestRasterMovie::everyCutAndEveryFlippedByteIsSurvived_data()
{
    BothFormats(Three);
}

void TestRasterMovie::everyCutAndEveryFlippedByteIsSurvived()
{
    QFETCH(QByteArray, content);
    int known = 0;
    for (qsizetype at = 0; at < content.size(); ++at) {
        QByteArray flipped = content;
        flipped[at] = static_cast<char>(~flipped[at]);
        for (const QByteArray &damaged : {content.left(at), flipped}) {
            auto movie = Movie(damaged);
            if (!movie)
                continue;
            ++known;
            movie->Advance(100000);
            Shown(*movie, {10, 10});
            QVERIFY(movie->Duration() >= 0);
        }
    }
    QVERIFY(known > 0);
}

MORLENE_TEST(TestRasterMovie)
#include "test_raster_movie.moc"
