// The reward movies that lie beside the program: every one is found, plays, changes and ends, and
// nothing in its file is lost on our reader.
#include "platform/movies/movie_formats.h"
#include "platform/movies/movie_helpers.h"
#include "platform/movies/svg_animation.h"
#include "platform/movies/svg_document.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QSvgRenderer>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using platform::MovieReader;
using platform::SvgAnimation;
using platform::SvgDocument;

constexpr int Fewest = 12;
constexpr int MostElements = 400; // more of them, or gradients, do not move at full speed
constexpr int FrameMilliseconds = 40;
// A third of the size of the drawings, so that the whole takes seconds only.
constexpr QSize Small(210, 270);

QString Folder()
{
    return QStringLiteral(SOURCE_DIR "/data/animazioni/");
}

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage Painted(MovieReader &movie, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    movie.Paint(painter, image.rect());
    return image;
}

// The drawing of one moment, rendered in one go.
QImage Whole(const SvgDocument &document, int milliseconds)
{
    const SvgAnimation animation(document);
    SvgDocument moment = document;
    animation.Apply(animation.At(document, milliseconds), moment);
    QSvgRenderer renderer(platform::SvgText(moment));
    QImage image(Small, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

// Pixels in which two pictures differ by more than `most` in any channel.
int Different(const QImage &one, const QImage &other, int most = 0)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            const int difference =
                std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                          std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
            count += difference > most ? 1 : 0;
        }
    return count;
}

// What our reader keeps and the renderer draws, by element.
const QMap<QString, QSet<QString>> &Understood()
{
    static const auto set = [](const char *names) {
        const QStringList list = QString::fromLatin1(names).split(u' ');
        return QSet<QString>(list.begin(), list.end());
    };
    static const QString paint = QStringLiteral(
        "transform display fill fill-opacity stroke stroke-opacity stroke-width stroke-linecap "
        "stroke-linejoin");
    static const auto shape = [](const char *names) {
        return set((paint + QLatin1Char(' ') + QLatin1String(names)).toLatin1().constData());
    };
    static const QString times = QStringLiteral("begin dur fill repeatCount");
    static const auto animation = [](const char *names) {
        return set((times + QLatin1Char(' ') + QLatin1String(names)).toLatin1().constData());
    };
    static const QMap<QString, QSet<QString>> names{
        {QStringLiteral("svg"), set("xmlns width height viewBox")},
        {QStringLiteral("g"), set(paint.toLatin1().constData())},
        {QStringLiteral("path"), shape("d")},
        {QStringLiteral("rect"), shape("x y width height")},
        {QStringLiteral("circle"), shape("cx cy r")},
        {QStringLiteral("ellipse"), shape("cx cy rx ry")},
        {QStringLiteral("set"), set("attributeName begin to")},
        {QStringLiteral("animate"), animation("attributeName values keyTimes calcMode keySplines")},
        {QStringLiteral("animateTransform"),
         animation("attributeName type values keyTimes calcMode keySplines")}};
    return names;
}

// Elements below and with this one; what is not understood goes to `foreign`.
int CountElements(const QDomElement &element, QStringList &foreign)
{
    const auto known = Understood().constFind(element.tagName());
    if (known == Understood().constEnd()) {
        foreign << element.tagName();
    } else {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.count(); ++i)
            if (!known->contains(attributes.item(i).nodeName()))
                foreign << element.tagName() + QLatin1Char(' ') + attributes.item(i).nodeName();
    }
    int count = 1;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        count += CountElements(child, foreign);
    return count;
}

} // namespace

class TestRewards : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thereAreTwelveOrMoreNumberedWithoutGap();
    void allOfThemLieBesideTheProgram();
    void noTwoAreAlike();
    void eachLastsFourToTenSeconds_data() { Rewards(); }
    void eachLastsFourToTenSeconds();
    void theFirstPictureHasNoHoles_data() { Rewards(); }
    void theFirstPictureHasNoHoles();
    void thereIsSomethingNewToSeeInEachPart_data() { Rewards(); }
    void thereIsSomethingNewToSeeInEachPart();
    void theLastPictureStands_data() { Rewards(); }
    void theLastPictureStands();
    void nothingInTheFileIsLeftOut_data() { Rewards(); }
    void nothingInTheFileIsLeftOut();
    void everyAnimationIsUnderstoodAndEnds_data() { Rewards(); }
    void everyAnimationIsUnderstoodAndEnds();
    void aPlayedFrameIsTheDrawingOfItsMoment_data() { Rewards(); }
    void aPlayedFrameIsTheDrawingOfItsMoment();

private:
    static void Rewards();
    static QByteArray Current();
};

void TestRewards::Rewards()
{
    QTest::addColumn<QString>("name");
    const QStringList names = QDir(Folder()).entryList(QDir::Files);
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

QByteArray TestRewards::Current()
{
    QFETCH(QString, name);
    return Content(Folder() + name);
}

void TestRewards::thereAreTwelveOrMoreNumberedWithoutGap()
{
    const QStringList names = QDir(Folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    QVERIFY(names.size() >= Fewest);
    for (qsizetype number = 1; number <= names.size(); ++number)
        QVERIFY2(names.contains(QString::number(number) + QStringLiteral(".svg")),
                 qPrintable(QString::number(number)));
}

void TestRewards::allOfThemLieBesideTheProgram()
{
    const QString beside = QStringLiteral(APPLICATION_DIR "/animazioni/");
    const QStringList names = QDir(Folder()).entryList(QDir::Files);
    QCOMPARE(QDir(beside).entryList(QDir::Files), names);
    for (const QString &name : names)
        QCOMPARE(Content(beside + name), Content(Folder() + name));
}

// Told apart by what is on the picture when it begins, in its middle and when it has ended.
void TestRewards::noTwoAreAlike()
{
    struct Reward {
        QString Name;
        std::vector<QImage> Pictures;
    };
    std::vector<Reward> rewards;
    for (const QString &name : QDir(Folder()).entryList(QDir::Files)) {
        const auto movie = platform::ReadMovie(Content(Folder() + name));
        QVERIFY(movie);
        Reward reward{name, {Painted(*movie, Small)}};
        for (const int time : {movie->Duration() / 2, movie->Duration()}) {
            movie->Advance(time);
            reward.Pictures.push_back(Painted(*movie, Small));
        }
        for (const Reward &other : rewards)
            for (size_t picture = 0; picture < reward.Pictures.size(); ++picture) {
                const int different =
                    Different(reward.Pictures[picture], other.Pictures[picture], 40);
                QVERIFY2(different > Small.width() * Small.height() / 10,
                         qPrintable(QStringLiteral("%1 and %2, picture %3: %4 pixels")
                                        .arg(name, other.Name)
                                        .arg(picture)
                                        .arg(different)));
            }
        rewards.push_back(std::move(reward));
    }
}

void TestRewards::eachLastsFourToTenSeconds()
{
    const auto movie = platform::ReadMovie(Current());
    QVERIFY(movie);
    QCOMPARE(movie->Size(), QSizeF(700, 900));
    QVERIFY(movie->Duration() >= 4000);
    QVERIFY(movie->Duration() <= 10000);
}

void TestRewards::theFirstPictureHasNoHoles()
{
    const auto movie = platform::ReadMovie(Current());
    QVERIFY(movie);
    const QImage picture = Painted(*movie, {700, 900});
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qAlpha(picture.pixel(x, y)) != 255)
                QFAIL(qPrintable(QStringLiteral("see-through at %1, %2").arg(x).arg(y)));
}

void TestRewards::thereIsSomethingNewToSeeInEachPart()
{
    constexpr int Parts = 8;
    const auto movie = platform::ReadMovie(Current());
    QVERIFY(movie);
    QImage before = Painted(*movie, Small);
    for (int part = 1; part <= Parts; ++part) {
        int most = 0;
        QImage now;
        for (int step = 1; step <= 4; ++step) {
            movie->Advance(movie->Duration() * (4 * (part - 1) + step) / (4 * Parts));
            now = Painted(*movie, Small);
            most = std::max(most, Different(before, now));
        }
        // A twinkling eye would be too little: about a finger's width in the picture.
        QVERIFY2(most > Small.width() * Small.height() / 500,
                 qPrintable(QStringLiteral("part %1: %2 pixels").arg(part).arg(most)));
        before = now;
    }
}

void TestRewards::theLastPictureStands()
{
    const auto movie = platform::ReadMovie(Current());
    QVERIFY(movie);
    const int duration = movie->Duration();
    int time = 0;
    for (; time < duration; time += FrameMilliseconds)
        movie->Advance(time);
    movie->Advance(time);
    const QImage last = Painted(*movie, Small);
    for (const int later : {1, FrameMilliseconds, 60 * 1000}) {
        QVERIFY(!movie->Advance(time + later));
        QCOMPARE(Painted(*movie, Small), last);
    }
    // What jumps at the very end would not be seen at 25 frames a second but in the end picture.
    const auto again = platform::ReadMovie(Current());
    again->Advance(duration - 1);
    QVERIFY(Different(Painted(*again, Small), last, 40) < Small.width() * Small.height() / 500);
}

void TestRewards::nothingInTheFileIsLeftOut()
{
    QDomDocument file;
    QVERIFY(file.setContent(Current()));
    QStringList foreign;
    const int elements = CountElements(file.documentElement(), foreign);
    QVERIFY2(foreign.isEmpty(), qPrintable(foreign.join(QStringLiteral(", "))));
    QVERIFY2(elements <= MostElements, qPrintable(QString::number(elements)));
    const auto document = platform::ParseSvg(Current());
    QVERIFY(document);
    QCOMPARE(static_cast<int>(document->Elements.size()), elements);
}

void TestRewards::everyAnimationIsUnderstoodAndEnds()
{
    const auto document = platform::ParseSvg(Current());
    QVERIFY(document);
    const int duration = SvgAnimation(*document).Duration();
    int animations = 0;
    for (int index = 0; index < static_cast<int>(document->Elements.size()); ++index) {
        const platform::SvgElement &element = document->Elements[static_cast<size_t>(index)];
        if (!platform::IsAnimation(element))
            continue;
        ++animations;
        const auto track = platform::CompileTrack(*document, index);
        const QByteArray what = element.Name + ' ' + element.Value("values");
        QVERIFY2(track, what.constData());
        // A "set" without a length holds for ever and costs nothing.
        QVERIFY2(track->Cycle <= 0 || track->End() <= duration, what.constData());
        QVERIFY2(track->Cycle <= 0 || track->Freeze, what.constData());
    }
    QVERIFY(animations > 0);
}

void TestRewards::aPlayedFrameIsTheDrawingOfItsMoment()
{
    // Along edges, and in lines thinner than a pixel: what is only pushed about stands within a
    // part of a pixel of its place.
    const int few = Small.width() * Small.height() / 100;
    const auto document = platform::ParseSvg(Current());
    const auto movie = platform::ReadMovie(Current());
    QVERIFY(document && movie);
    for (int time = 0; time <= movie->Duration(); time += FrameMilliseconds) {
        movie->Advance(time);
        const QImage played = Painted(*movie, Small);
        if (time % (FrameMilliseconds * 5) == 0)
            QVERIFY(Strays(played, Whole(*document, time)) <= few);
    }
}

MORLENE_TEST(TestRewards)
#include "test_rewards.moc"
