// The house figure and its movie: the frame of each window, and the order in which it is painted.
#include "exercises/every_exercise.h"
#include "support/registered_tests.h"

#include <QMetaObject>
#include <QSet>
#include <QTest>

using namespace platform;

namespace {

// What is told to the figure of exercise 1 from its opening on, without its name.
QStringList Calls(const QStringList &events)
{
    const QString figure = QStringLiteral("ShockwaveFlash1.");
    QStringList calls;
    for (const QString &event : events)
        if (event.startsWith(figure))
            calls << event.mid(figure.size());
    return calls;
}

} // namespace

class TestFigureMovie : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFigureGoesToTheFrameOfItsWindow_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("systemsPointer");
        QTest::addColumn<QStringList>("frames");
        const QStringList none;
        const auto row = [&](int exercise, const QStringList &keys, const QStringList &own,
                             const QStringList &systems) {
            for (const int mode : {1, 2, 3})
                QTest::addRow("exercise %d, mode %d", exercise, mode)
                    << exercise << mode << (mode == 2) << keys;
            QTest::addRow("exercise %d, own pointer", exercise) << exercise << 0 << false << own;
            QTest::addRow("exercise %d, system's", exercise) << exercise << 0 << true << systems;
        };
        const auto frame = [](int number) { return QStringList{QString::number(number)}; };
        for (const int exercise : {1, 2})
            row(exercise, frame(0), frame(0), frame(0));
        for (const int exercise : {3, 4})
            row(exercise, frame(0), frame(2), frame(3));
        for (const int exercise : {6, 7})
            row(exercise, frame(0), frame(1), frame(0));
        for (const int exercise : {5, 8})
            row(exercise, none, none, none);
    }
    void theFigureGoesToTheFrameOfItsWindow()
    {
        QFETCH(int, exercise);
        QFETCH(int, mode);
        QFETCH(bool, systemsPointer);
        QFETCH(QStringList, frames);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        DisabilitaMousePersonalizzato = systemsPointer;
        player.Host.Seed(3);
        OpenExercise(player, exercise);
        QSet<QString> gone;
        bool opened = false;
        for (const QString &event : player.Host.TakeEvents()) {
            if (event.contains(QStringLiteral(".GotoFrame=")))
                gone << event.section(QLatin1Char('='), 1);
            opened |= event.endsWith(QStringLiteral("\\swf\\morlene1.swf"));
        }
        QVERIFY(opened);
        QCOMPARE(gone, QSet<QString>(frames.begin(), frames.end()));
    }

    // The object first, the colour second; outlines stay black.
    void everyPartIsNamedAndThenPaintedAndSmokeAndCloudsComeLast()
    {
        Player player;
        SuoniAttivi = false;
        Colori(0, 0) = QStringLiteral("ABCDEF");
        player.Host.Expect(Colouring({1, 2, 3, 4, 1, 2}, 0, 1) +
                           QList<ScriptedDraw>{{2, 0}, {8, 1}});
        player.Open<FormEs1>();
        QStringList calls = Calls(player.Host.TakeEvents());
        QVERIFY(calls.takeFirst().endsWith(QStringLiteral("\\swf\\morlene1.swf")));
        QStringList expected = {QStringLiteral("GotoFrame=0"), QStringLiteral("BGColor=ABCDEF")};
        const QList<QPair<const char *, const char *>> parts = {
            {"comignolo", "00FF00"}, {"tetto", "FF0000"}, {"pareti", "0000FF"},
            {"finestre", "FFFF00"},  {"porta", "00FF00"}, {"gradino", "FF0000"}};
        for (const auto &[part, colour] : parts)
            expected
                << QStringLiteral("SetVariable=QualeOggetto %1.interno").arg(QLatin1String(part))
                << QStringLiteral("SetVariable=TestoColore.QualeColore %1")
                       .arg(QLatin1String(colour));
        expected << QStringLiteral("TSetProperty=fumo 7 0")
                 << QStringLiteral("TSetProperty=nuvole 7 1");
        QCOMPARE(calls, expected);
    }

    void aFigureOfOneColourIsThatOfTheFirstRowAndItsGroundIsThePlayers()
    {
        Player player;
        SuoniAttivi = false;
        ColoriVari = false;
        ColoreSfondo = 0x00445566;
        Colori(0, 0) = QStringLiteral("ABCDEF");
        Colori(1, 0) = QStringLiteral("123456");
        player.Host.Expect(Colouring({1, 1, 1, 1, 1, 1}, 1, 1) +
                           QList<ScriptedDraw>{{2, 0}, {8, 1}});
        const auto &form = player.Open<FormEs1>();
        QCOMPARE(form.ShockwaveFlash1.Shown(),
                 QStringLiteral("comignolo 123456, tetto 123456, pareti 123456, finestre 123456, "
                                "porta 123456, gradino 123456, fumo 1, nuvole 1"));
        const QImage seen = form.ShockwaveFlash1.Widget()->grab().toImage();
        QCOMPARE(seen.pixelColor(1, 1), QColor(0xAB, 0xCD, 0xEF));
    }

    void aFigureThatIsOnlyLookedAtTakesNoClick_data()
    {
        QTest::addColumn<int>("exercise");
        for (const int exercise : {1, 2, 5, 8})
            QTest::addRow("exercise %d", exercise) << exercise;
    }
    void aFigureThatIsOnlyLookedAtTakesNoClick()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        player.Host.TakeEvents();
        int figures = 0;
        for (Control *control : form.Controls()) {
            const auto *figure = dynamic_cast<const MovieControl *>(control);
            if (figure == nullptr || !figure->Visible())
                continue;
            for (int part = 1; part <= Nuvole; ++part)
                ClickOnPart(*figure, part);
            ++figures;
        }
        QVERIFY(figures > 0);
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        QCOMPARE(Esatti + Errati, 0);
    }

    void theHourglassStandsWhileTheFigureIsPainted()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        player.Open<FormEs1>();
        const QStringList events = player.Host.TakeEvents();
        const auto from = events.indexOf(QStringLiteral("FormEs1.MousePointer=11"));
        const auto to = events.indexOf(QStringLiteral("FormEs1.MousePointer=0"));
        QVERIFY(from >= 0);
        QVERIFY(from < events.indexOf(QStringLiteral("ShockwaveFlash1.BGColor=FFFFCC")));
        QVERIFY(to > events.lastIndexOf(QRegularExpression(QStringLiteral("TSetProperty=nuvole"))));
        QVERIFY(to < events.indexOf(QStringLiteral("Command1(0).Enabled=True")));
    }

    // So that a large figure does not hold up the window.
    void pendingEventsPassWhenTheFigureIsOpenedAndBeforeItIsPainted_data() { RowsOfExercises(); }
    void pendingEventsPassWhenTheFigureIsOpenedAndBeforeItIsPainted()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        player.Host.TakeEvents();
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [&] { player.Host.Events << QStringLiteral("passato"); },
            Qt::QueuedConnection);
        form.OnActivate();
        const QStringList events = player.Host.TakeEvents();
        const auto passed = events.indexOf(QStringLiteral("passato"));
        QVERIFY(passed > events.indexOf(QRegularExpression(QStringLiteral(".*Movie=.*"))));
        QVERIFY(passed <
                events.lastIndexOf(QRegularExpression(QStringLiteral(".*SetVariable=.*"))));
    }
};

MORLENE_TEST(TestFigureMovie)
#include "test_figure_movie.moc"
