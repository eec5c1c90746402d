// Rewards that are drawings: where everything stands at a given moment.
#include "platform/movies/movie_helpers.h"

#include "platform/movies/svg_animation.h"
#include "support/registered_tests.h"

#include <QTest>

using platform::ParseSvg;
using platform::SvgAnimation;

// The value of the first animated attribute of a shape at a moment; "-" where it is not there.
static QString Value(const QByteArray &animations, double milliseconds,
                     const QByteArray &attributes = "x='5'")
{
    const auto document = ParseSvg(Svg("<rect " + attributes + ">" + animations + "</rect>"));
    if (!document)
        return "no document";
    const SvgAnimation animation(*document);
    if (animation.IsEmpty())
        return "no animation";
    const auto value = animation.At(*document, milliseconds).front();
    return value ? QString::fromUtf8(*value) : QString("-");
}

static int Duration(const QByteArray &animations)
{
    return Movie(Svg("<rect>" + animations + "</rect>"))->Duration();
}

class TestSvgAnimation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void valuesAtMoments_data();
    void valuesAtMoments();
    void contradictionsAreLeftOut_data();
    void contradictionsAreLeftOut();
    void theLongestFiniteEndIsTheDuration();
    void laterAnimationsWin();
    void theScreenFollowsTheTime();
    void nothingChangesAfterTheEnd();
    void timeMayGoBackAndStandStill();
    void paintAndAnimationGoTogether();
};

void TestSvgAnimation::valuesAtMoments_data()
{
    QTest::addColumn<QByteArray>("animation");
    QTest::addColumn<double>("time");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const char *animation, double time, const char *value) {
        QTest::newRow(name) << QByteArray(animation) << time << QString(value);
    };
    const char *plain = "<animate attributeName='x' from='10' to='30' begin='1s' dur='2s'/>";
    row("before its start", plain, 999, "5");
    row("at its start", plain, 1000, "10.0000");
    row("half way", plain, 2000, "20.0000");
    row("after its end", plain, 3000, "5");
    row("frozen", "<animate attributeName='x' values='1;4;2' dur='500ms' fill='freeze'/>", 900,
        "2.0000");
    row("a list", "<animate attributeName='x' values='1;4;2;' dur='1'/>", 250, "2.5000");
    row("times of keys",
        "<animate attributeName='x' values='0;10;20' keyTimes='0;0.8;1' dur='1s'/>", 400, "5.0000");
    row("steps", "<animate attributeName='x' values='0;10;20' calcMode='discrete' dur='3s'/>", 1500,
        "10.0000");
    row("steps with times",
        "<animate attributeName='x' values='0;10' calcMode='discrete' keyTimes='0;0.9' dur='1s'/>",
        850, "0.0000");
    row("eased, straight",
        "<animate attributeName='x' values='0;10' calcMode='spline' keySplines='0 0 1 1' "
        "dur='1s'/>",
        500, "5.0000");
    row("eased in",
        "<animate attributeName='x' values='0;10' calcMode='spline' keySplines='1 0 1 1' "
        "dur='1s'/>",
        500, "1.1012");
    row("a missing attribute goes again",
        "<animate attributeName='opacity' values='0;1' dur='1s'/>", 1000, "-");
    row("a colour", "<animate attributeName='fill' values='#ff0000;blue' dur='1s'/>", 500,
        "#800080");
    row("a colour with an e", "<animate attributeName='fill' values='#1e9999;#1e9999' dur='1s'/>",
        500, "#1e9999");
    row("words", "<animate attributeName='visibility' values='visible;hidden' dur='1s'/>", 600,
        "hidden");
    row("repeated", "<animate attributeName='x' values='0;10' dur='1s' repeatCount='3'/>", 2500,
        "5.0000");
    row("repeated in part",
        "<animate attributeName='x' values='0;10' dur='1s' repeatCount='1.5' fill='freeze'/>", 5000,
        "5.0000");
    row("repeated whole",
        "<animate attributeName='x' values='0;10' dur='1s' repeatCount='2' fill='freeze'/>", 5000,
        "10.0000");
    row("for ever", "<animate attributeName='x' values='0;10' dur='1s' repeatCount='indefinite'/>",
        100500, "5.0000");
    row("started before", "<animate attributeName='x' values='0;10' dur='2s' begin='-1s'/>", 0,
        "5.0000");
    row("set before", "<set attributeName='visibility' to='hidden' begin='1s'/>", 999, "-");
    row("set for good", "<set attributeName='visibility' to='hidden' begin='1s'/>", 99999,
        "hidden");
    row("set for a time", "<set attributeName='x' to='7' begin='1s' dur='1s'/>", 2000, "5");
    row("moved",
        "<animateTransform attributeName='transform' type='translate' from='0' to='10 20' "
        "dur='1s'/>",
        500, "translate(5.0000 10.0000)");
    row("scaled",
        "<animateTransform attributeName='transform' type='scale' values='1;3' dur='1s'/>", 500,
        "scale(2.0000 2.0000)");
    row("turned",
        "<animateTransform attributeName='transform' type='rotate' from='0' to='90' dur='1s'/>",
        500, "rotate(45.0000 0.0000 0.0000)");
    row("turned round a point",
        "<animateTransform attributeName='transform' type='rotate' values='0 5 5;90 15 5' "
        "dur='1s'/>",
        500, "rotate(45.0000 10.0000 5.0000)");
}

void TestSvgAnimation::valuesAtMoments()
{
    QFETCH(QByteArray, animation);
    QFETCH(double, time);
    QFETCH(QString, value);
    QCOMPARE(Value(animation, time), value);
}

void TestSvgAnimation::contradictionsAreLeftOut_data()
{
    QTest::addColumn<QByteArray>("animation");
    for (const char *animation :
         {"<animate/>",
          "<animate attributeName='x' dur='1s'/>",
          "<animate attributeName='x' values='0;1' dur='-1s'/>",
          "<animate attributeName='x' values='0;1' dur='0s'/>",
          "<animate attributeName='x' values='0;1' dur='1h'/>",
          "<animate attributeName='x' values='0;1' dur='1s' begin='click'/>",
          "<animate attributeName='x' values='0;1' dur='1s' begin='a.end+1s'/>",
          "<animate attributeName='x' values='0;1' dur='1s' repeatCount='0'/>",
          "<animate attributeName='x' values='0;1' dur='1s' repeatCount='-3'/>",
          "<animate attributeName='x' values='0;1' dur='1s' repeatCount='nan'/>",
          "<animate attributeName='x' values='0;1' dur='900000s' repeatCount='900000'/>",
          "<animate attributeName='x' values='0;1' keyTimes='0;0.5;1' dur='1s'/>",
          "<animate attributeName='x' values='0;1' keyTimes='1;0' dur='1s'/>",
          "<animate attributeName='x' values='0;1' keyTimes='0.5;1' dur='1s'/>",
          "<animate attributeName='x' values='0;1' calcMode='spline' dur='1s'/>",
          "<animate attributeName='x' values='0;1' calcMode='spline' keySplines='2 0 0 1' "
          "dur='1s'/>",
          "<animate attributeName='id' values='a;b' dur='1s'/>",
          "<animate attributeName='xlink:href' values='a;b' dur='1s'/>",
          "<set attributeName='style' to='fill:red'/>",
          "<set attributeName='a&quot;b' to='c'/>",
          "<set attributeName='stroke-dasharray' to='0.0001'/>",
          "<animate attributeName='transform' values='0;1' dur='1s'/>",
          "<animateTransform attributeName='x' type='rotate' values='0;1' dur='1s'/>",
          "<animateTransform attributeName='transform' type='matrix' values='0;1' dur='1s'/>",
          "<animateTransform attributeName='transform' type='rotate' values='0 1;1 2' dur='1s'/>",
          "<animateTransform attributeName='transform' type='scale' values='1;a' dur='1s'/>",
          "<animateTransform attributeName='transform' type='skewX' values='0;1' dur='1s'/>",
          "<animateTransform attributeName='transform' type='translate' values=';1' dur='1s'/>",
          "<animateMotion path='M0 0H10' dur='1s'/>",
          "<animate attributeName='d' values='M0 0;M1 1' dur='1s'/>",
          "<animate attributeName='x' to='1' dur='1s'/>",
          "<animate attributeName='x' by='1' dur='1s'/>",
          "<animate attributeName='x' href='#nobody' values='0;1' dur='1s'/>"})
        QTest::newRow(animation) << QByteArray(animation);
}

void TestSvgAnimation::contradictionsAreLeftOut()
{
    QFETCH(QByteArray, animation);
    QCOMPARE(Value(animation, 500), "no animation");
    QCOMPARE(Duration(animation), 0);
}

void TestSvgAnimation::theLongestFiniteEndIsTheDuration()
{
    QCOMPARE(
        Duration("<animate attributeName='x' values='0;1' begin='0.5s' dur='1.5s' repeatCount='3'/>"
                 "<animate attributeName='y' values='0;1' dur='2s'/>"),
        5000);
    // What never ends counts with one cycle.
    QCOMPARE(Duration("<animate attributeName='x' values='0;1' dur='2s' repeatCount='indefinite'/>"
                      "<animate attributeName='y' values='0;1' dur='3s'/>"),
             3000);
    QCOMPARE(
        Duration("<animate attributeName='x' values='0;1' dur='2s' repeatCount='indefinite'/>"),
        2000);
    QCOMPARE(Duration("<set attributeName='x' to='1' begin='4s'/>"), 4000);
    QCOMPARE(Duration(""), 0);
}

void TestSvgAnimation::laterAnimationsWin()
{
    const QByteArray both = "<animate attributeName='x' values='1;1' dur='2s'/>"
                            "<animate attributeName='x' values='2;2' dur='1s'/>";
    QCOMPARE(Value(both, 500), "2.0000");
    QCOMPARE(Value(both, 1500), "1.0000");
}

void TestSvgAnimation::theScreenFollowsTheTime()
{
    auto movie =
        Movie(Svg("<rect width='10' height='100' fill='#f00'>"
                  "<animate attributeName='x' values='0;90' dur='1s' fill='freeze'/></rect>"));
    QCOMPARE(At(Shown(*movie), 5, 50), QColor("#ff0000"));
    QVERIFY(movie->Advance(500));
    QCOMPARE(At(Shown(*movie), 5, 50), QColor("#ffffff"));
    QCOMPARE(At(Shown(*movie), 50, 50), QColor("#ff0000"));
    QVERIFY(movie->Advance(40000));
    QCOMPARE(At(Shown(*movie), 95, 50), QColor("#ff0000"));
}

void TestSvgAnimation::nothingChangesAfterTheEnd()
{
    auto movie = Movie(Svg("<rect><animate attributeName='x' values='0;90' dur='1s'/>"
                           "<animate attributeName='y' values='0;90' dur='300ms' "
                           "repeatCount='indefinite'/></rect>"));
    QCOMPARE(movie->Duration(), 1000);
    QVERIFY(movie->Advance(1000));
    QVERIFY(!movie->Advance(1040));
    QVERIFY(!movie->Advance(100000));
}

void TestSvgAnimation::timeMayGoBackAndStandStill()
{
    auto movie = Movie(Svg("<rect><set attributeName='x' to='9' begin='1s'/></rect>"));
    QVERIFY(!movie->Advance(-5));
    QVERIFY(!movie->Advance(0));
    QVERIFY(!movie->Advance(900)); // nothing moves before its time
    QVERIFY(movie->Advance(1000));
    QVERIFY(movie->Advance(500));
    QVERIFY(!movie->Advance(500));
}

void TestSvgAnimation::paintAndAnimationGoTogether()
{
    auto movie = Movie(Svg("<g id='tetto'><rect id='tetto.interno' fill='#123456' width='10' "
                           "height='100'><animate attributeName='x' values='0;90' dur='1s'/>"
                           "</rect></g>"));
    movie->Advance(500);
    movie->SetVariable("QualeOggetto", "tetto.interno");
    movie->SetVariable("TestoColore.QualeColore", "00FF00");
    QCOMPARE(At(Shown(*movie), 50, 50), QColor("#00ff00"));
    QCOMPARE(movie->Description(), "tetto 00FF00");
}

MORLENE_TEST(TestSvgAnimation)
#include "test_svg_animation.moc"
