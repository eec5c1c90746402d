// A figure that is laid together of pictures looks like one drawn in one go, in all its colours.
#include "platform/movies/movie_helpers.h"
#include "platform/movies/svg_piece.h"
#include "support/registered_tests.h"

#include <QFile>
#include <QTest>

using namespace platform;

namespace {

constexpr QSize Screen(100, 100);
constexpr int Paintings = 30;

// Pieces need the painter's own pixels, so a scaled painter has the drawing drawn in one go.
QImage InOneGo(MovieReader &movie, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(2, 2);
    movie.Paint(painter, QRectF(QPointF(), QSizeF(size) / 2));
    return image;
}

} // namespace

class TestSvgPiece : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFigureOfPiecesLooksAsIfDrawnInOneGo_data();
    void aFigureOfPiecesLooksAsIfDrawnInOneGo();
    void aPieceIsWhatIsPaintedAndNoMore();
    void aPieceOfNothingIsEmpty();
    void manySmallPiecesArePaintedAsOne();
    void aDrawingWithReferencesIsNotCut();
    void aScaledPainterGetsNoKeptPixels();
};

void TestSvgPiece::aFigureOfPiecesLooksAsIfDrawnInOneGo_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("a place in a set") << QSize(80, 110);
    QTest::newRow("one of twelve") << QSize(199, 184);
    QTest::newRow("the only one") << QSize(701, 899);
}

void TestSvgPiece::aFigureOfPiecesLooksAsIfDrawnInOneGo()
{
    QFETCH(QSize, size);
    QFile file(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.svg"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto movie = Movie(file.readAll());
    const QStringList colours = {QStringLiteral("00FF00"), QStringLiteral("FF0000"),
                                 QStringLiteral("0000FF"), QStringLiteral("FFFF00")};
    const QStringList parts = {QStringLiteral("comignolo"), QStringLiteral("tetto"),
                               QStringLiteral("pareti"),    QStringLiteral("finestre"),
                               QStringLiteral("porta"),     QStringLiteral("gradino")};
    for (int painting = 0; painting < Paintings; ++painting) {
        for (int part = 0; part < parts.size(); ++part) {
            movie->SetVariable(QStringLiteral("QualeOggetto"),
                               parts.at(part) + (painting % 7 == 6 ? QStringLiteral(".contorno")
                                                                   : QStringLiteral(".interno")));
            movie->SetVariable(QStringLiteral("TestoColore.QualeColore"),
                               colours.at((painting * 5 + part * painting) % 4));
        }
        movie->SetProperty(QStringLiteral("fumo"), 7, QString::number(painting % 2));
        movie->SetProperty(QStringLiteral("nuvole"), 7, QString::number(painting / 2 % 2));
        QVERIFY2(Difference(Shown(*movie, size), InOneGo(*movie, size)) <= 3,
                 qPrintable(QString::number(painting)));
    }
}

void TestSvgPiece::aPieceIsWhatIsPaintedAndNoMore()
{
    const auto document = ParseSvg(Svg("<rect width='100' height='100' fill='#00ff00'/>"
                                       "<rect x='30' y='40' width='20' height='10'/>"));
    const QRectF target(5, 7, 100, 100);
    const SvgPiece ground = PaintPiece(PieceText(*document, 1, 2), target);
    QCOMPARE(QRect(ground.Corner, ground.Picture.size()), QRect(5, 7, 100, 100));
    QVERIFY(!ground.Picture.hasAlphaChannel());
    const SvgPiece bar = PaintPiece(PieceText(*document, 2, 3), target);
    const QRect painted(35, 47, 20, 10);
    const QRect kept(bar.Corner, bar.Picture.size());
    QVERIFY(kept.contains(painted));
    QVERIFY(painted.adjusted(-2, -2, 2, 2).contains(kept));
    for (int y = 0; y < kept.height(); ++y)
        for (int x = 0; x < kept.width(); ++x)
            QCOMPARE(bar.Picture.pixelColor(x, y).alpha(),
                     painted.contains(kept.topLeft() + QPoint(x, y)) ? 255 : 0);
}

void TestSvgPiece::aPieceOfNothingIsEmpty()
{
    const auto document = ParseSvg(Svg("<g display='none'><rect width='9' height='9'/></g>"));
    QVERIFY(PaintPiece(PieceText(*document, 1, 3), QRectF(0, 0, 50, 50)).Picture.isNull());
}

void TestSvgPiece::manySmallPiecesArePaintedAsOne()
{
    QByteArray bars;
    for (int bar = 0; bar < 100; ++bar)
        bars += "<rect x='" + QByteArray::number(bar) + "' width='1' height='100'/>";
    const auto movie = Movie(Svg(bars));
    QCOMPARE(Difference(Shown(*movie, Screen), InOneGo(*movie, Screen)), 0);
    QCOMPARE(At(Shown(*movie, Screen), 99, 99), QColor(Qt::black));
}

void TestSvgPiece::aDrawingWithReferencesIsNotCut()
{
    QVERIFY(!CanCut(*ParseSvg(Svg("<defs><rect width='9' height='9'/></defs>"))));
    QVERIFY(!CanCut(*ParseSvg(Svg("<linearGradient id='a'/>"))));
    QVERIFY(CanCut(*ParseSvg(Svg(QByteArray("<g/>").repeated(399)))));
    QVERIFY(!CanCut(*ParseSvg(Svg(QByteArray("<g/>").repeated(400)))));
}

void TestSvgPiece::aScaledPainterGetsNoKeptPixels()
{
    QImage image(Screen, QImage::Format_RGB32);
    QPainter painter(&image);
    QVERIFY(CanPaintPieces(painter));
    painter.translate(3, 4);
    QVERIFY(CanPaintPieces(painter));
    painter.translate(0.5, 0);
    QVERIFY(!CanPaintPieces(painter));
    painter.resetTransform();
    painter.scale(2, 2);
    QVERIFY(!CanPaintPieces(painter));
    QImage fine(Screen * 2, QImage::Format_RGB32);
    fine.setDevicePixelRatio(2);
    const QPainter finePainter(&fine);
    QVERIFY(!CanPaintPieces(finePainter));
}

MORLENE_TEST(TestSvgPiece)
#include "test_svg_piece.moc"
