// Rewards that are drawings: where everything stands at a given moment.
#include "platform/movies/movie_helpers.h"

#include "platform/movies/motion_path.h"
#include "platform/movies/svg_animation.h"
#include "support/registered_tests.h"

#include <QTest>

using platform::CompileTrack;
using platform::MotionPath;
using platform::ParseSvg;
using platform::PathFromData;
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
    void anotherElementIsReachedByName();
    void laterAnimationsWin();
    void theWayMovesTheElementsOwnPlace();
    void arcsAndSmoothCurvesAreFollowed();
    void aWaySplitsItsLengthEvenly();
    void aDamagedPathEndsAtItsFault();
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
    row("with a unit", "<animate attributeName='x' values='0px;10px' dur='1s'/>", 500, "5.0000px");
    row("by", "<animate attributeName='x' by='10' dur='1s'/>", 500, "10.0000");
    row("from and by", "<animate attributeName='x' from='2' by='10' dur='1s'/>", 500, "7.0000");
    row("to alone", "<animate attributeName='x' to='15' dur='1s'/>", 500, "10.0000");
    row("a sum", "<animate attributeName='x' values='0;10' additive='sum' dur='1s'/>", 500,
        "10.0000");
    row("a missing attribute goes again",
        "<animate attributeName='opacity' values='0;1' dur='1s'/>", 1000, "-");
    row("a sum on a missing opacity",
        "<animate attributeName='opacity' values='0;-1' additive='sum' dur='1s'/>", 500, "0.5000");
    row("a colour", "<animate attributeName='fill' values='#ff0000;blue' dur='1s'/>", 500,
        "#800080");
    row("a colour with an e", "<animate attributeName='fill' values='#1e9999;#1e9999' dur='1s'/>",
        500, "#1e9999");
    row("words", "<animate attributeName='visibility' values='visible;hidden' dur='1s'/>", 600,
        "hidden");
    row("paths", "<animate attributeName='d' values='M0,0L10 10;M0 0L20,30' dur='1s'/>", 500,
        "M0.0000 0.0000L 15.0000 20.0000");
    row("unlike paths", "<animate attributeName='d' values='M0 0L1 1;M0 0H9' dur='1s'/>", 600,
        "M0 0H9");
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
    row("scaled by", "<animateTransform attributeName='transform' type='scale' by='1' dur='1s'/>",
        500, "scale(1.5000 1.5000)");
    row("turned", "<animateTransform attributeName='transform' type='rotate' to='90' dur='1s'/>",
        500, "rotate(45.0000 0.0000 0.0000)");
    row("turned round a point",
        "<animateTransform attributeName='transform' type='rotate' values='0 5 5;90 15 5' "
        "dur='1s'/>",
        500, "rotate(45.0000 10.0000 5.0000)");
    row("two transformations",
        "<animateTransform attributeName='transform' type='translate' values='9;9' dur='1s'/>"
        "<animateTransform attributeName='transform' type='skewX' values='8;8' additive='sum' "
        "dur='1s'/>",
        500, "translate(9.0000 0.0000) skewX(8.0000)");
    row("along a path", "<animateMotion path='M0 0 H10 V30' dur='4s'/>", 2000,
        "translate(10.0000 10.0000)");
    row("along points", "<animateMotion values='0,0;10,0;10,30' dur='4s'/>", 2000,
        "translate(10.0000 10.0000)");
    row("along points in even times",
        "<animateMotion values='0,0;10,0;10,30' calcMode='linear' dur='4s'/>", 2000,
        "translate(10.0000 0.0000)");
    row("along a path by key points",
        "<animateMotion path='M0 0H10' keyPoints='1;0' keyTimes='0;1' calcMode='linear' dur='4s'/>",
        1000, "translate(7.5000 0.0000)");
    row("from here to there", "<animateMotion from='10 0' to='20 0' dur='1s'/>", 500,
        "translate(15.0000 0.0000)");
    row("facing its way", "<animateMotion path='M0 0V10' rotate='auto' dur='1s'/>", 500,
        "translate(0.0000 5.0000) rotate(90.0000)");
    row("facing back", "<animateMotion path='M0 0V10' rotate='auto-reverse' dur='1s'/>", 500,
        "translate(0.0000 5.0000) rotate(270.0000)");
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
          "<animateMotion dur='1s'/>",
          "<animateMotion path='' dur='1s'/>",
          "<animateMotion path='H10' dur='1s'/>",
          "<animateMotion values='1;2' dur='1s'/>",
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

void TestSvgAnimation::anotherElementIsReachedByName()
{
    for (const char *name : {"href", "xlink:href"}) {
        const auto document =
            ParseSvg(Svg("<animate " + QByteArray(name) +
                         "='#b' attributeName='x' values='0;10' dur='1s'/><g/><rect id='b'/>"));
        const auto track = CompileTrack(*document, 1);
        QVERIFY(track);
        QCOMPARE(track->Element, document->Index("b"));
    }
}

void TestSvgAnimation::laterAnimationsWin()
{
    const QByteArray both = "<animate attributeName='x' values='1;1' dur='2s'/>"
                            "<animate attributeName='x' values='2;2' dur='1s'/>";
    QCOMPARE(Value(both, 500), "2.0000");
    QCOMPARE(Value(both, 1500), "1.0000");
}

void TestSvgAnimation::theWayMovesTheElementsOwnPlace()
{
    const QByteArray motion = "<animateMotion path='M0 0H10' dur='1s'/>";
    QCOMPARE(Value(motion, 500, "transform='scale(2)'"), "translate(5.0000 0.0000) scale(2)");
    QCOMPARE(Value(motion + "<animateTransform attributeName='transform' type='rotate' "
                            "values='7;7' dur='1s' additive='sum'/>",
                   500, "transform='scale(2)'"),
             "translate(5.0000 0.0000) scale(2) rotate(7.0000 0.0000 0.0000)");
    QCOMPARE(Value(motion, 1500, "transform='scale(2)'"), "scale(2)");
}

void TestSvgAnimation::arcsAndSmoothCurvesAreFollowed()
{
    const auto near = [](const QPointF &a, const QPointF &b) {
        return (a - b).manhattanLength() < 0.2;
    };
    // Half a circle of radius 10 above and below the line, by both flags.
    QVERIFY(near(MotionPath(PathFromData("M0 0A10 10 0 0 1 20 0")).At(0.5).Point, {10, -10}));
    QVERIFY(near(MotionPath(PathFromData("M0 0A10 10 0 0 0 20 0")).At(0.5).Point, {10, 10}));
    // A quarter and the three others; flags without gaps.
    QVERIFY(near(MotionPath(PathFromData("M10 0A10 10 0 010 10")).At(0.5).Point, {7.07, 7.07}));
    QVERIFY(near(MotionPath(PathFromData("M10 0A10 10 0 110 10")).At(0.5).Point, {17.07, 17.07}));
    // An ellipse that lies aslant, and one too small for its way, which grows.
    QVERIFY(near(MotionPath(PathFromData("M0 0A10 5 90 0 1 0 20")).At(0.5).Point, {5, 10}));
    QVERIFY(near(MotionPath(PathFromData("m0 0a1 1 0 0 1 20 0")).At(0.5).Point, {10, -10}));
    // The mirrored handle makes the second curve the first one upside down.
    const MotionPath wave(PathFromData("M0 0C0 10 10 10 10 0S20-10 20 0"));
    QVERIFY(near(wave.At(0.25).Point + wave.At(0.75).Point, {20, 0}));
    const MotionPath bows(PathFromData("M0 0Q5 10 10 0T20 0"));
    QVERIFY(near(bows.At(0.25).Point, {5, 5}));
    QVERIFY(near(bows.At(0.75).Point, {15, -5}));
}

void TestSvgAnimation::aWaySplitsItsLengthEvenly()
{
    const MotionPath way(PathFromData("M0 0 10 0v0V10h-10z"));
    QCOMPARE(way.At(0).Point, QPointF(0, 0));
    QCOMPARE(way.At(0.375).Point, QPointF(10, 5));
    QCOMPARE(way.At(0.375).Degrees, 90.0);
    QCOMPARE(way.At(1).Point, QPointF(0, 0));
    QCOMPARE(way.At(7).Point, QPointF(0, 0));
    QCOMPARE(MotionPath(std::vector<QPointF>{{3, 4}}).At(0.5).Point, QPointF(3, 4));
    QCOMPARE(MotionPath(std::vector<QPointF>{{3, 4}, {3, 4}}).At(0.5).Point, QPointF(3, 4));
    QCOMPARE(MotionPath().At(0.5).Point, QPointF(0, 0));
}

void TestSvgAnimation::aDamagedPathEndsAtItsFault()
{
    QCOMPARE(PathFromData("M0 0L10 0L20").currentPosition(), QPointF(10, 0));
    QCOMPARE(PathFromData("M0 0L10 0X5 5L9 9").currentPosition(), QPointF(10, 0));
    QCOMPARE(PathFromData("M0 0A5 5 0 2 1 9 9").currentPosition(), QPointF(0, 0));
    QCOMPARE(PathFromData("M0 0H5Z 7 7").currentPosition(), QPointF(0, 0));
    QVERIFY(PathFromData("L5 5").isEmpty());
    QVERIFY(PathFromData("").isEmpty());
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
