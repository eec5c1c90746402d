// The figure: painting its parts, hiding smoke and clouds, clicks, and files that are no drawing.
#include "platform/movies/movie_helpers.h"
#include "support/registered_tests.h"

#include <QElapsedTimer>
#include <QTest>

using platform::MovieReader;

static void Color(MovieReader &movie, const char *object, const char *color)
{
    movie.SetVariable("QualeOggetto", object);
    movie.SetVariable("TestoColore.QualeColore", color);
}

// Nested in "text" this often.
static QByteArray Nested(int depth, const QByteArray &text)
{
    return QByteArray("<g>").repeated(depth) + text + QByteArray("</g>").repeated(depth);
}

class TestSvgMovie : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anInsideIsFilled();
    void anOutlineIsDrawn();
    void theObjectStaysNamed();
    void aColourWithoutAnObjectIsLost();
    void aMalformedColourIsLost_data();
    void aMalformedColourIsLost();
    void aShadeOrAGroupIsNotPainted();
    void anObjectOfManyShapesIsPaintedWhole();
    void aColourReachesWhatTheStyleSaid();
    void everyReaderHasItsOwnPaint();
    void smokeAndCloudsAreShownAndHidden();
    void onlyVisibilityOfSmokeAndCloudsChanges();
    void theDescriptionTellsWhatIsShown();
    void aPlainDrawingHasNoDescription();
    void thePictureKeepsItsProportions();
    void nothingIsPaintedBesideThePicture();
    void everyPartIsHit();
    void theTopmostPartIsHit();
    void movedPartsAreHitWhereTheyStand();
    void hiddenPartsAreNotHit();
    void aSizeWithoutViewBoxIsEnough();
    void gradientsWithPlainReferencesWork();
    void whatIsNoDrawingIsNotKnown_data();
    void whatIsNoDrawingIsNotKnown();
    void unknownElementsAreLeftOut();
};

void TestSvgMovie::anInsideIsFilled()
{
    auto movie = Movie(Figure());
    QCOMPARE(At(Shown(*movie), 50, 15), QColor("#eeeeee"));
    Color(*movie, "tetto.interno", "FF8000");
    QCOMPARE(At(Shown(*movie), 50, 15), QColor("#ff8000"));
    QCOMPARE(At(Shown(*movie), 50, 5), QColor("#eeeeee"));
    QCOMPARE(At(Shown(*movie), 15, 15), QColor("#000000"));
}

void TestSvgMovie::anOutlineIsDrawn()
{
    auto movie = Movie(Figure());
    for (const char *object : {"porta.contorno", "fumo.contorno", "nuvole.contorno"})
        Color(*movie, object, "00ff00");
    const QImage image = Shown(*movie);
    for (const int y : {45, 65, 75})
        QCOMPARE(At(image, 15, y), QColor("#00ff00"));
    QCOMPARE(At(image, 50, 45), QColor("#eeeeee"));
    QCOMPARE(At(image, 15, 35), QColor("#000000"));
}

void TestSvgMovie::theObjectStaysNamed()
{
    auto movie = Movie(Figure());
    Color(*movie, "pareti.interno", "FF0000");
    movie->SetVariable("TestoColore.QualeColore", "0000FF");
    QCOMPARE(At(Shown(*movie), 50, 25), QColor("#0000ff"));
}

void TestSvgMovie::aColourWithoutAnObjectIsLost()
{
    auto movie = Movie(Figure());
    const QImage before = Shown(*movie);
    movie->SetVariable("TestoColore.QualeColore", "FF0000");
    Color(*movie, "cantina.interno", "FF0000");
    Color(*movie, "", "FF0000");
    movie->SetVariable("QualeColore", "FF0000");
    QCOMPARE(Shown(*movie), before);
    // An unknown object takes the place of the one named before.
    movie->SetVariable("QualeOggetto", "tetto.interno");
    Color(*movie, "cantina.interno", "FF0000");
    QCOMPARE(Shown(*movie), before);
}

void TestSvgMovie::aMalformedColourIsLost_data()
{
    QTest::addColumn<QString>("color");
    for (const char *color :
         {"", "FF", "FF00000", "#FF0000", "GG0000", "red", " FF0000", "FF00\"/"})
        QTest::newRow(color) << QString(color);
}

void TestSvgMovie::aMalformedColourIsLost()
{
    QFETCH(QString, color);
    auto movie = Movie(Figure());
    const QImage before = Shown(*movie);
    movie->SetVariable("QualeOggetto", "tetto.interno");
    movie->SetVariable("TestoColore.QualeColore", color);
    QCOMPARE(Shown(*movie), before);
}

void TestSvgMovie::aShadeOrAGroupIsNotPainted()
{
    auto movie = Movie(Figure());
    const QImage before = Shown(*movie);
    Color(*movie, "tetto.ombra", "FF0000");
    Color(*movie, "tetto", "FF0000");
    QCOMPARE(Shown(*movie), before);
}

void TestSvgMovie::anObjectOfManyShapesIsPaintedWhole()
{
    auto movie = Movie(Svg("<g id='finestre.interno' fill='#123456'>"
                           "<rect width='30' height='30'/>"
                           "<rect x='40' width='30' height='30' style='fill: #654321 !important'/>"
                           "<rect y='40' width='30' height='30' fill='none'/></g>"));
    Color(*movie, "finestre.interno", "FF0000");
    const QImage image = Shown(*movie);
    QCOMPARE(At(image, 15, 15), QColor("#ff0000"));
    QCOMPARE(At(image, 55, 15), QColor("#ff0000"));
    QCOMPARE(At(image, 15, 55), QColor("#ffffff"));
}

void TestSvgMovie::aColourReachesWhatTheStyleSaid()
{
    auto movie = Movie(Svg("<rect id='tetto.interno' fill='#00ff00' style='fill:#0000ff' "
                           "width='100' height='100'/>"));
    QCOMPARE(At(Shown(*movie), 50, 50), QColor("#0000ff"));
    Color(*movie, "tetto.interno", "FF0000");
    QCOMPARE(At(Shown(*movie), 50, 50), QColor("#ff0000"));
}

void TestSvgMovie::everyReaderHasItsOwnPaint()
{
    auto first = Movie(Figure());
    auto second = Movie(Figure());
    Color(*first, "tetto.interno", "FF0000");
    QCOMPARE(At(Shown(*second), 50, 15), QColor("#eeeeee"));
}

void TestSvgMovie::smokeAndCloudsAreShownAndHidden()
{
    auto movie = Movie(Figure());
    QCOMPARE(At(Shown(*movie), 50, 65), QColor("#eeeeee"));
    movie->SetProperty("fumo", 7, "0");
    QCOMPARE(At(Shown(*movie), 50, 65), QColor("#ffffff"));
    QCOMPARE(At(Shown(*movie), 50, 75), QColor("#eeeeee"));
    movie->SetProperty("nuvole", 7, "0");
    QCOMPARE(At(Shown(*movie), 50, 75), QColor("#ffffff"));
    movie->SetProperty("fumo", 7, "1");
    QCOMPARE(At(Shown(*movie), 50, 65), QColor("#eeeeee"));
    QCOMPARE(At(Shown(*movie), 50, 75), QColor("#ffffff"));
}

void TestSvgMovie::onlyVisibilityOfSmokeAndCloudsChanges()
{
    auto movie = Movie(Figure());
    const QImage before = Shown(*movie);
    movie->SetProperty("fumo", 6, "0");
    movie->SetProperty("fumo", 7, "2");
    movie->SetProperty("fumo", 7, "");
    movie->SetProperty("tetto", 7, "0");
    movie->SetProperty("cielo", 7, "0");
    QCOMPARE(Shown(*movie), before);
}

void TestSvgMovie::theDescriptionTellsWhatIsShown()
{
    auto movie = Movie(Figure());
    Color(*movie, "tetto.interno", "ff8000");
    Color(*movie, "tetto.contorno", "00ff00");
    movie->SetProperty("nuvole", 7, "0");
    QCOMPARE(movie->Description(),
             "comignolo EEEEEE, tetto FF8000, pareti EEEEEE, finestre EEEEEE, porta EEEEEE, "
             "gradino EEEEEE, fumo 1, nuvole 0");
    auto grouped = Movie(Svg("<g fill='red'><g id='tetto.interno'><rect/></g></g>"
                             "<g id='porta.interno'><rect fill='#00f'/></g>"));
    QCOMPARE(grouped->Description(), "tetto FF0000, porta 0000FF");
}

void TestSvgMovie::aPlainDrawingHasNoDescription()
{
    auto movie = Movie(Svg("<rect width='100' height='100'/>"));
    QVERIFY(movie->Description().isEmpty());
    QCOMPARE(movie->Duration(), 0);
    QVERIFY(!movie->Advance(1000));
    QCOMPARE(movie->Hit({50, 50}, {0, 0, 100, 100}), 0);
}

void TestSvgMovie::thePictureKeepsItsProportions()
{
    auto movie =
        Movie(Svg("<rect width='200' height='100' fill='#f00'/>", "viewBox='0 0 200 100'"));
    QCOMPARE(movie->Size(), QSizeF(200, 100));
    const QImage image = Shown(*movie, {100, 100});
    QCOMPARE(At(image, 50, 20), QColor("#ffffff"));
    QCOMPARE(At(image, 2, 50), QColor("#ff0000"));
    QCOMPARE(At(image, 97, 50), QColor("#ff0000"));
    QCOMPARE(At(image, 50, 80), QColor("#ffffff"));
}

void TestSvgMovie::nothingIsPaintedBesideThePicture()
{
    auto movie = Movie(Svg("<rect x='-500' y='-500' width='1000' height='1000' fill='#f00'/>"));
    const QImage image = Shown(*movie, {300, 100});
    QCOMPARE(At(image, 50, 50), QColor("#ffffff"));
    QCOMPARE(At(image, 150, 50), QColor("#ff0000"));
    QCOMPARE(At(image, 250, 50), QColor("#ffffff"));
}

void TestSvgMovie::everyPartIsHit()
{
    auto movie = Movie(Figure());
    const QRectF target(100, 0, 400, 200); // the picture stands in the middle, twice its size
    for (int part = 1; part <= 8; ++part) {
        const double y = part * 20 - 10;
        QCOMPARE(movie->Hit({300, y}, target), part);
        QCOMPARE(movie->Hit({230, y}, target), part); // on the outline
        QCOMPARE(movie->Hit({205, y}, target), 0);
    }
    QCOMPARE(movie->Hit({300, 190}, target), 0);
    QCOMPARE(movie->Hit({150, 30}, target), 0);
    QCOMPARE(movie->Hit({-5, -5}, target), 0);
    QCOMPARE(movie->Hit({9999, 30}, target), 0);
    QCOMPARE(movie->Hit({0, 0}, QRectF()), 0);
}

void TestSvgMovie::theTopmostPartIsHit()
{
    const QByteArray rect = "<rect width='50' height='50' ";
    auto movie = Movie(
        Svg("<g id='pareti'>" + rect + "id='pareti.interno' x='0'/></g><g id='porta'>" + rect +
            "id='porta.interno' x='25'/>" + rect +
            "id='porta.ombra' fill-opacity='0.2' y='50'/></g>" + rect + "x='40' fill='#fff'/>"));
    const QRectF target(0, 0, 100, 100);
    QCOMPARE(movie->Hit({10, 10}, target), 3);
    QCOMPARE(movie->Hit({30, 10}, target), 5);
    // What belongs to no part covers none; a thin shade alone is no part either.
    QCOMPARE(movie->Hit({45, 10}, target), 5);
    QCOMPARE(movie->Hit({10, 60}, target), 0);
}

void TestSvgMovie::movedPartsAreHitWhereTheyStand()
{
    auto movie =
        Movie(Svg("<defs><linearGradient id='g'><stop stop-color='#f00'/></linearGradient></defs>"
                  "<g transform='translate(50 50)'><g id='tetto' transform='scale(2)'>"
                  "<rect id='tetto.interno' fill='url(#g)' width='20' height='20'/></g></g>"
                  "<rect id='porta.interno' width='10' height='10'/>"));
    const QRectF target(0, 0, 100, 100);
    QCOMPARE(movie->Hit({85, 85}, target), 2);
    QCOMPARE(movie->Hit({95, 95}, target), 0);
    QCOMPARE(movie->Hit({45, 45}, target), 0);
}

void TestSvgMovie::hiddenPartsAreNotHit()
{
    auto movie =
        Movie(Svg("<g id='tetto'><rect id='tetto.interno' width='100' height='100'/></g>"
                  "<g id='nuvole'><rect id='nuvole.interno' width='50' height='100'/></g>"));
    const QRectF target(0, 0, 100, 100);
    QCOMPARE(movie->Hit({10, 10}, target), 8);
    movie->SetProperty("nuvole", 7, "0");
    QCOMPARE(movie->Hit({10, 10}, target), 2);
    movie->SetProperty("nuvole", 7, "1");
    QCOMPARE(movie->Hit({10, 10}, target), 8);
}

void TestSvgMovie::aSizeWithoutViewBoxIsEnough()
{
    auto movie = Movie(Svg("<rect width='60px' height='40'/>", "width='60px' height='40'"));
    QVERIFY(movie);
    QCOMPARE(movie->Size(), QSizeF(60, 40));
}

void TestSvgMovie::gradientsWithPlainReferencesWork()
{
    auto movie = Movie(Svg("<linearGradient id='a'><stop stop-color='#f00'/></linearGradient>"
                           "<linearGradient id='b' href='#a'/>"
                           "<rect fill='url(#b)' width='100' height='100'/>"));
    QCOMPARE(At(Shown(*movie), 50, 50), QColor("#ff0000"));
}

void TestSvgMovie::whatIsNoDrawingIsNotKnown_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray rect = "<rect width='10' height='10'/>";
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("noise") << QByteArray("\x00\xff\x13svg\x80<svg\x01", 12);
    QTest::newRow("plain text") << QByteArray("once upon a time");
    QTest::newRow("another document") << QByteArray("<html><svg viewBox='0 0 9 9'/></html>");
    QTest::newRow("another language")
        << QByteArray("<svg xmlns='http://example.org/' viewBox='0 0 9 9'/>");
    QTest::newRow("cut off") << Svg(rect).chopped(8);
    QTest::newRow("crossed tags") << Svg("<g><defs></g></defs>");
    QTest::newRow("no size") << Svg(rect, "");
    QTest::newRow("an empty size") << Svg(rect, "viewBox='0 0 0 100'");
    QTest::newRow("a negative size") << Svg(rect, "viewBox='0 0 -9 100'");
    QTest::newRow("a size of words") << Svg(rect, "viewBox='a b c d'");
    QTest::newRow("an endless strip") << Svg(rect, "viewBox='0 0 999999 1'");
    QTest::newRow("huge numbers") << Svg("<rect width='1e300' height='1e9'/>");
    QTest::newRow("numbers beyond any") << Svg("<rect width='1e9999' height='1'/>");
    QTest::newRow("deep") << Svg(Nested(100, rect));
    QTest::newRow("very deep") << Svg(Nested(100000, rect));
    QTest::newRow("deep in what is skipped")
        << Svg("<metadata>" + Nested(100000, "") + "</metadata>");
    QTest::newRow("many elements") << Svg(rect.repeated(6000));
    QTest::newRow("long paths") << Svg("<path d='M0 0" + QByteArray("L1 1").repeated(300000) +
                                       "'/>");
    QTest::newRow("many attributes") << [] {
        QByteArray attributes;
        for (int number = 0; number < 100000; ++number)
            attributes += " a" + QByteArray::number(number) + "=''";
        return Svg("<g" + attributes + "/>");
    }();
    QTest::newRow("too large") << Svg("<!--" + QByteArray(10 << 20, ' ') + "-->");
    QTest::newRow("entities") << QByteArray("<!DOCTYPE svg [<!ENTITY a 'b'>]>") +
                                     Svg("<g id='&a;'/>");
    QTest::newRow("a file as an entity")
        << QByteArray("<!DOCTYPE svg [<!ENTITY a SYSTEM '/etc/passwd'>]>") + Svg("<g>&a;</g>");
}

void TestSvgMovie::whatIsNoDrawingIsNotKnown()
{
    QFETCH(QByteArray, content);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!Movie(content));
    QVERIFY(timer.elapsed() < 5000);
}

void TestSvgMovie::unknownElementsAreLeftOut()
{
    auto movie = Movie(
        "<?xml version='1.0' encoding='EBCDIC-US'?><!DOCTYPE svg PUBLIC 'a' 'file:///etc/passwd'>" +
        Svg("<style>@import 'file:///etc/passwd'; rect { fill: #f00 }</style><script>x</script>"
            "<metadata><rect width='100' height='100'/></metadata>"
            "<rect width='100' height='100' class='a' onclick='b' "
            "style='fill:#00ff00;font-family:x;behavior:url(/etc/passwd)'/>"
            "<text>word</text><image width='100' height='100' href='/etc/passwd'/>"
            "<symbol><rect width='100' height='100'/></symbol><use href='#a'/><foreignObject><rect "
            "width='100' height='100'/></foreignObject>"));
    QVERIFY(movie);
    QCOMPARE(At(Shown(*movie), 50, 50), QColor("#00ff00"));
}

MORLENE_TEST(TestSvgMovie)
#include "test_svg_movie.moc"
