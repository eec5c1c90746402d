// A moving drawing painted in layers looks like the same drawing painted in one go, whatever moves
// and stands still in turn.
#include "platform/movies/movie_helpers.h"
#include "platform/movies/svg_animation.h"
#include "platform/movies/svg_document.h"
#include "platform/movies/svg_layers.h"
#include "support/registered_tests.h"

#include <QSvgRenderer>
#include <QTest>

namespace {

using namespace platform;

constexpr QSize Screen(100, 100);
// Along edges that nearly meet: the sliver between them is wider or narrower.
constexpr int Few = 150;

QByteArray Move(const char *begin, const char *length, const char *to)
{
    return QByteArray("<animateTransform attributeName='transform' type='translate' begin='") +
           begin + "' dur='" + length + "' values='0 0;" + to + "' fill='freeze'/>";
}

// Bars that lie over one another; the first, third and fifth move, each in its own time.
QByteArray Bars()
{
    return Svg("<rect width='100' height='100' fill='#ddeeff'/>"
               "<g stroke='#000000' stroke-width='4'>"
               "<rect y='10' width='60' height='20' fill='#ff0000'>" +
               Move("0s", "1s", "40 0") +
               "</rect><rect y='20' x='20' width='60' height='20' fill='#00ff00'/>"
               "<g>" +
               Move("2s", "1s", "0 30") +
               "<rect y='30' x='10' width='50' height='20' fill='#0000ff'/>"
               "<circle cx='50' cy='50' r='10' fill='#ffff00'>"
               "<animate attributeName='r' begin='1.5s' dur='0.2s' values='10;14' "
               "repeatCount='9' fill='freeze'/></circle></g>"
               "<path d='M10 60 L90 60' fill='none'/>"
               "<rect y='55' x='30' width='30' height='20' fill='#ff00ff'>" +
               Move("0.5s", "3s", "30 10") + "</rect></g>");
}

QImage Whole(const SvgDocument &document, int time, const QSize &size)
{
    const SvgAnimation animation(document);
    SvgDocument moment = document;
    animation.Apply(animation.At(document, time), moment);
    QSvgRenderer renderer(SvgText(moment));
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(image.rect()));
    return image;
}

} // namespace

class TestSvgLayers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFrameLooksAsIfPaintedInOneGo();
    void whatTurnsAndGrowsLooksAsIfPaintedInOneGo();
    void aGroupIsHiddenWithThePartThatStoodStill();
    void onlyWhatChangedIsPaintedAnew();
    void onlyAGroundWithoutGapsCovers();
    void aMovieThatIsResizedWhileItPlaysStaysWhole();
    void aMovieThatIsSkippedThroughStaysWhole();
    void aPaintedPartKeepsItsNewColorWhileTheMoviePlays();
};

void TestSvgLayers::everyFrameLooksAsIfPaintedInOneGo()
{
    const auto document = ParseSvg(Bars());
    const auto movie = Movie(Bars());
    QVERIFY(CanCut(*document));
    for (int time = 0; time <= movie->Duration(); time += 40) {
        movie->Advance(time);
        QVERIFY2(Strays(Shown(*movie, Screen), Whole(*document, time, Screen)) <= Few,
                 qPrintable(QString::number(time)));
    }
}

// Inside groups that stand somewhere, and beside something skewed, whose place is not told apart.
void TestSvgLayers::whatTurnsAndGrowsLooksAsIfPaintedInOneGo()
{
    const auto turn = [](const char *type, const char *values) {
        return QByteArray("<animateTransform attributeName='transform' type='") + type +
               "' dur='2s' values='" + values + "' fill='freeze'/>";
    };
    const QByteArray drawing =
        Svg("<rect width='100' height='100' fill='#ddeeff'/>"
            "<g transform='translate(20 10) scale(1.5)' stroke='#000000' stroke-width='3'>"
            "<g transform='rotate(10 20 20)'>" +
            turn("rotate", "10 20 20;80 30 10") +
            "<rect x='8' y='8' width='20' height='10' fill='#ff0000'/>"
            "<g transform='translate(5 12)'><circle cx='10' cy='10' r='5' fill='#00ff00'>" +
            turn("scale", "1 1;1.4 0.6") + "</circle></g></g></g>" +
            "<g transform='skewX(10)'><rect y='70' width='20' height='20' fill='#0000ff'>" +
            turn("translate", "0 0;40 0") + "</rect></g>");
    const auto document = ParseSvg(drawing);
    const auto movie = Movie(drawing);
    for (int time = 0; time <= movie->Duration(); time += 40) {
        movie->Advance(time);
        QVERIFY2(Strays(Shown(*movie, Screen), Whole(*document, time, Screen)) <= Few,
                 qPrintable(QString::number(time)));
    }
}

// The part is in a kept picture already when the group round it goes; what moves on lies before
// the group and in it.
void TestSvgLayers::aGroupIsHiddenWithThePartThatStoodStill()
{
    const auto movie = Movie(Svg("<rect width='100' height='100' fill='#ffffff'/>"
                                 "<rect y='80' width='20' height='20' fill='#00ff00'>" +
                                 Move("0s", "2s", "50 0") +
                                 "</rect>"
                                 "<g><set attributeName='display' begin='1.5s' to='none'/>"
                                 "<rect width='20' height='20' fill='#0000ff'>" +
                                 Move("0s", "2s", "50 0") +
                                 "</rect><rect y='50' width='20' height='20' fill='#ff0000'>" +
                                 Move("0s", "0.5s", "50 0") + "</rect></g>"));
    for (int time = 0; time < 1500; time += 40) {
        movie->Advance(time);
        Shown(*movie, Screen);
    }
    QCOMPARE(At(Shown(*movie, Screen), 60, 60), QColor(Qt::red));
    movie->Advance(1520);
    QCOMPARE(At(Shown(*movie, Screen), 60, 60), QColor(Qt::white));
}

// On one and the same picture, with shapes that come in from outside, grow and vanish.
void TestSvgLayers::onlyWhatChangedIsPaintedAnew()
{
    const QByteArray drawing =
        Svg("<rect width='100' height='100' fill='#ddeeff'/>"
            "<g stroke='#000000' stroke-width='3'><rect x='-30' y='8' width='20' height='10'>" +
            Move("0s", "2s", "120 20") +
            "</rect><circle cx='50' cy='70' r='3' fill='#00ff00'>"
            "<animate attributeName='r' dur='1s' values='3;20' fill='freeze'/></circle></g>"
            "<rect x='80' y='80' width='9' height='9' fill='#0000ff'>"
            "<set attributeName='display' begin='1.5s' to='none'/></rect>");
    const auto document = ParseSvg(drawing);
    const auto movie = Movie(drawing);
    QImage picture = Shown(*movie, Screen);
    const QRect all(QPoint(), Screen);
    qint64 painted = 0;
    int frames = 0;
    for (int time = 40; time <= movie->Duration(); time += 40, ++frames) {
        if (movie->Advance(time)) {
            const QRect changed = movie->Changed(all);
            painted += qint64{changed.width()} * changed.height();
            QPainter painter(&picture);
            painter.setClipRect(changed);
            if (!movie->Covers(changed, all))
                painter.fillRect(changed, Qt::white);
            movie->Paint(painter, all);
        }
        QVERIFY2(Strays(picture, Whole(*document, time, Screen)) <= Few,
                 qPrintable(QString::number(time)));
    }
    QVERIFY(painted < qint64{frames} * Screen.width() * Screen.height() * 3 / 4);
}

void TestSvgLayers::onlyAGroundWithoutGapsCovers()
{
    const auto moving = [](const QByteArray &ground) {
        auto movie = Movie(Svg(ground + "<rect width='9' height='9' fill='#ff0000'>" +
                               Move("0s", "2s", "40 0") + "</rect>"));
        for (int time = 40; time <= 400; time += 40) {
            movie->Advance(time);
            Shown(*movie, Screen);
        }
        return movie;
    };
    const QRect all(QPoint(), Screen);
    const auto whole = moving("<rect width='100' height='100' fill='#ddeeff'/>");
    QVERIFY(whole->Covers(all, all));
    // Beside the drawing nothing is painted.
    const QRect wide(0, 0, 200, 100);
    Shown(*whole, wide.size());
    QVERIFY(!whole->Covers(wide, wide));
    const auto gap = moving("<rect width='100' height='98' fill='#ddeeff'/>");
    QVERIFY(!gap->Covers(all, all));
    whole->Advance(whole->Duration());
    QVERIFY(!whole->Covers(all, all));
}

void TestSvgLayers::aMovieThatIsResizedWhileItPlaysStaysWhole()
{
    const auto document = ParseSvg(Bars());
    const auto movie = Movie(Bars());
    for (int time = 40; time < movie->Duration(); time += 40) {
        movie->Advance(time);
        const QSize size = time % 200 == 0 ? QSize(160, 160) : Screen;
        QVERIFY2(Strays(Shown(*movie, size), Whole(*document, time, size)) <= Few,
                 qPrintable(QString::number(time)));
        // Uncovered, and so painted once more.
        QVERIFY(Strays(Shown(*movie, size), Whole(*document, time, size)) <= Few);
    }
}

void TestSvgLayers::aMovieThatIsSkippedThroughStaysWhole()
{
    const auto document = ParseSvg(Bars());
    const auto movie = Movie(Bars());
    for (const int time : {1000, 1040, 1080, 3000, 200, 0, 2500, 3500, 1600, 1640}) {
        movie->Advance(time);
        QVERIFY2(Strays(Shown(*movie, Screen), Whole(*document, time, Screen)) <= Few,
                 qPrintable(QString::number(time)));
    }
}

void TestSvgLayers::aPaintedPartKeepsItsNewColorWhileTheMoviePlays()
{
    const QByteArray drawing =
        Svg("<rect id='tetto.interno' width='100' height='50' fill='#eeeeee'/>"
            "<rect y='50' width='50' height='50' fill='#00ff00'>" +
            Move("0s", "2s", "50 0") + "</rect>");
    const auto movie = Movie(drawing);
    for (int time = 40; time < 1000; time += 40) {
        movie->Advance(time);
        Shown(*movie, Screen);
    }
    movie->SetVariable(QStringLiteral("QualeOggetto"), QStringLiteral("tetto.interno"));
    movie->SetVariable(QStringLiteral("TestoColore.QualeColore"), QStringLiteral("FF0000"));
    QCOMPARE(At(Shown(*movie, Screen), 50, 20), QColor(Qt::red));
    movie->Advance(1040);
    QCOMPARE(At(Shown(*movie, Screen), 50, 20), QColor(Qt::red));
}

MORLENE_TEST(TestSvgLayers)
#include "test_svg_layers.moc"
