// Where the elements of a drawing stand.
#include "platform/movies/movie_helpers.h"
#include "platform/movies/svg_transform.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestSvgTransform : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPlaceIsThatOfAllGroupsRoundIt_data();
    void aPlaceIsThatOfAllGroupsRoundIt();
    void whatIsNotUnderstoodHasNoPlace_data();
    void whatIsNotUnderstoodHasNoPlace();
};

void TestSvgTransform::aPlaceIsThatOfAllGroupsRoundIt_data()
{
    QTest::addColumn<QByteArray>("outer");
    QTest::addColumn<QByteArray>("inner");
    QTest::addColumn<QPointF>("place"); // of the point 10, 0
    QTest::newRow("nothing") << QByteArray() << QByteArray() << QPointF(10, 0);
    QTest::newRow("both") << QByteArray("translate(1 2)") << QByteArray("translate(3,4)")
                          << QPointF(14, 6);
    QTest::newRow("one number") << QByteArray("translate(5)") << QByteArray("scale(2)")
                                << QPointF(25, 0);
    QTest::newRow("the inner first")
        << QByteArray("scale(2 3)") << QByteArray("translate(1 1)") << QPointF(22, 3);
    QTest::newRow("the last first")
        << QByteArray() << QByteArray("translate(5 0) rotate(90)") << QPointF(5, 10);
    QTest::newRow("round a point")
        << QByteArray() << QByteArray("rotate(180 20 5)") << QPointF(30, 10);
}

void TestSvgTransform::aPlaceIsThatOfAllGroupsRoundIt()
{
    QFETCH(QByteArray, outer);
    QFETCH(QByteArray, inner);
    QFETCH(QPointF, place);
    const auto document = ParseSvg(Svg("<g transform='" + outer + "'><rect width='1' height='1' " +
                                       "transform='" + inner + "'/></g>"));
    const auto transform = TransformOf(*document, 2);
    QVERIFY(transform.has_value());
    const QPointF found = transform->map(QPointF(10, 0));
    QVERIFY2((found - place).manhattanLength() < 1e-9,
             qPrintable(QStringLiteral("%1 %2").arg(found.x()).arg(found.y())));
}

void TestSvgTransform::whatIsNotUnderstoodHasNoPlace_data()
{
    QTest::addColumn<QByteArray>("text");
    for (const char *text : {"skewX(3)", "translate()", "translate(1 2 3)", "rotate(1 2)",
                             "turn(3)", "scale(1", "scale(a)", "3"})
        QTest::newRow(text) << QByteArray(text);
}

void TestSvgTransform::whatIsNotUnderstoodHasNoPlace()
{
    QFETCH(QByteArray, text);
    SvgDocument document = *ParseSvg(Svg("<rect width='1' height='1'/>"));
    document.Elements[1].Set("transform", text);
    QVERIFY(!TransformOf(document, 1).has_value());
}

MORLENE_TEST(TestSvgTransform)
#include "test_svg_transform.moc"
