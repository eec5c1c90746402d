// Which file a movie's name stands for, and how many movies a folder holds.
#include "platform/movies/movie_helpers.h"
#include "platform/movies/raster_pictures.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using platform::CountMovies;
using platform::OpenMovie;

class TestOpenMovie : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_host.reset(); }
    void theNamedFileComesFirst();
    void theFormatsOfTodayFollowInOrder();
    void aFileThatNoReaderKnowsIsPassedOver();
    void theContentDecidesAndNotTheEnding();
    void whatIsNotThereIsNoError();
    void aFolderIsNoMovie();
    void literalNamesAreFoundWithoutRegardToCase();
    void aReplacedFileShowsAtTheNextOpening();
    void aFileReplacedByOneOfTheSameLengthShowsToo();
    void aFigureIsKeptAndAMovingDrawingReadAnew();
    void paintStaysWithItsReader();
    void aHugeFileIsNotRead();
    void moviesAreCountedByBaseName();
    void aMissingFolderHoldsNone();

private:
    QString Path(const QString &name) const { return m_folder->filePath(name); }
    void Write(const QString &name, const QByteArray &content) const;
    void SetTime(const QString &name, qint64 milliseconds) const; // of its last change

    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<QTemporaryDir> m_folder;
};

static QByteArray Flat(const char *color)
{
    return Svg("<rect width='100' height='100' fill='" + QByteArray(color) + "'/>");
}

static QColor ColorOf(const QString &path)
{
    auto movie = OpenMovie(path);
    return movie ? At(Shown(*movie), 50, 50) : QColor();
}

void TestOpenMovie::init()
{
    m_host = std::make_unique<ScriptedHost>();
    m_folder = std::make_unique<QTemporaryDir>();
    m_host->Application = m_folder->path() + QLatin1Char('/');
}

void TestOpenMovie::Write(const QString &name, const QByteArray &content) const
{
    QVERIFY(QDir(m_folder->path()).mkpath(QFileInfo(name).path()));
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void TestOpenMovie::SetTime(const QString &name, qint64 milliseconds) const
{
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::fromMSecsSinceEpoch(milliseconds),
                             QFile::FileModificationTime));
}

void TestOpenMovie::theNamedFileComesFirst()
{
    Write("a.svg", Flat("#00ff00"));
    Write("a.swf", Flat("#ff0000"));
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::red));
}

void TestOpenMovie::theFormatsOfTodayFollowInOrder()
{
    Write("a.gif", Gif({{Qt::blue, 100}}));
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::blue));
    Write("a.webp", Gif({{Qt::green, 100}}));
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::green));
    Write("a.svg", Flat("#ff0000"));
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::red));
}

void TestOpenMovie::aFileThatNoReaderKnowsIsPassedOver()
{
    Write("a.swf", "FWS\x06 something of old");
    Write("a.svg", Flat("#ff0000").chopped(9));
    Write("a.gif", Gif({{Qt::blue, 100}}));
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::blue));
}

void TestOpenMovie::theContentDecidesAndNotTheEnding()
{
    Write("a.swf", Webp({{Qt::red, 100}, {Qt::blue, 100}}));
    auto movie = OpenMovie(Path("a.swf"));
    QVERIFY(movie);
    QCOMPARE(movie->Duration(), 200);
}

void TestOpenMovie::whatIsNotThereIsNoError()
{
    QVERIFY(!OpenMovie(Path("a.swf")));
    QVERIFY(!OpenMovie(Path("none/a.swf")));
    QVERIFY(!OpenMovie(QString()));
    QVERIFY(!OpenMovie("C:\\a*b?\\c.swf")); // a name that no file can have
    QVERIFY(!OpenMovie(m_folder->path() + "\\swf\\a|b.swf"));
}

void TestOpenMovie::aFolderIsNoMovie()
{
    Write("a.swf/inside", Flat("#ff0000"));
    QVERIFY(!OpenMovie(Path("a.swf")));
}

void TestOpenMovie::literalNamesAreFoundWithoutRegardToCase()
{
    Write("Swf/Morlene1.SVG", Flat("#ff0000"));
    QCOMPARE(ColorOf(m_folder->path() + "\\swf\\morlene1.swf"), QColor(Qt::red));
}

void TestOpenMovie::aReplacedFileShowsAtTheNextOpening()
{
    Write("a.svg", Flat("#ff0000"));
    auto before = OpenMovie(Path("a.swf"));
    Write("a.svg", Flat("#0000ff") + "<!-- -->");
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::blue));
    QCOMPARE(At(Shown(*before), 50, 50), QColor(Qt::red));
    Write("a.svg", "gone");
    QVERIFY(!OpenMovie(Path("a.swf")));
}

void TestOpenMovie::aFileReplacedByOneOfTheSameLengthShowsToo()
{
    Write("a.svg", Flat("#ff0000"));
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::red));
    Write("a.svg", Flat("#0000ff"));
    SetTime("a.svg", 1000);
    QCOMPARE(ColorOf(Path("a.swf")), QColor(Qt::blue));
}

void TestOpenMovie::aFigureIsKeptAndAMovingDrawingReadAnew()
{
    const auto moving = [](const char *color) {
        return Svg("<rect width='100' height='100' fill='" + QByteArray(color) +
                   "'><animate attributeName='width' from='100' to='90' dur='1s'/></rect>");
    };
    // Nothing tells the second file from the first.
    const auto second = [this](const QByteArray &before, const QByteArray &after) {
        for (const QByteArray &content : {before, after}) {
            Write("a.svg", content);
            SetTime("a.svg", 1000);
            OpenMovie(Path("a.swf"));
        }
        return ColorOf(Path("a.swf"));
    };
    QCOMPARE(second(Flat("#ff0000"), Flat("#0000ff")), QColor(Qt::red));
    QCOMPARE(second(moving("#ff0000"), moving("#0000ff")), QColor(Qt::blue));
}

void TestOpenMovie::paintStaysWithItsReader()
{
    Write("a.svg", Figure());
    auto first = OpenMovie(Path("a.swf"));
    first->SetVariable("QualeOggetto", "tetto.interno");
    first->SetVariable("TestoColore.QualeColore", "FF0000");
    first->SetProperty("nuvole", 7, "0");
    auto second = OpenMovie(Path("a.swf"));
    QVERIFY(second->Description().contains("tetto EEEEEE"));
    QVERIFY(second->Description().endsWith("nuvole 1"));
    // Maps of who lies where are shared, but not between other things to be seen.
    const QRectF target(0, 0, 100, 100);
    QCOMPARE(first->Hit({50, 75}, target), 0);
    QCOMPARE(second->Hit({50, 75}, target), 8);
}

void TestOpenMovie::aHugeFileIsNotRead()
{
    QFile file(Path("a.svg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(qint64{8} << 30)); // takes no room on the disk
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!OpenMovie(Path("a.swf")));
    QVERIFY(timer.elapsed() < 500);
}

void TestOpenMovie::moviesAreCountedByBaseName()
{
    for (const char *name :
         {"animazioni/1.swf", "animazioni/1.svg", "animazioni/2.svg", "animazioni/3.webp",
          "animazioni/4.gif", "animazioni/4.GIF", "animazioni/5.SWF", "animazioni/readme.txt",
          "animazioni/6.png", "animazioni/7.svg/inside", "animazioni/Festa.swf",
          "animazioni/festa.svg"})
        Write(name, "x");
    QCOMPARE(CountMovies(m_folder->path() + "\\animazioni\\*.swf"), 7);
}

void TestOpenMovie::aMissingFolderHoldsNone()
{
    QCOMPARE(CountMovies(m_folder->path() + "\\animazioni\\*.swf"), 0);
}

MORLENE_TEST(TestOpenMovie)
#include "test_open_movie.moc"
